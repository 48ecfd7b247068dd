#pragma once

#include "session/Forward.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

namespace database {

// The copies that a company has, by their names.
//
//   Safety/Plant_20260131235959.bak      safety copies, in the folder "Safety" beside the company
//   Plant_replaced_20260131235959.bak    beside it: what a restore replaced and nobody has connected since
//   Plant.bak                            in the folder of backups

// A company's name without its ending.
QString baseName(const QString& companyName);
QString timeStamp(const QDateTime& time);

QString safetyFolder(const QString& company);
QString safetyName(const QString& company, const QDateTime& time);
// The company's safety copies, the oldest first.
QStringList safetyCopies(const QString& company);
// When one was made.
QDateTime timeOfSafetyCopy(const QString& copy);

QString replacedName(const QString& company, const QDateTime& time);

// The newest copy of any kind that stands where the program puts one; "" for none.
QString newestCopy(const QString& company, const session::Session& session);
// What to do about a damaged company: which copy to go back to, and by which command.
QString adviceFor(const QString& company, const session::Session& session, const session::Texts& texts);

} // namespace database
