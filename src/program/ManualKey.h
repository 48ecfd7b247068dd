#pragma once

#include <QObject>
#include <QString>
#include <functional>

namespace program {

// F1, in whatever window of the program the keys are: tells that window's name.
class ManualKey : public QObject
{
public:
    using Show = std::function<void(const QString& window)>;

    explicit ManualKey(Show show);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Show show_;
};

} // namespace program
