#pragma once

class QApplication;

namespace widgets {

// Gives the program its face: one calm style and palette on every desktop, the window icon, sharp at every
// scale.
void applyLook(QApplication& application);

} // namespace widgets
