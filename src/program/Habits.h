#pragma once

#include <QObject>
#include <QSettings>

class QWidget;

namespace program {

// What an operator is used to: size, place and columns of each window, for each arrangement of screens, and
// the last search. It lies in a settings file of its own, "Calidora_Windows.ini" in the application folder,
// and nothing depends on it: a file that is lost or can't be written leaves the windows as they are at first.
//
// What the program sets itself whenever a window opens is left alone: the columns of the plant's list, which
// the configuration holds, and those of the event viewer and of the lists to pick from.
class Habits : public QObject
{
public:
    explicit Habits(const QString& applicationFolder);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void restore(QWidget& window);
    void keep(const QWidget& window);

    QSettings settings_;
};

} // namespace program
