#pragma once

#include "values/Digits.h" // Compose_Byte, DecToBin and BinToDec belong to the same family

#include <QByteArray>
#include <QString>

namespace values {

// How the catalogue says that a parameter lies in an instrument's memory and what it means. LW and HW are the
// ends of the raw scale in counts, LR and HR the engineering values that they stand for, LL and HL the limits
// of a valid engineering value. Size is the number of bytes.
struct ParameterCoding
{
    QString KeyType; // REAL, ENUM, STRING, TIME_H, TIME_HM, TIME_HMS
    QString Type;    // BYTE, S_BYTE, BIT, BCD, WORD_L, WORD_H, INT_L, INT_H, STRING
    int BitFirst = 0;
    int BitCount = 0;
    int LW = 0;
    int HW = 0;
    double LR = 0;
    double HR = 0;
    double LL = 0;
    double HL = 0;
    int Size = 0;
};

// Bytes from the bus to the engineering text that the database keeps. The empty text where a limit rejects
// the value or the type has no number; bytes beyond those that the type needs are ignored. Fails, with the
// empty text, on too few bytes, on HW equal to LW and on a bit field beyond its byte.
QString Compose_EngVal(const QByteArray& raw, const ParameterCoding& coding);

// An engineering text (empty for NULL) to the data bytes of a write. Only BYTE, WORD_L and WORD_H are
// encoded, and of the times on a BYTE only TIME_HM; everything else gives no bytes. Fails, with no bytes, on
// a text that isn't numeric, on HR equal to LR and on a number that leaves a byte's range.
QByteArray Extract_EngVal(const QString& value, const ParameterCoding& coding);

// The text followed by blanks up to `size` bytes. Fails, with no bytes, when it is longer than that.
QByteArray Compose_Str(const QByteArray& text, int size);

} // namespace values
