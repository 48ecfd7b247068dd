#pragma once

class QApplication;

namespace session {

// Gives the program its face: one calm style and palette on every desktop, the window icon, sharp at every
// scale.
void applyLook(QApplication& application);

} // namespace session
