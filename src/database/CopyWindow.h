#pragma once

#include "platform/Operator.h"

#include <functional>

namespace database {

// Below this a copy is over before anybody could read how far it is.
constexpr qint64 kLargeCopy = 8 << 20;

// The window that shows how far the copy of a large file is; it goes on every way out.
class CopyWindow
{
public:
    CopyWindow(platform::Operator& op, qint64 size) : operator_(op), shown_(size >= kLargeCopy)
    {
        if (!shown_)
            return;
        operator_.showForm(kName);
        operator_.repaint();
    }
    ~CopyWindow()
    {
        if (shown_)
            operator_.unloadForm(kName);
    }
    CopyWindow(const CopyWindow&) = delete;
    CopyWindow& operator=(const CopyWindow&) = delete;

private:
    inline static const QString kName = QStringLiteral("frmCopy");
    platform::Operator& operator_;
    const bool shown_;
};

// Tells each whole percent of a copy once.
std::function<void(qint64 done, qint64 total)> percentTeller(std::function<void(int percent)> tell);

} // namespace database
