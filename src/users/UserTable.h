#pragma once

#include "session/Forward.h"

#include <QString>
#include <QVariant>

namespace users {

// Reads tbUsers again; rsUsers stands on its first record. Where that fails the former records stay.
void requery(session::Session& session);

// rsUsers stands on the operator of that number; false, at its end, where there is none.
bool find(session::Session& session, const QString& IDUser);

// Whether a record's State lets its operator log in: nothing but 0 does.
bool isEnabled(const QVariant& State);

// A right as it is kept of an operator who works: the text of its number, "0" for what is no number.
QString rightText(const QVariant& stored);

// The built-in operator: makes its record, without a password and without rights.
void Create_Admin_Profile(session::Session& session);
// The same for a company without any operator, which nobody could work with.
void makeSureOfAnOperator(session::Session& session);

} // namespace users
