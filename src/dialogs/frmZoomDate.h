#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

#include <QDialog>

class QCalendarWidget;

namespace dialogs {

// A calendar from which a date is picked, by double click or Enter.
class frmZoomDate : public QDialog
{
    Q_OBJECT

public:
    frmZoomDate(const session::Session& session, const platform::Clock& clock);

    // The date picked as "dd/mm/yy"; "" when the window closed without one.
    const QString& pickedDate() const { return pickedDate_; }

private:
    void pick(QDate date);

    QCalendarWidget* mvwCalendario_;
    QString pickedDate_;
};

} // namespace dialogs
