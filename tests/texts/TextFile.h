#pragma once

#include <QFile>
#include <QMap>
#include <QString>
#include <QStringList>

// The rows of one text file of src/resources, read straight from the source tree.
struct TextFile
{
    QStringList heads;            // as they stand in the file, doubles included
    QMap<QString, QString> texts; // by head
    QStringList strays;           // lines that are neither a comment nor a row
};

// name: such as "texts/IT.txt". A file that can't be read gives no rows.
inline TextFile readTexts(const QString& name)
{
    TextFile result;
    QFile file(QStringLiteral(CALIDORA_RESOURCES "/") + name);
    if (!file.open(QIODevice::ReadOnly)) {
        return result;
    }
    const QStringList lines = QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        if (line.startsWith('#')) {
            continue;
        }
        const qsizetype first = line.indexOf('"');
        const qsizetype last = line.lastIndexOf('"');
        if (first < 2 || line[first - 1] != ' ' || last == first || last != line.size() - 1) {
            result.strays << line;
            continue;
        }
        const QString head = line.left(first - 1);
        result.heads << head;
        result.texts[head] = line.mid(first + 1, last - first - 1);
    }
    return result;
}
