#pragma once

#include <QObject>
#include <QString>
#include <map>

namespace bus {

// Pictures of the program's image list that the status bar shows.
namespace images {
constexpr int kRest = 1;
constexpr int kPortOpen = 25;
constexpr int kPortClosed = 26;
constexpr int kPortBusy = 27;
constexpr int kAlarm = 28;
} // namespace images

enum class Panel
{
    COMSet,
    Info,
    Allarm
};

// What the panels of the main status bar show; the console mirrors two of them.
class StatusPanels : public QObject
{
    Q_OBJECT

public:
    QString text(Panel panel) const { return valueOr(texts_, panel); }
    int picture(Panel panel) const { return valueOr(pictures_, panel); } // 0 none

    void setText(Panel panel, const QString& text)
    {
        texts_[panel] = text;
        emit changed();
    }
    void setPicture(Panel panel, int image)
    {
        pictures_[panel] = image;
        emit changed();
    }
    // The panel says nothing of itself until the next language step.
    void clearTip(Panel panel) { emit tipCleared(panel); }

signals:
    void changed();
    void tipCleared(bus::Panel panel);

private:
    template <class Value>
    static Value valueOr(const std::map<Panel, Value>& values, Panel panel)
    {
        const auto found = values.find(panel);
        return found == values.end() ? Value{} : found->second;
    }

    std::map<Panel, QString> texts_;
    std::map<Panel, int> pictures_;
};

} // namespace bus
