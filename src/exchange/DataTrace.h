#pragma once

#include <QByteArray>
#include <QString>
#include <array>
#include <cstddef>

namespace exchange {

// The file with which a group moves between companies: lines of six fields in fixed columns, nothing else. A
// group line, then each instrument's line with those of its parameters behind it.

struct TraceField
{
    int begin; // from 0
    int width;
};
inline constexpr std::array<TraceField, 6> kTraceFields{
    {{0, 8}, {8, 50}, {58, 50}, {108, 255}, {363, 30}, {393, 16}}};
inline constexpr int kTraceLength = 409;

using TraceTexts = std::array<QString, kTraceFields.size()>;

// The bytes of a line without its end; texts are cut to their fields.
QByteArray traceLine(const TraceTexts& texts, int codePage);

enum class TraceKind
{
    Group,
    Instrument,
    Parameter,
    None // no line of this form
};

// A line taken apart by position, each field without the blanks at its end. A short line has empty fields
// from its end on; what stands behind the last field is nobody's.
struct TraceLine
{
    TraceLine(const QByteArray& bytes, int codePage);

    TraceKind kind() const;
    const QString& operator[](std::size_t field) const { return texts[field - 1]; } // from 1
    bool isFull(std::size_t field) const; // a text that fills its field may have been cut

    TraceTexts texts;
};

} // namespace exchange
