#include "exchange/ShownValues.h"

#include "platform/Connection.h"
#include "platform/RuntimeError.h"
#include "session/Helpers.h"
#include "session/Session.h"
#include "values/Display.h"
#include "values/Numbers.h"
#include "values/TimeText.h"

#include <QStringBuilder>

namespace exchange {

ShownValues::ShownValues(const session::Session& session)
{
    platform::Statement rows(session.cnDatabase,
                             u"SELECT tbParamEnum.mKeyParam, tbParamEnum.mValue, tbParamEnumLanguage.mDesc "
                             u"FROM tbParamEnum INNER JOIN tbParamEnumLanguage "
                             u"ON tbParamEnum.mID = tbParamEnumLanguage.mID "
                             u"WHERE (tbParamEnumLanguage.mKeyLang = " %
                                 session::Compose_SqlText(session.Language.Code) %
                                 u") ORDER BY tbParamEnum.mID DESC;");
    while (rows.step())
        choices_[QString::fromUtf8(rows.text(0)).toLower()][int(rows.integer(1))] =
            QString::fromUtf8(rows.text(2));
}

QString ShownValues::of(const ReportRow& row) const
{
    return shown(row, row.optionalText(ReportRow::UM));
}

QString ShownValues::ofForCommas(const ReportRow& row) const
{
    if (row.isNull(ReportRow::Value))
        return of(row);
    const QString keyType = row.text(ReportRow::KeyType);
    if (keyType == QLatin1String("REAL")) {
        const QString number = shown(row, std::nullopt).replace(u',', u'.');
        return row.isNull(ReportRow::UM) ? number : number % u' ' % row.text(ReportRow::UM);
    }
    const auto form = values::timeFormOf(keyType);
    const bool hasColon = form && *form != values::TimeForm::H;
    return hasColon ? of(row).replace(u',', u':').replace(u'.', u':') : of(row);
}

QString ShownValues::shown(const ReportRow& row, const std::optional<QString>& unit) const
{
    const std::optional<QString> value = row.optionalText(ReportRow::Value);
    const auto find = [&](const QString& number) { return choice(row.text(ReportRow::IDPar), number); };
    try {
        return values::displayValue(value, row.text(ReportRow::KeyType), row.text(ReportRow::Prec), unit,
                                    find, value.value_or(QString()));
    } catch (const platform::RuntimeError&) {
        return value.value_or(QString());
    }
}

QString ShownValues::choice(const QString& IDPar, const QString& value) const
{
    return choices_.value(IDPar.toLower()).value(values::toInteger(values::toNumber(value)));
}

} // namespace exchange
