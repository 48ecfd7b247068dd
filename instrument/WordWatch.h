#pragma once

#include <QByteArray>

namespace instrument {

// Watches the bytes that pass by for one word, wherever it stands among them.
class WordWatch
{
public:
    explicit WordWatch(QByteArray word) : word_(std::move(word)) {}

    // True at the byte that completes the word; the watch then begins anew.
    bool sees(char byte)
    {
        tail_ = (tail_ + byte).right(word_.size());
        if (tail_ != word_)
            return false;
        tail_.clear();
        return true;
    }

    void reset() { tail_.clear(); }
    const QByteArray& word() const { return word_; }

private:
    QByteArray word_;
    QByteArray tail_;
};

} // namespace instrument
