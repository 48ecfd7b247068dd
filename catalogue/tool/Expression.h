#pragma once

#include "catalogue/tool/Problem.h"

#include <QMap>

namespace catalogue {

using Variables = QMap<QString, int>;

// Replaces each "{expression}" of a line by its value, so that a repeated block can count: whole numbers,
// names,
// "+", "-", "*" and brackets. "{n:02}" pads with zeros to the width told. Refuses what it cannot evaluate.
QString expand(const QString& text, const Variables& variables, const Origin& origin);

} // namespace catalogue
