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

// What becomes of a character that the code page lacks.
enum class Lacking
{
    QuestionMark, // it is written as "?"
    KeptAsUtf8    // the whole file is written as UTF-8 behind its mark, for TextReader alone to read
};

// Writes a text file that stands whole or not at all: until commit the former file is untouched.
class TextWriter
{
public:
    TextWriter(const QString& path, int codePage, const char* lineEnd = kSystemLineEnd);

    void WriteLine(const QString& line);
    // Puts the file in the place of the former one. Without it nothing is left behind.
    void commit(Lacking lacking = Lacking::QuestionMark);

private:
    [[noreturn]] void failWithFile(int number) const;
    QByteArray encoded(Lacking lacking) const;

    QSaveFile file_;
    int codePage_;
    const char* lineEnd_;
    QString text_;
};

} // namespace platform
