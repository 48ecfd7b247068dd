#pragma once

#include "bus/StatusPanels.h"
#include "session/Forward.h"

#include <QStatusBar>
#include <QTimer>
#include <functional>
#include <map>

class QLabel;

namespace program {

// staMain: the line's panels "COMSet", "Info" and "Allarm", hour and date, and the lock keys.
class MainStatusBar : public QStatusBar
{
    Q_OBJECT

public:
    MainStatusBar(const bus::StatusPanels& panels, const session::Texts& texts, QWidget* parent = nullptr);

    // The words that no Tag brings, in the current language.
    void relabel();
    // Who works with the open company; nothing without one.
    void showUser(const session::Session& session);
    // Why no value history is kept; "" when it is.
    void showHistory(const QString& failure);
    // That a newer model of the instruments is installed, and the command that brings it in; "" when none is.
    void showModel(const QString& newer);
    // What the line is on, asked whenever the line shows something new; "" for nothing.
    void askForPlant(std::function<QString()> plant) { plant_ = std::move(plant); }
    // Values that wait to be written, and writes that were not confirmed.
    void showWaiting(int waiting, int unconfirmed);

    QSize minimumSizeHint() const override;

signals:
    void panelDoubleClicked(const QString& key);
    void panelClicked(const QString& key);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct PanelWidget
    {
        QWidget* frame = nullptr;
        QLabel* picture = nullptr;
        QLabel* text = nullptr;
    };

    void addPanel(const QString& key, int tag, int stretch = 0);
    void showLine();
    void showPlant();
    void showBell(bool alarms);
    // What matters least goes where the window is too narrow for all panels.
    void fit();
    void clearTip(bus::Panel panel);
    void showTime();
    void showLocks();

    const bus::StatusPanels& panels_;
    const session::Texts& texts_;
    std::function<QString()> plant_;
    int waiting_ = 0, unconfirmed_ = 0;
    bool user_ = false;
    std::map<QString, PanelWidget> widgets_;
    QTimer nextMinute_;
};

} // namespace program
