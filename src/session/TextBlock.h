#pragma once

#include <QHash>
#include <QString>

namespace session {

// One block of texts, read from a plain text file: a row a line, its key, then the text between the first and
// the last quote of the line. Lines that are empty or begin with "#" say nothing.
class TextBlock
{
public:
    // Fails with file, line and reason on a file that is missing or malformed.
    static TextBlock fromFile(const QString& path);

    bool contains(const QString& key) const { return rows_.contains(key); }
    // The row's text. A key without a row fails.
    const QString& operator[](const QString& key) const;

private:
    QString path_;
    QHash<QString, QString> rows_;
};

} // namespace session
