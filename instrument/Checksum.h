#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace instrument {

// The byte that closes a frame: behind `bytes` it makes the sum of all of them end in 0xFF.
char closingByte(QByteArrayView bytes);

// Whether the sum of all bytes of the frame, its checksum included, ends in 0xFF.
bool sumCloses(QByteArrayView frame);

} // namespace instrument
