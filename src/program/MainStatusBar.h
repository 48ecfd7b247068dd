#pragma once

#include "bus/StatusPanels.h"
#include "session/Forward.h"

#include <QStatusBar>
#include <QTimer>
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
    // That a newer model of the instruments is installed, and the command that brings it in; "" when none is.
    void showModel(const QString& newer);

signals:
    void panelDoubleClicked(const QString& key);

protected:
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
    void clearTip(bus::Panel panel);
    void showTime();
    void showLocks();

    const bus::StatusPanels& panels_;
    const session::Texts& texts_;
    std::map<QString, PanelWidget> widgets_;
    QTimer nextMinute_;
};

} // namespace program
