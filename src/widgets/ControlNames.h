#pragma once

class QWidget;

namespace widgets {

// Gives each control that takes the keys or is pressed, and has no name yet, one for a screen reader: what
// its tool tip, the words in it, the label beside it, its frame or its window say. Called again it follows a
// change of language.
void nameControls(QWidget& form);

} // namespace widgets
