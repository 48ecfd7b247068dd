#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <array>

namespace events {

// Bytes of a code page without regard to case: each byte's rank among all letters of the page, as comparing
// texts without case ranks them. Two bytes of one letter have one rank; no rank is 0.
class CaseFold
{
public:
    explicit CaseFold(int codePage);

    uchar rank(char byte) const { return ranks_[uchar(byte)]; }
    // Eight bytes from `at` on as one number that sorts like them; behind the text's end they are 0.
    quint64 key(QByteArrayView text, qsizetype at) const;

private:
    std::array<uchar, 256> ranks_;
};

} // namespace events
