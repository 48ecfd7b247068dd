#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace instrument {

// How a parameter lies in memory and which line leads from its counts to its engineering value.
struct ValueShape
{
    QString wireType; // "BYTE", "S_BYTE", "BIT", "BCD", "WORD_L", "WORD_H", "INT_L", "INT_H", "STRING"
    QString keyType;  // "REAL", "ENUM", "STRING", "TIME_H", "TIME_HM", "TIME_HMS"
    int size = 1;     // bytes; counts for "STRING" alone
    int bitFirst = 0; // lowest bit of a "BIT" field
    int bitCount = 8;
    int lowCount = 0; // the line: lowCount is lowValue, highCount is highValue
    int highCount = 255;
    double lowValue = 0;
    double highValue = 255;
};

struct EncodedValue
{
    QByteArray bytes;
    quint8 mask = 0xFF; // the bits that belong to the value; other than 0xFF for a bit field of one byte only

    bool operator==(const EncodedValue&) const = default;
};

// The bytes in which an instrument keeps a value, such that the program reads the value from them. No value
// is memory that was never programmed: 0xFF in every byte, blanks in a text. Nothing when the type can't hold
// the value, or when the text is no number, the line no line, or the type unknown.
std::optional<EncodedValue> encodeValue(const ValueShape& shape, const std::optional<QString>& value);

// The counts of a value on the shape's line, to the nearest one; seconds for a time text such as "02:30:00".
// Nothing when the text is no number or the line no line.
std::optional<qint64> countsOf(const ValueShape& shape, const QString& value);

// The bytes of a number of counts; nothing when the type can't hold it. Not for "STRING".
std::optional<EncodedValue> encodeCounts(const ValueShape& shape, qint64 counts);

double valueOfCounts(const ValueShape& shape, qint64 counts);

} // namespace instrument
