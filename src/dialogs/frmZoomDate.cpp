#include "dialogs/frmZoomDate.h"

#include "platform/Clock.h"
#include "session/Session.h"

#include <QCalendarWidget>
#include <QVBoxLayout>

namespace dialogs {

frmZoomDate::frmZoomDate(const session::Session& session, const platform::Clock& clock)
    : mvwCalendario_(new QCalendarWidget(this))
{
    setWindowTitle(session.AppTitle);
    mvwCalendario_->setObjectName("mvwCalendario");
    mvwCalendario_->setAccessibleName(session.AppTitle);
    mvwCalendario_->setLocale(QLocale(session.Language.Code.toLower())); // names of days and months
    mvwCalendario_->setSelectedDate(clock.now().date());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(mvwCalendario_);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    connect(mvwCalendario_, &QCalendarWidget::activated, this, &frmZoomDate::pick);
    mvwCalendario_->setFocus();
}

void frmZoomDate::pick(QDate date)
{
    pickedDate_ = date.toString(QStringLiteral("dd/MM/yy"));
    accept();
}

} // namespace dialogs
