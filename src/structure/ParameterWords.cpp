#include "structure/ParameterWords.h"

#include "platform/RuntimeError.h"
#include "session/Helpers.h"
#include "structure/CompanyReader.h"
#include "values/Numbers.h"

#include <algorithm>

namespace structure {

namespace {

unsigned char lowered(char character)
{
    const auto byte = static_cast<unsigned char>(character);
    return byte >= 'A' && byte <= 'Z' ? byte - 'A' + 'a' : byte;
}

template <class Value>
const Value* find(const ById<Value>& values, std::string_view id)
{
    const auto found = values.find(id);
    return found == values.end() ? nullptr : &found->second;
}

} // namespace

std::size_t IdHash::operator()(std::string_view id) const
{
    std::size_t hash = 14695981039346656037ull;
    for (const char character : id)
        hash = (hash ^ lowered(character)) * 1099511628211ull;
    return hash;
}

bool IdEqual::operator()(std::string_view one, std::string_view other) const
{
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char a, char b) { return lowered(a) == lowered(b); });
}

ParameterWords::ParameterWords(CompanyReader& company, const QString& language)
{
    const QString code = session::Compose_SqlText(language);
    readParameters(company, code);
    readChoices(company, code);
    static const QString kStatement =
        QStringLiteral("SELECT mID, mDesc FROM tbParamGroupLanguage WHERE (mKeyLang = %1);");
    company.eachRow(kStatement.arg(code), [this](const platform::Statement& row) {
        groups_.emplace(bytesOf(row, 0), textOf(row, 1));
    });
}

void ParameterWords::readParameters(CompanyReader& company, const QString& code)
{
    static const QString kStatement = QStringLiteral(
        R"(SELECT tbParam.mID, tbParamLanguage.mDesc, tbParam.mTag, tbParamType.mTag, tbParam.mDP,
                  tbParam.mUnit
           FROM (tbParam
                 INNER JOIN tbParamType ON tbParam.mKeyType = tbParamType.mID)
                 INNER JOIN tbParamLanguage ON tbParam.mID = tbParamLanguage.mID
           WHERE (tbParamLanguage.mKeyLang = %1);)");
    company.eachRow(kStatement.arg(code), [this](const platform::Statement& row) {
        const values::ValueForm form{values::kindOf(textOf(row, 3)), textOf(row, 4), textOrNull(row, 5)};
        parameters_.emplace(bytesOf(row, 0),
                            ParameterWord{textOf(row, 1), textOf(row, 2), form, {}, int(parameters_.size())});
    });
}

void ParameterWords::readChoices(CompanyReader& company, const QString& code)
{
    static const QString kStatement = QStringLiteral(
        R"(SELECT tbParamEnum.mKeyParam, tbParamEnum.mValue, tbParamEnumLanguage.mDesc
           FROM tbParamEnum
                INNER JOIN tbParamEnumLanguage ON tbParamEnum.mID = tbParamEnumLanguage.mID
           WHERE (tbParamEnumLanguage.mKeyLang = %1)
           ORDER BY tbParamEnum.mID;)");
    company.eachRow(kStatement.arg(code), [this](const platform::Statement& row) {
        const auto parameter = parameters_.find(bytesOf(row, 0));
        if (parameter != parameters_.end())
            parameter->second.choices.emplace(int(row.integer(1)), textOf(row, 2));
    });
}

const ParameterWord* ParameterWords::parameter(std::string_view id) const
{
    return find(parameters_, id);
}

const QString* ParameterWords::group(std::string_view id) const
{
    return find(groups_, id);
}

QString ParameterWord::shown(const std::optional<QString>& value) const
{
    const auto choice = [this](const QString& number) {
        const auto found = choices.find(values::toInteger(values::toNumber(number)));
        return found == choices.end() ? QString() : found->second;
    };
    try {
        return values::displayValue(value, form, choice, value.value_or(QString()));
    } catch (const platform::RuntimeError&) {
        return value.value_or(QString());
    }
}

} // namespace structure
