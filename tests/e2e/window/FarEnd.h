#pragma once

#include <QByteArray>
#include <QString>

namespace window {

// The other end of a pseudo-terminal that the program has as its port.
class FarEnd
{
public:
    // The program's end appears as this link.
    explicit FarEnd(QString link) : link_(std::move(link)) { plugIn(); }
    ~FarEnd();
    FarEnd(const FarEnd&) = delete;
    FarEnd& operator=(const FarEnd&) = delete;

    // Until it lies at the program's end.
    void say(const QByteArray& bytes);
    // All that the program has said, of what was plugged in before, too.
    const QByteArray& heard();
    // The device goes, and another one is at its place at once.
    void pullOut();

private:
    void plugIn();

    QString link_;
    int end_ = -1;
    int near_ = -1; // the program's end, to see what lies there
    QByteArray heard_;
};

} // namespace window
