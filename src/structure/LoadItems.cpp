#include "structure/Structure.h"

#include "platform/Connection.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "platform/Statement.h"
#include "session/Helpers.h"
#include "session/Int16.h"
#include "session/Session.h"
#include "structure/Image.h"
#include "values/Display.h"

#include <QSet>
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
    ListItem& last() { return items_.back(); }

private:
    ListModel& list_;
    std::vector<ListItem> items_;
};

QString paramGroupsSql(const KeyParts& ids, const QString& language)
{
    static const QString kStatement = QStringLiteral(
        R"(SELECT tbParametersUser.IDGrp, tbParametersUser.IDInst, tbParametersUser.IDParGrp,
                  tbParamGroupLanguage.mDesc AS Name
           FROM tbParametersUser
                INNER JOIN tbParamGroupLanguage
                ON tbParametersUser.IDParGrp = tbParamGroupLanguage.mID
           WHERE ((tbParametersUser.IDGrp = %1)
              AND (tbParametersUser.IDInst = %2)
              AND (tbParamGroupLanguage.mKeyLang = %3))
           GROUP BY tbParametersUser.IDGrp, tbParametersUser.IDInst, tbParametersUser.IDParGrp,
                    tbParamGroupLanguage.mDesc
           ORDER BY tbParametersUser.IDParGrp;)");
    return kStatement.arg(ids.IDGrp, ids.IDInst, language);
}

QString parametersSql(const KeyParts& ids, const QString& language)
{
    static const QString kStatement = QStringLiteral(
        R"(SELECT tbParametersUser.*, tbParam.mTag AS Name, tbParamLanguage.mDesc AS Des,
                  tbParam.mDP AS Prec, tbParam.mUnit, tbParamType.mTag AS KeyType
           FROM ((tbParametersUser
                  INNER JOIN tbParam ON tbParametersUser.IDPar = tbParam.mID)
                  INNER JOIN tbParamType ON tbParam.mKeyType = tbParamType.mID)
                  INNER JOIN tbParamLanguage ON tbParam.mID = tbParamLanguage.mID
           WHERE ((tbParametersUser.IDGrp = %1)
              AND (tbParametersUser.IDInst = %2)
              AND (tbParametersUser.IDParGrp = %3)
              AND (tbParamLanguage.mKeyLang = %4))
           ORDER BY tbParametersUser.IDPar;)");
    return kStatement.arg(ids.IDGrp, ids.IDInst, Compose_SqlText(ids.IDParGrp), language);
}

QString sqlOfChildren(int level, const KeyParts& ids, const QString& language)
{
    switch (level) {
    case kRoot:
        return QStringLiteral("SELECT * FROM tbGroupsUser ORDER BY Name;");
    case kGroup:
        return QStringLiteral("SELECT * FROM tbInstrumentsUser WHERE (IDGrp = %1) ORDER BY Name;")
            .arg(ids.IDGrp);
    case kInstrument:
        return paramGroupsSql(ids, language);
    default:
        return parametersSql(ids, language);
    }
}

// The groups, or the instruments of a group: thousands of them perhaps, so each text is made once, straight
// from the engine's row.
void addNamed(int level, const QString& sql, platform::Connection& company, Filling& filling)
{
    const bool isGroup = level == kGroup;
    platform::Statement row(company, sql);
    if (!row.step())
        return;
    const auto columnOf = [&row](const QString& name) {
        int column = 0;
        while (column < row.columnCount() && row.columnName(column) != name)
            ++column;
        return column;
    };
    const auto text = [&row](int column) { return QString::fromUtf8(row.text(column)); };
    const int IDGrp = columnOf(kIDGrp), IDInst = columnOf(kIDInst), Name = columnOf(kName),
              subtext = columnOf(isGroup ? kPhone : kAddress), Description = columnOf(kDescription);
    do {
        filling.add({isGroup ? groupKey(text(IDGrp)) : instrumentKey(text(IDGrp), text(IDInst)), text(Name),
                     text(subtext), text(Description), imageOfNode(level)});
    } while (row.step());
}

ListItem paramGroupItem(const Recordset& row)
{
    return {paramGroupKey(row.text(kIDGrp), row.text(kIDInst), row.text(kIDParGrp)),
            row.text(kName),
            {},
            {},
            int(Image::ParamGroup)};
}

ListItem parameterItem(const Recordset& row, const QString& shown)
{
    return {parameterKey(row.text(kIDGrp), row.text(kIDInst), row.text(kIDParGrp), row.text(kIDPar)),
            row.text(kDes),
            shown,
            {},
            imageOfState(row.number(kState))};
}

// The parameters of a group that can't be written, by the catalogue.
QSet<QString> readOnlyOf(const QString& IDParGrp, const platform::Connection& company)
{
    Recordset rows;
    rows.Open(
        QStringLiteral("SELECT mID FROM tbParam WHERE ((mKeyParGroup = %1) AND (Coalesce(mEnable, 0) = 0));")
            .arg(Compose_SqlText(IDParGrp)),
        company);
    QSet<QString> ids;
    for (; !rows.Eof(); rows.MoveNext())
        ids << rows.text(QStringLiteral("mID"));
    return ids;
}

} // namespace

void Structure::Load_Items_ListBus(const QString& key)
{
    std::optional<platform::RuntimeError> badChoice;
    guarded("Module/Load_Items_ListBus", [&] {
        const platform::BusyPointer busy(operator_);
        const KeyParts ids = Extract_Key(key);
        const int level = Extract_Level(key);
        if (level != kParameter)
            fillList(level, ids, badChoice);
        emit levelLoaded(level);
    });
    // Told once, and when nothing is open any more: behind a box the bus works on, in this very file.
    if (badChoice)
        guarded("Module/Search_ParamEnum", [&] { throw *badChoice; });
}

void Structure::fillList(int level, const KeyParts& ids, std::optional<platform::RuntimeError>& badChoice)
{
    selectItem({});
    list_.clear();
    list_.sortByColumn(-1, true); // what is loaded stands in the order of the company
    Filling filling(list_);
    Set_ColName_ListBus(level);
    const QString sql = sqlOfChildren(level, ids, Compose_SqlText(session_.Language.Code));
    if (level < kInstrument)
        return addNamed(level + 1, sql, session_.cnDatabase, filling);
    std::optional<platform::Snapshot> snapshot;
    if (level == kParamGroup)
        snapshot.emplace(session_.cnDatabase); // the rows and the choices looked up for them
    Recordset rows;
    rows.Open(sql, session_.cnDatabase);
    const values::EnumText choice = [&](const QString& value) -> QString {
        try {
            return choiceOf(rows.text(kIDPar), value);
        } catch (const platform::RuntimeError& error) {
            if (!badChoice)
                badChoice = error;
            return {};
        }
    };
    const QSet<QString> readOnly =
        level == kParamGroup ? readOnlyOf(ids.IDParGrp, session_.cnDatabase) : QSet<QString>();
    // The text of the row before stands until a row gives one of its own.
    QString shown;
    filling.expect(rows.RecordCount());
    for (; !rows.Eof(); rows.MoveNext()) {
        if (level == kInstrument) {
            filling.add(paramGroupItem(rows));
            continue;
        }
        shown = values::displayValue(rows.optionalText(kValue), rows.text(kKeyType), rows.text(kPrec),
                                     rows.optionalText(kUnit), choice, shown);
        filling.add(parameterItem(rows, shown));
        if (readOnly.contains(rows.text(kIDPar)))
            filling.last().marks = kReadOnly;
    }
}

QString Structure::Search_ParamEnum(const QString& IDPar, const QString& Value)
{
    return guarded("Module/Search_ParamEnum", [&] { return choiceOf(IDPar, Value); });
}

QString Structure::choiceOf(const QString& IDPar, const QString& Value) const
{
    static const QString kStatement = QStringLiteral(
        R"(SELECT tbParamEnum.mID, tbParamEnum.mKeyParam, tbParamEnumLanguage.mDesc, tbParamEnum.mValue
           FROM tbParamEnum
                INNER JOIN tbParamEnumLanguage ON tbParamEnum.mID = tbParamEnumLanguage.mID
           WHERE ((tbParamEnum.mKeyParam = %1)
              AND (tbParamEnum.mValue = %2)
              AND (tbParamEnumLanguage.mKeyLang = %3));)");
    Recordset choices;
    choices.Open(kStatement.arg(Compose_SqlText(IDPar), QString::number(session::toInt16(Value)),
                                Compose_SqlText(session_.Language.Code)),
                 session_.cnDatabase);
    return choices.Eof() ? QString() : choices.text(QStringLiteral("mDesc"));
}

} // namespace structure
