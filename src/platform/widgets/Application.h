#pragma once

#include <QApplication>

namespace platform {

// The application whose message loop no failure ends: what no procedure on the way has caught is reported
// under the loop's own name, "Module/Main".
class Application : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace platform
