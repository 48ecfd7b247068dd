#pragma once

#include "values/Display.h"

#include <QString>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace structure {

class CompanyReader;

// Ids as the company compares them: Latin letters without regard to case.
struct IdHash
{
    using is_transparent = void;
    std::size_t operator()(std::string_view id) const;
};
struct IdEqual
{
    using is_transparent = void;
    bool operator()(std::string_view one, std::string_view other) const;
};
template <class Value>
using ById = std::unordered_map<std::string, Value, IdHash, IdEqual>;

// What a parameter is called in one language, and how its values are shown.
struct ParameterWord
{
    QString name; // the description that lists show
    QString tag;
    values::ValueForm form;
    std::map<int, QString> choices; // of an ENUM
    int index = 0;                  // among all of them, from 0

    // As the list shows it; a value that can't be shown by its meaning as it stands.
    QString shown(const std::optional<QString>& value) const;
};

// The words of the catalogue for every parameter and parameter group, read once for a whole company. What has
// no description in the language is missing here as it is in tree and list.
class ParameterWords
{
public:
    ParameterWords(CompanyReader& company, const QString& language);

    const ParameterWord* parameter(std::string_view id) const;
    const QString* group(std::string_view id) const;
    int parameterCount() const { return int(parameters_.size()); }

private:
    void readParameters(CompanyReader& company, const QString& code);
    void readChoices(CompanyReader& company, const QString& code);

    ById<ParameterWord> parameters_;
    ById<QString> groups_;
};

} // namespace structure
