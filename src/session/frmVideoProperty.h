#pragma once

#include <QWidget>

namespace session {

struct Session;

// A helper that nobody sees: it measures the title bar of this desktop when it loads.
class frmVideoProperty : public QWidget
{
    Q_OBJECT

public:
    explicit frmVideoProperty(Session& session);

private:
    // The height of a title bar in form units.
    double Titlebar_Height() const;
};

} // namespace session
