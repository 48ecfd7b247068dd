#pragma once

#include "session/Level.h"

#include <QString>

namespace structure {

using enum session::Level;

inline const QString kRootKey = QStringLiteral("Root");
inline const QString kRootCaption = QStringLiteral("ZEL Bus");

// A node key taken apart; parts that the key lacks are "".
struct KeyParts
{
    QString Level, IDGrp, IDInst, IDParGrp, IDPar;
};

// 0 for "Root", else the number before the first "_". Another text without "_" fails.
int Extract_Level(const QString& key);

// All parts as texts; "Root" gives level "0" and empty ids.
KeyParts Extract_Key(const QString& key);

// The key of an element, from its ids.
QString groupKey(const QString& IDGrp);
QString instrumentKey(const QString& IDGrp, const QString& IDInst);
QString paramGroupKey(const QString& IDGrp, const QString& IDInst, const QString& IDParGrp);
QString parameterKey(const QString& IDGrp, const QString& IDInst, const QString& IDParGrp,
                     const QString& IDPar);

// The key of the parent of an element of that level: 0 or 1 give "Root", 2 to 4 the key one level up, any
// other "". An element's own key is that of a parent one level further down.
QString Compose_Key(int level, const QString& IDGrp, const QString& IDInst, const QString& IDParGrp);
// The key of the parent of the element that a key names.
QString parentKey(const QString& key);

} // namespace structure
