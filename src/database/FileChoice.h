#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

#include <QString>
#include <functional>
#include <optional>

namespace database {

// The model that every new or upgraded company is a copy of. No company may bear its name.
inline const QString kModelName = QStringLiteral("Calidora_Model_Instrument.mdb");
bool isModelName(const QString& name);

// What a file dialog gave, taken apart; forward slashes.
struct ChosenPath
{
    QString folder;
    QString name;

    QString path() const { return folder + QLatin1Char('/') + name; }
};
ChosenPath splitPath(const QString& file);

// Asks through `ask`; a cancel is told, and gives none.
std::optional<ChosenPath> chooseFile(const session::Session& session, const session::Texts& texts,
                                     platform::Operator& op, const std::function<QString()>& ask);

} // namespace database
