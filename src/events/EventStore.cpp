#include "events/EventStore.h"

#include "events/EventLog.h"
#include "platform/RuntimeError.h"
#include "platform/Words.h"

#include <cstring>
#ifdef Q_OS_LINUX
#include <sys/mman.h>
#endif

namespace events {

namespace {

constexpr qsizetype kBlockBytes = 1 << 24;
constexpr int kOutOfMemory = 7;
// Some files of two gigabytes; what goes beyond would take the machine's memory from the line.
constexpr std::size_t kMostEvents = 20'000'000;

// A block is filled from its begin to its end: fetched in large pages it costs a fraction of the time.
void fetchInLargePages([[maybe_unused]] char* block)
{
#ifdef Q_OS_LINUX
    constexpr quintptr kLargePage = 1 << 21;
    const quintptr begin = (quintptr(block) + kLargePage - 1) / kLargePage * kLargePage;
    const quintptr end = (quintptr(block) + kBlockBytes) / kLargePage * kLargePage;
    ::madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
#endif
}

int shownType(int type)
{
    return type == kInformation || type == kWarning ? type : kError;
}

int shownSource(QByteArrayView source)
{
    if (source == QByteArrayView("1"))
        return kAlarms;
    return source == QByteArrayView("2") ? kReadWrite : 0;
}

} // namespace

void EventStore::append(const LogLine& line)
{
    if (rows_.size() >= kMostEvents)
        platform::failInWords(kOutOfMemory, "viewer.toomany", {QString::number(kMostEvents)});
    const QByteArrayView texts[] = {line.when == kNoStamp ? line.dateText : QByteArrayView(), line.equipment,
                                    line.instrument, line.description};
    qsizetype bytes = kTextsAt;
    for (const QByteArrayView text : texts)
        bytes += text.size();
    char* record = room(bytes);
    rows_.push_back(record);
    std::memcpy(record, &line.when, sizeof line.when);
    record[kTypeAt] = char(shownType(line.type));
    record[kSourceAt] = char(shownSource(line.source));
    char* end = record + kTextsAt;
    for (int i = 0; i < 4; ++i) {
        record[kLengthsAt + i] = char(texts[i].size());
        end = std::copy(texts[i].begin(), texts[i].end(), end);
    }
    undated_ += line.when == kNoStamp;
}

char* EventStore::room(qsizetype bytes)
{
    if (left_ < bytes) {
        blocks_.emplace_back(new char[kBlockBytes]);
        fetchInLargePages(blocks_.back().get());
        left_ = kBlockBytes;
    }
    char* place = blocks_.back().get() + kBlockBytes - left_;
    left_ -= bytes;
    return place;
}

void EventStore::clear()
{
    *this = {};
}

Stamp EventStore::when(quint32 row) const
{
    Stamp when;
    std::memcpy(&when, rows_[row], sizeof when);
    return when;
}

StoredEvent EventStore::at(quint32 row) const
{
    const char *record = rows_[row], *text = record + kTextsAt;
    QByteArrayView texts[4];
    for (int i = 0; i < 4; ++i) {
        texts[i] = {text, qsizetype(uchar(record[kLengthsAt + i]))};
        text = texts[i].end();
    }
    return {when(row), type(row), source(row), texts[0], texts[1], texts[2], texts[3]};
}

} // namespace events
