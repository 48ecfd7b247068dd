#include "structure/ShownValue.h"

#include "platform/Recordset.h"
#include "platform/RuntimeError.h"
#include "session/Helpers.h"
#include "session/Session.h"
#include "values/Display.h"

namespace structure {

using session::Compose_SqlText;

namespace {

QString choiceOf(const session::Session& session, const QString& IDPar, const QString& value)
{
    static const QString kStatement = QStringLiteral(
        R"(SELECT tbParamEnumLanguage.mDesc
           FROM tbParamEnum
                INNER JOIN tbParamEnumLanguage ON tbParamEnum.mID = tbParamEnumLanguage.mID
           WHERE ((tbParamEnum.mKeyParam = %1)
              AND (tbParamEnum.mValue = %2)
              AND (tbParamEnumLanguage.mKeyLang = %3));)");
    bool isNumber = false;
    const int number = value.toInt(&isNumber);
    if (!isNumber)
        return {};
    platform::Recordset choices;
    choices.Open(kStatement.arg(Compose_SqlText(IDPar), QString::number(number),
                                Compose_SqlText(session.Language.Code)),
                 session.cnDatabase);
    return choices.Eof() ? QString() : choices.text(QStringLiteral("mDesc"));
}

platform::Recordset catalogueOf(const session::Session& session, const QString& IDPar)
{
    platform::Recordset parameter;
    parameter.Open(QStringLiteral(R"(SELECT tbParam.mDP, tbParam.mUnit, tbParamType.mTag AS KeyType
                                     FROM tbParam INNER JOIN tbParamType ON tbParam.mKeyType = tbParamType.mID
                                     WHERE (tbParam.mID = %1);)")
                       .arg(Compose_SqlText(IDPar)),
                   session.cnDatabase);
    return parameter;
}

} // namespace

QString shownValue(const session::Session& session, const QString& IDPar, const std::optional<QString>& value)
{
    const QString stored = value.value_or(QString());
    try {
        const platform::Recordset parameter = catalogueOf(session, IDPar);
        if (parameter.Eof())
            return stored;
        const std::optional<QString> known = stored.isEmpty() ? std::nullopt : value;
        const QString shown = values::displayValue(
            known, parameter.text("KeyType"), parameter.text("mDP"), parameter.optionalText("mUnit"),
            [&](const QString& choice) { return choiceOf(session, IDPar, choice); }, stored);
        return shown.isEmpty() ? stored : shown;
    } catch (const platform::RuntimeError&) {
        return stored;
    }
}

QString parameterName(const session::Session& session, const QString& IDPar, const QString& otherwise)
{
    static const QString kStatement =
        QStringLiteral("SELECT mDesc FROM tbParamLanguage WHERE ((mID = %1) AND (mKeyLang = %2));");
    try {
        platform::Recordset names;
        names.Open(kStatement.arg(Compose_SqlText(IDPar), Compose_SqlText(session.Language.Code)),
                   session.cnDatabase);
        return names.Eof() ? otherwise : names.text("mDesc");
    } catch (const platform::RuntimeError&) {
        return otherwise;
    }
}

QString choiceWords(const session::Session& session, const QString& IDPar, const QString& value)
{
    try {
        const platform::Recordset parameter = catalogueOf(session, IDPar);
        const bool isChoice =
            !parameter.Eof() && values::kindOf(parameter.text("KeyType")) == values::Kind::Enum;
        return isChoice ? choiceOf(session, IDPar, value) : QString();
    } catch (const platform::RuntimeError&) {
        return {};
    }
}

} // namespace structure
