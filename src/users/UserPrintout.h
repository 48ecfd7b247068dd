#pragma once

#include "platform/Forward.h"
#include "platform/Printer.h"
#include "session/Forward.h"

#include <QStringList>
#include <vector>

namespace users {

// Operators on paper: a line an item, an empty line between two of them.
class UserPrintout
{
public:
    UserPrintout(const session::Session& session, const session::Texts& texts);

    // The lines of the record that a recordset on tbUsers stands on.
    QStringList record(const platform::Recordset& row) const;
    // The pages of records; `numbered` puts the page's number at its foot.
    platform::PrintReport report(const std::vector<QStringList>& records, bool numbered) const;

private:
    QStringList head() const;

    const session::Session& session_;
    const session::Texts& texts_;
};

} // namespace users
