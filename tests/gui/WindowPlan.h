#pragma once

#include <QString>
#include <QWidget>

namespace gui {

// What a window is made of, as text: a line a part, in what it differs from a plain part of its kind, where
// its layouts put it, its entries and columns, and in which order the keys go through it. No value of it
// depends on the fonts of the machine. `home` is a folder whose name isn't told.
QString planOf(const QWidget& window, const QString& home);

// Fails where the window isn't what tests/gui/plans/NAME.txt tells. CALIDORA_PLANS=write draws the plan anew.
void expectPlan(const QWidget& window, const QString& name, const QString& home);

} // namespace gui
