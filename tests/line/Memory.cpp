#include "line/Memory.h"

// The address sanitizer of clang has an allocator of its own.
#ifdef __has_feature
#if __has_feature(address_sanitizer)
#define CALIDORA_ADDRESS_SANITIZER
#endif
#endif

#ifdef CALIDORA_ADDRESS_SANITIZER
#include <sanitizer/allocator_interface.h>
#else
#include <malloc.h>
#endif

namespace line {

qint64 memoryInUse()
{
#ifdef CALIDORA_ADDRESS_SANITIZER
    return qint64(__sanitizer_get_current_allocated_bytes());
#else
    const struct mallinfo2 now = mallinfo2();
    return qint64(now.uordblks + now.hblkhd);
#endif
}

void MemoryWatch::look()
{
    const qint64 now = memoryInUse();
    if (looks_++ % looksOfWindow_ == 0)
        lowest_.push_back(now);
    lowest_.back() = std::min(lowest_.back(), now);
}

QString MemoryWatch::trouble() const
{
    const int whole = looks_ / looksOfWindow_;
    if (whole < 3)
        return {};
    const qint64 growth = lowest_[std::size_t(whole - 1)] - lowest_[1];
    return growth > mostGrowth_ ? QStringLiteral("the memory has grown by %1 bytes").arg(growth) : QString();
}

} // namespace line
