#pragma once

#include <QString>
#include <vector>

namespace line {

// Bytes that this process has allocated and not given back.
qint64 memoryInUse();

// Looks at the memory again and again at the same place, and tells whether it grows for good: its lowest
// level of a number of looks rises.
class MemoryWatch
{
public:
    explicit MemoryWatch(int looksOfWindow, qint64 mostGrowth)
        : looksOfWindow_(looksOfWindow), mostGrowth_(mostGrowth)
    {
    }

    void look();
    // What is wrong; "" as long as nothing is. The first window is the warming up.
    QString trouble() const;

private:
    int looksOfWindow_;
    qint64 mostGrowth_;
    int looks_ = 0;
    std::vector<qint64> lowest_; // of each window
};

} // namespace line
