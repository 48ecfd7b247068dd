#include "database/Database.h"

#include "platform/Guard.h"
#include "platform/Operator.h"
#include "session/Caption.h"
#include "session/Helpers.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/ParamGroupNodes.h"
#include "structure/Structure.h"

namespace database {

using platform::guarded;
using platform::Recordset;
using session::Compose_SqlText;

namespace {

// %1 is the language.
const QString kParameters = QStringLiteral(
    R"(SELECT tbParam.*, tbParamType.mTag AS KeyType, tbParamLanguage.mDesc AS Des
       FROM (tbParamType
             INNER JOIN tbParam ON tbParamType.mID = tbParam.mKeyType)
             INNER JOIN tbParamLanguage ON tbParam.mID = tbParamLanguage.mID
       WHERE (tbParamLanguage.mKeyLang = %1)
       ORDER BY tbParam.mID;)");

const QString kChoices = QStringLiteral(
    R"(SELECT tbParamEnum.mID, tbParamEnum.mKeyParam, tbParamEnumLanguage.mDesc, tbParamEnum.mValue
       FROM tbParamEnum
            INNER JOIN tbParamEnumLanguage ON tbParamEnum.mID = tbParamEnumLanguage.mID
       WHERE (tbParamEnumLanguage.mKeyLang = %1)
       ORDER BY tbParamEnum.mID;)");

const QString kNoSettings = QStringLiteral(
    R"(INSERT INTO tbCompanySettings (Company, Address, Postcode, Locality, Country,
                                      Phone, Fax, EMail, WEB, VATNumber)
       VALUES (Null, Null, Null, Null, Null, Null, Null, Null, Null, Null);)");

// The window that shows how far a connect is; it goes on every way out.
class ConnectionWindow
{
public:
    explicit ConnectionWindow(platform::Operator& op) : operator_(op)
    {
        operator_.showForm(kName);
        operator_.repaint();
    }
    ~ConnectionWindow() { operator_.unloadForm(kName); }
    ConnectionWindow(const ConnectionWindow&) = delete;
    ConnectionWindow& operator=(const ConnectionWindow&) = delete;

private:
    inline static const QString kName = QStringLiteral("frmConnection");
    platform::Operator& operator_;
};

// Brings what is added to the tree to the views at once, on every way out.
class TreeFilling
{
public:
    explicit TreeFilling(structure::Structure& structure) : structure_(structure)
    {
        structure_.beginFilling();
    }
    ~TreeFilling() { structure_.endFilling(); }
    TreeFilling(const TreeFilling&) = delete;
    TreeFilling& operator=(const TreeFilling&) = delete;

private:
    structure::Structure& structure_;
};

void enablePlantWindows(platform::Operator& op, bool enabled)
{
    op.enableForm(QStringLiteral("frmTreeBus"), enabled);
    op.enableForm(QStringLiteral("frmListBus"), enabled);
}

// The five for looking up, in the order in which they are closed.
std::array<Recordset*, 5> lookUpsOf(session::Session& session)
{
    return {&session.rsInstrument, &session.rsParam, &session.rsParamEnum, &session.rsInstMem,
            &session.rsUsers};
}

void closeAll(session::Session& session)
{
    for (Recordset* records : lookUpsOf(session)) {
        if (records->State() == Recordset::Opened)
            records->Close();
    }
    if (session.cnDatabase.State() == platform::Connection::Opened)
        session.cnDatabase.Close();
}

} // namespace

bool Database::Connect_Database(const QString& path)
{
    return guarded("Module/Connect_Database", [&] {
        const platform::BusyPointer busy(operator_);
        const ConnectionWindow window(operator_);
        makeReady();
        emit progress(11);
        session_.ConnectionString = path;
        session_.cnDatabase.Open(session_.ConnectionString);
        openCatalogue();
        readCompany();
        emit progress(100);
        fillTree();
        structure_.selectNode(structure::kRootKey);
        emit captionChanged(session::mainCaption(session_, texts_));
        emit opened();
        return true;
    });
}

void Database::makeReady()
{
    enablePlantWindows(operator_, true);
    session_.ClipOperation = 0;
    session_.ClipKey.clear();
    closeAll(session_);
    structure_.showRootOnly();
    session_.CompanySet.fill(QString());
}

void Database::openCatalogue()
{
    const QString language = Compose_SqlText(session_.Language.Code);
    const auto open = [&](int percent, Recordset& records, const QString& sql) {
        emit progress(percent);
        records.Open(sql, session_.cnDatabase);
    };
    open(22, session_.rsInstrument, QStringLiteral("SELECT * FROM tbInstrument ORDER BY mID"));
    open(33, session_.rsParam, kParameters.arg(language));
    open(44, session_.rsParamEnum, kChoices.arg(language));
    open(55, session_.rsInstMem, QStringLiteral("SELECT * FROM tbInstMem ORDER BY mID"));
    open(66, session_.rsUsers, QStringLiteral("SELECT * FROM tbUsers ORDER BY Name;"));
}

void Database::readCompany()
{
    // By CompanyField.
    static const QStringList kFields{"Company", "Address", "Postcode", "Locality", "Country",
                                     "Phone",   "Fax",     "EMail",    "WEB",      "VATNumber"};

    emit progress(77);
    Recordset settings;
    settings.Open(QStringLiteral("SELECT * FROM tbCompanySettings"), session_.cnDatabase);
    if (settings.Eof())
        session_.cnDatabase.Execute(kNoSettings);
    else
        for (int field = 0; field < kFields.size(); ++field)
            session_.CompanySet[field] = session::Null_To_Value(settings[kFields[field]]);

    emit progress(88);
    Recordset info;
    info.Open(QStringLiteral("SELECT * FROM tbInfoDatabase"), session_.cnDatabase);
    if (!info.Eof())
        session_.DbVersion = info.text("Version");
}

void Database::fillTree()
{
    const TreeFilling filling(structure_);
    const QString grp = QStringLiteral("IDGrp"), inst = QStringLiteral("IDInst"),
                  name = QStringLiteral("Name");
    const QString parGrp = QStringLiteral("IDParGrp");
    const QString none;
    const auto eachOf = [this](const QString& sql, const auto& addNode) {
        Recordset records;
        for (records.Open(sql, session_.cnDatabase); !records.Eof(); records.MoveNext())
            addNode(records);
    };

    eachOf(QStringLiteral("SELECT * FROM tbGroupsUser ORDER BY Name;"), [&](const Recordset& row) {
        structure_.Add_Node_TreeBus(structure::kGroup, row.text(grp), none, none, row.text(name));
    });
    eachOf(QStringLiteral("SELECT * FROM tbInstrumentsUser ORDER BY Name;"), [&](const Recordset& row) {
        structure_.Add_Node_TreeBus(structure::kInstrument, row.text(grp), row.text(inst), none,
                                    row.text(name));
    });
    eachOf(structure::paramGroupsStatement({}, session_.Language.Code), [&](const Recordset& row) {
        structure_.Add_Node_TreeBus(structure::kParamGroup, row.text(grp), row.text(inst), row.text(parGrp),
                                    row.text(name));
    });
}

void Database::Disconnect_Database()
{
    guarded("Module/Disconnect_Database", [&] {
        if (session_.DbName.isEmpty())
            return;
        emit aboutToDisconnect();
        clearPlant();
        closeAll(session_);
        session_.DbName.clear();
        session_.DbVersion.clear();
        emit captionChanged(session::mainCaption(session_, texts_));
    });
}

void Database::clearPlant()
{
    structure_.clearAll();
    enablePlantWindows(operator_, false);
}

bool Database::reconnect()
{
    if (!Connect_Database(session_.dbFile())) {
        // Without a name a disconnect has nothing to do; what the connect had shown goes all the same.
        if (session_.DbName.isEmpty())
            clearPlant();
        Disconnect_Database();
        emit connectionLost();
        return false;
    }
    emit reconnected();
    return true;
}

} // namespace database
