#include "instrument/Checksum.h"

#include <gtest/gtest.h>

using namespace instrument;

namespace {

TEST(Checksum, ClosesTheSum)
{
    const struct
    {
        const char* bytes;
        int closing;
    } rows[] = {{"", 0xFF},
                {"3030521002", 0x3B},
                {"30315710022C01", 0x08},
                {"3030520501", 0x47},
                {"30315710014D", 0xE9}};
    for (const auto& row : rows)
        EXPECT_EQ(quint8(closingByte(QByteArray::fromHex(row.bytes))), row.closing) << row.bytes;
}

TEST(Checksum, OneTurnedBitOpensTheSum)
{
    const QByteArray frame = QByteArray::fromHex("30315710022C0108");
    ASSERT_TRUE(sumCloses(frame));
    for (int bit = 0; bit < frame.size() * 8; ++bit) {
        QByteArray damaged = frame;
        damaged[bit / 8] = char(damaged[bit / 8] ^ (1 << bit % 8));
        EXPECT_FALSE(sumCloses(damaged)) << bit;
    }
}

} // namespace
