#include "platform/widgets/Application.h"

#include "platform/Guard.h"

namespace platform {

bool Application::notify(QObject* receiver, QEvent* event)
{
    return guarded("Module/Main", [&] { return QApplication::notify(receiver, event); });
}

} // namespace platform
