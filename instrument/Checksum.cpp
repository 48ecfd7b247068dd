#include "instrument/Checksum.h"

#include <numeric>

namespace instrument {

namespace {

quint8 sumOf(QByteArrayView bytes)
{
    return std::accumulate(bytes.begin(), bytes.end(), quint8{0},
                           [](quint8 sum, char byte) { return quint8(sum + quint8(byte)); });
}

} // namespace

char closingByte(QByteArrayView bytes)
{
    return char(0xFF - sumOf(bytes));
}

bool sumCloses(QByteArrayView frame)
{
    return sumOf(frame) == 0xFF;
}

} // namespace instrument
