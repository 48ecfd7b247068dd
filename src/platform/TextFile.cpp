#include "platform/TextFile.h"

#include "platform/CodePage.h"
#include "platform/Words.h"

#include <QDir>
#include <QFileInfo>

namespace platform {

namespace {

const QByteArray kUtf8Mark("\xEF\xBB\xBF");

QString described(const QFileDevice& file)
{
    return QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file.fileName()), file.errorString());
}

int reasonOf(const QFileDevice& file, const QString& path)
{
    if (file.error() == QFileDevice::PermissionsError)
        return errors::kPermissionDenied;
    return QFileInfo(path).dir().exists() ? errors::kFileNotFound : errors::kPathNotFound;
}

} // namespace

TextReader::TextReader(const QString& path, int codePage) : file_(path), codePage_(codePage)
{
    if (!file_.open(QIODevice::ReadOnly))
        fail(reasonOf(file_, path), described(file_));
    utf8_ = file_.peek(kUtf8Mark.size()) == kUtf8Mark;
    if (utf8_)
        file_.skip(kUtf8Mark.size());
}

QString TextReader::ReadLine()
{
    if (AtEndOfStream())
        failInWords(kInputPastEnd, "file.short", {file_.fileName()});
    QByteArray line = file_.readLine();
    if (line.isEmpty() && file_.error() != QFileDevice::NoError)
        fail(errors::kDeviceIo, described(file_));
    if (line.endsWith('\n'))
        line.chop(1);
    if (line.endsWith('\r'))
        line.chop(1);
    return utf8_ ? QString::fromUtf8(line) : decode(line, codePage_);
}

TextWriter::TextWriter(const QString& path, int codePage, const char* lineEnd)
    : file_(path), codePage_(codePage), lineEnd_(lineEnd)
{
    // The engine of safe files has one reason for all that keeps it from opening one.
    if (!file_.open(QIODevice::WriteOnly))
        failWithFile(QFileInfo(path).dir().exists() ? errors::kPermissionDenied : errors::kPathNotFound);
    if (codePage_ == kUtf8WithMark)
        WriteBytes(kUtf8Mark);
}

void TextWriter::WriteLine(const QString& line)
{
    WriteBytes((codePage_ == kUtf8WithMark ? line.toUtf8() : encode(line, codePage_)) + lineEnd_);
}

void TextWriter::WriteBytes(const QByteArray& bytes)
{
    if (file_.write(bytes) != bytes.size())
        failWithFile(errors::kDiskFull);
}

void TextWriter::commit()
{
    // The commit looks at what was written, not at what its own flush couldn't write: a full disk shows here.
    if (!file_.flush()) {
        file_.cancelWriting();
        failWithFile(errors::kDiskFull);
    }
    if (!file_.commit())
        failWithFile(file_.error() == QFileDevice::PermissionsError ? errors::kPermissionDenied
                                                                    : errors::kDeviceIo);
}

void TextWriter::failWithFile(int number) const
{
    fail(number, described(file_));
}

} // namespace platform
