#pragma once

class QApplication;

namespace widgets {

// Gives the program its face: one calm style on every desktop, a light palette or, where the desktop's own is
// dark, a dark one; the window icon, sharp at every scale.
void applyLook(QApplication& application);

} // namespace widgets
