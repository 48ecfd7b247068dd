#pragma once

#include <QByteArray>
#include <QString>

namespace bus {

// The old byte with the field of the masks (eight digits, most significant bit first) put into it. Fails on
// masks that are no digit strings.
int mergeBits(unsigned char oldByte, const QString& andMask, const QString& orMask);

} // namespace bus
