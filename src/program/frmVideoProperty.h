#pragma once

#include "session/Forward.h"

#include <QWidget>

namespace program {

// A helper that nobody sees: it measures the title bar of this desktop when it loads.
class frmVideoProperty : public QWidget
{
    Q_OBJECT

public:
    explicit frmVideoProperty(session::Session& session);

private:
    // The height of a title bar in form units.
    double Titlebar_Height() const;
};

} // namespace program
