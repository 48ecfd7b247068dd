#pragma once

#include <QString>

namespace widgets {

// A text for a tool tip that shows it as it stands: a name such as "<B>NORTH</B>" is no markup.
QString plainToolTip(const QString& text);

} // namespace widgets
