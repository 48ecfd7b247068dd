#pragma once

#include <QFile>
#include <QSaveFile>
#include <QString>

namespace platform {

// Texts on disk, a line after the other, one byte a character in a machine's code page.
//
// Every failure is a RuntimeError with the file's name in its words.

constexpr int kInputPastEnd = 62;

#ifdef Q_OS_WIN
inline constexpr char kSystemLineEnd[] = "\r\n";
#else
inline constexpr char kSystemLineEnd[] = "\n";
#endif

// Reads a text file from its first line to its last. A file that begins with the mark of UTF-8 is read as
// such, whatever the code page.
class TextReader
{
public:
    // Opens the file; one that is missing or may not be read fails.
    TextReader(const QString& path, int codePage);

    bool AtEndOfStream() const { return file_.atEnd(); }
    // The next line without its end, which is LF or CR LF. Reading past the end fails.
    QString ReadLine();

private:
    QFile file_;
    int codePage_;
    bool utf8_ = false;
};

// The code page of a file that begins with the mark of UTF-8 and lacks no character; for TextReader alone to
// read.
constexpr int kUtf8WithMark = 65001;

// Writes a text file that stands whole or not at all, however long it grows: each line goes to a file beside
// it, which commit puts in its place. A character that the code page lacks becomes "?".
class TextWriter
{
public:
    TextWriter(const QString& path, int codePage, const char* lineEnd = kSystemLineEnd);

    // A full disk fails at the line that finds it, or at the commit.
    void WriteLine(const QString& line);
    // The same for what is encoded already, with its line ends.
    void WriteBytes(const QByteArray& bytes);
    // Puts the file in the place of the former one. Without it nothing is left behind.
    void commit();

private:
    [[noreturn]] void failWithFile(int number) const;

    QSaveFile file_;
    int codePage_;
    const char* lineEnd_;
};

} // namespace platform
