#include "events/LogLoad.h"

#include "events/EventStore.h"
#include "events/LogFiles.h"
#include "platform/CodePage.h"
#include "platform/Words.h"

#include <QDir>

namespace events {

namespace {

constexpr qsizetype kReadBytes = 1 << 18; // stays in the processor's cache until it is parsed
// A slice ends with the file that brings it over this.
constexpr qsizetype kSliceBytes = 4 << 20;
// Four bytes a character at most, in a file that is UTF-8.
constexpr qsizetype kMostBytes = 4 * kLineWidth;
constexpr QByteArrayView kUtf8Mark("\xEF\xBB\xBF");

} // namespace

LogLoad::LogLoad(const Source& source, const EventFilter& filter, EventStore& store)
    : folder_(source.folder), exeName_(source.exeName), codePage_(source.codePage),
      filter_(filter, source.codePage), store_(store), names_(logFilesIn(source.folder)),
      splitter_(kMostBytes), buffer_(kReadBytes, Qt::Uninitialized)
{
}

bool LogLoad::step()
{
    qint64 bytes = 0;
    while (bytes < kSliceBytes) {
        if (!file_ && next_ == names_.size())
            return false;
        if (!file_)
            openNext();
        if (file_)
            bytes += read();
    }
    return file_ || next_ < names_.size();
}

void LogLoad::openNext()
{
    const QString name = names_[next_++];
    percent_ = int(next_ * 100 / names_.size());
    if (!isEventLog(name, exeName_))
        return;
    file_.emplace(folder_ + QLatin1Char('/') + name);
    atStart_ = true;
    utf8_ = false;
    line_ = 0;
    if (!file_->open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        unreadable();
}

qint64 LogLoad::read()
{
    const qint64 bytes = file_->read(buffer_.data(), buffer_.size());
    if (bytes < 0) {
        unreadable();
        return 0;
    }
    QByteArrayView part(buffer_.constData(), bytes);
    if (std::exchange(atStart_, false) && part.startsWith(kUtf8Mark)) {
        utf8_ = true;
        part = part.sliced(kUtf8Mark.size());
    }
    const auto takeLine = [this](QByteArrayView line) { take(line); };
    splitter_.feed(part, takeLine);
    if (bytes == 0) {
        splitter_.finish(takeLine);
        file_.reset();
    }
    return bytes;
}

void LogLoad::unreadable()
{
    const QString name = QFileInfo(file_->fileName()).fileName();
    unread_ << QStringLiteral("%1 (%2)").arg(name, file_->errorString());
    // What was read before the failure is shown, the line it broke off in as well.
    splitter_.finish([this](QByteArrayView line) { take(line); });
    file_.reset();
}

void LogLoad::take(QByteArrayView line)
{
    ++line_;
    ++total_;
    if (!LogLine::isEvent(line))
        platform::failInWords(platform::errors::kTypeMismatch, "log.noevent",
                              {QDir::toNativeSeparators(file_->fileName()), QString::number(line_)});
    if (!utf8_) {
        keep(LogLine(line));
        return;
    }
    const QByteArray bytes = platform::encode(QString::fromUtf8(line.data(), line.size()), codePage_);
    keep(LogLine(bytes));
}

void LogLoad::keep(const LogLine& line)
{
    if (line.when != kNoStamp) {
        oldest_ = oldest_ == kNoStamp ? line.when : std::min(oldest_, line.when);
        newest_ = std::max(newest_, line.when);
    }
    if (!filter_.Add_Event_EventViewer(line))
        return;
    store_.append(line);
    ++shown_;
}

} // namespace events
