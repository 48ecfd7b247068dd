#include "platform/CsvField.h"

#include <algorithm>

namespace platform {

namespace {

constexpr char16_t kDelete = 0x7F;

bool isControl(QChar character)
{
    return character < u' ' || character == QChar(kDelete);
}

} // namespace

QString withoutControls(const QString& text)
{
    QString line = text;
    std::replace_if(line.begin(), line.end(), isControl, QChar(u' '));
    return line;
}

QByteArray quotedField(const QString& text)
{
    const QString line = withoutControls(text);
    QByteArray field = line.toUtf8();
    const bool quoted =
        field.contains(',') || field.contains('"') || field.startsWith(' ') || field.endsWith(' ');
    if (!quoted)
        return field;
    field.replace("\"", "\"\"");
    return '"' + field + '"';
}

QByteArray csvLine(const QStringList& cells)
{
    QList<QByteArray> fields;
    for (const QString& cell : cells)
        fields << quotedField(cell);
    return fields.join(',') + "\r\n";
}

} // namespace platform
