#include "structure/Structure.h"

#include "platform/Connection.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "session/Helpers.h"
#include "session/Session.h"
#include "structure/WorkRecordset.h"
#include "values/Display.h"
#include "values/Numbers.h"

#include <QStringBuilder>
#include <limits>
#include <optional>

namespace structure {

using platform::guarded;
using platform::Recordset;
using session::Compose_SqlText;

namespace {

// The fields, named once: a list may have thousands of rows.
const QString kIDGrp = QStringLiteral("IDGrp");
const QString kIDInst = QStringLiteral("IDInst");
const QString kIDParGrp = QStringLiteral("IDParGrp");
const QString kIDPar = QStringLiteral("IDPar");
const QString kName = QStringLiteral("Name");
const QString kDescription = QStringLiteral("Description");
const QString kPhone = QStringLiteral("Phone");
const QString kAddress = QStringLiteral("Address");
const QString kDes = QStringLiteral("Des");
const QString kValue = QStringLiteral("Value");
const QString kState = QStringLiteral("State");
const QString kKeyType = QStringLiteral("KeyType");
const QString kPrec = QStringLiteral("Prec");
const QString kUnit = QStringLiteral("mUnit");

// The items of one load. They reach the list all at once, on every way out: a failure leaves it as far as it
// was filled.
class Filling
{
public:
    explicit Filling(ListModel& list) : list_(list) { list_.clear(); }
    ~Filling() { list_.setItems(std::move(items_)); }
    Filling(const Filling&) = delete;
    Filling& operator=(const Filling&) = delete;

    void expect(int items) { items_.reserve(std::size_t(items)); }
    void add(ListItem item) { items_.push_back(std::move(item)); }

private:
    ListModel& list_;
    std::vector<ListItem> items_;
};

QString paramGroupsSql(const KeyParts& ids, const QString& language)
{
    return u"SELECT tbParametersUser.IDGrp, tbParametersUser.IDInst, tbParametersUser.IDParGrp, "
           u"tbParamGroupLanguage.mDesc AS Name FROM tbParametersUser INNER JOIN tbParamGroupLanguage "
           u"ON tbParametersUser.IDParGrp = tbParamGroupLanguage.mID "
           u"WHERE ((tbParametersUser.IDGrp = " %
           ids.IDGrp % u") AND (tbParametersUser.IDInst = " % ids.IDInst %
           u") AND (tbParamGroupLanguage.mKeyLang = " % language %
           u")) GROUP BY tbParametersUser.IDGrp, tbParametersUser.IDInst, tbParametersUser.IDParGrp, "
           u"tbParamGroupLanguage.mDesc ORDER BY tbParametersUser.IDParGrp;";
}

QString parametersSql(const KeyParts& ids, const QString& language)
{
    return u"SELECT tbParametersUser.*, tbParam.mTag AS Name, tbParamLanguage.mDesc AS Des, "
           u"tbParam.mDP AS Prec, tbParam.mUnit , tbParamType.mTag AS KeyType "
           u"FROM ((tbParametersUser INNER JOIN tbParam ON tbParametersUser.IDPar = tbParam.mID) "
           u"INNER JOIN tbParamType ON tbParam.mKeyType = tbParamType.mID) "
           u"INNER JOIN tbParamLanguage ON tbParam.mID = tbParamLanguage.mID "
           u"WHERE ((tbParametersUser.IDGrp = " %
           ids.IDGrp % u") AND (tbParametersUser.IDInst = " % ids.IDInst %
           u") AND (tbParametersUser.IDParGrp = " % Compose_SqlText(ids.IDParGrp) %
           u") AND (tbParamLanguage.mKeyLang = " % language % u")) ORDER BY tbParametersUser.IDPar;";
}

QString sqlOfChildren(int level, const KeyParts& ids, const QString& language)
{
    switch (level) {
    case kRoot:
        return QStringLiteral("SELECT * FROM tbGroupsUser ORDER BY Name;");
    case kGroup:
        return u"SELECT * FROM tbInstrumentsUser WHERE (IDGrp = " % ids.IDGrp % u") ORDER BY Name;";
    case kInstrument:
        return paramGroupsSql(ids, language);
    default:
        return parametersSql(ids, language);
    }
}

ListItem groupItem(const Recordset& row)
{
    return {u"1_" % row.text(kIDGrp), row.text(kName), row.text(kPhone), row.text(kDescription), 2};
}

ListItem instrumentItem(const Recordset& row)
{
    return {u"2_" % row.text(kIDGrp) % u'_' % row.text(kIDInst), row.text(kName), row.text(kAddress),
            row.text(kDescription), 3};
}

ListItem paramGroupItem(const Recordset& row)
{
    return {u"3_" % row.text(kIDGrp) % u'_' % row.text(kIDInst) % u'_' % row.text(kIDParGrp),
            row.text(kName),
            {},
            {},
            4};
}

ListItem parameterItem(const Recordset& row, const QString& shown)
{
    return {u"4_" % row.text(kIDGrp) % u'_' % row.text(kIDInst) % u'_' % row.text(kIDParGrp) % u'_' %
                row.text(kIDPar),
            row.text(kDes),
            shown,
            {},
            row.number(kState) + 5};
}

} // namespace

void Structure::Load_Items_ListBus(const QString& key)
{
    guarded("Module/Load_Items_ListBus", [&] {
        const platform::BusyPointer busy(operator_);
        const KeyParts ids = Extract_Key(key);
        const int level = Extract_Level(key);
        if (level != kParameter)
            fillList(level, ids);
        emit levelLoaded(level);
    });
}

void Structure::fillList(int level, const KeyParts& ids)
{
    selectItem({});
    Filling filling(list_);
    Set_ColName_ListBus(level);
    session_.strSQL = sqlOfChildren(level, ids, Compose_SqlText(session_.Language.Code));
    std::optional<platform::Snapshot> snapshot;
    if (level == kParamGroup)
        snapshot.emplace(session_.cnDatabase); // the rows and the choices looked up for them
    // The text of the row before stands until a row gives one of its own.
    QString shown;
    WorkRecordset rows(session_);
    filling.expect(rows->RecordCount());
    for (; !rows->Eof(); rows->MoveNext()) {
        switch (level) {
        case kRoot:
            filling.add(groupItem(*rows));
            break;
        case kGroup:
            filling.add(instrumentItem(*rows));
            break;
        case kInstrument:
            filling.add(paramGroupItem(*rows));
            break;
        default:
            const auto choice = [&](const QString& value) {
                return Search_ParamEnum(rows->text(kIDPar), value);
            };
            shown = values::displayValue(rows->optionalText(kValue), rows->text(kKeyType), rows->text(kPrec),
                                         rows->optionalText(kUnit), choice, shown);
            filling.add(parameterItem(*rows, shown));
        }
    }
}

QString Structure::Search_ParamEnum(const QString& IDPar, const QString& Value)
{
    return guarded("Module/Search_ParamEnum", [&]() -> QString {
        const int number = values::toInteger(values::toNumber(Value));
        if (number < std::numeric_limits<qint16>::min() || number > std::numeric_limits<qint16>::max())
            platform::fail(platform::errors::kOverflow, QStringLiteral("Overflow"));
        const QString sql =
            u"SELECT tbParamEnum.mID, tbParamEnum.mKeyParam, tbParamEnumLanguage.mDesc, tbParamEnum.mValue "
            u"FROM tbParamEnum INNER JOIN tbParamEnumLanguage ON tbParamEnum.mID = tbParamEnumLanguage.mID "
            u"WHERE ((tbParamEnum.mKeyParam = " %
            Compose_SqlText(IDPar) % u") AND (tbParamEnum.mValue = " % QString::number(number) %
            u") AND (tbParamEnumLanguage.mKeyLang = " % Compose_SqlText(session_.Language.Code) % u"));";
        Recordset choices; // its own, as is the statement: the caller is walking rsWork
        choices.Open(sql, session_.cnDatabase);
        return choices.Eof() ? QString() : choices.text(QStringLiteral("mDesc"));
    });
}

} // namespace structure
