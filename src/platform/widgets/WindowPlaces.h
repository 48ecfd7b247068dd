#pragma once

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QString>

class QWidget;

namespace platform {

// Windows keep size and place: as long as the program runs and, in a file beside the settings, from one run
// to the next. A file that can't be written costs no more than that.
class WindowPlaces : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    // Reads what former runs kept there.
    void keepIn(const QString& file);
    // A window comes up for the first time: it takes the place that it had, and its own is kept from here on.
    // It stays inside its screen in any case.
    void look(QWidget& window, const QString& name);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void keep(const QWidget& window);

    QString file_;
    QHash<QString, QByteArray> places_;
};

} // namespace platform
