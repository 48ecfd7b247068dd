#include "program/frmVideoProperty.h"

#include "session/Session.h"
#include "widgets/FormUnits.h"

#include <QStyle>

namespace program {

using namespace session;
using widgets::kFormUnitsPerPoint;

frmVideoProperty::frmVideoProperty(Session& session)
{
    setWindowTitle(session.AppTitle + "\\Video Property");
    setAttribute(Qt::WA_DontShowOnScreen);
    session.TitlebarHeight = Titlebar_Height();
}

double frmVideoProperty::Titlebar_Height() const
{
    // The desktop decorates only windows that it shows; for any other the style knows the usual height.
    const int measured = frameGeometry().height() - geometry().height();
    return kFormUnitsPerPoint *
           double(measured > 0 ? measured : style()->pixelMetric(QStyle::PM_TitleBarHeight));
}

} // namespace program
