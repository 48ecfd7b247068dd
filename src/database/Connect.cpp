#include "database/Database.h"

#include "platform/Guard.h"
#include "platform/Operator.h"
#include "session/Caption.h"
#include "session/Helpers.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/ParamGroupNodes.h"
#include "structure/Structure.h"

#include <QStringBuilder>

namespace database {

using platform::guarded;
using platform::Recordset;
using session::Compose_SqlText;

namespace {

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

// In the order in which they are closed: the five for looking up, the one for work.
std::array<Recordset*, 6> recordsetsOf(session::Session& session)
{
    return {&session.rsInstrument, &session.rsParam, &session.rsParamEnum,
            &session.rsInstMem,    &session.rsUsers, &session.rsWork};
}

void closeAll(session::Session& session)
{
    for (Recordset* records : recordsetsOf(session)) {
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
    session_.strSQL.clear();
    closeAll(session_);
    structure_.showRootOnly();
    session_.CompanySet.fill(QString());
}

void Database::openCatalogue()
{
    const QString language = Compose_SqlText(session_.Language.Code);
    const auto open = [&](int percent, Recordset& records, const QString& sql) {
        emit progress(percent);
        session_.strSQL = sql;
        records.Open(session_.strSQL, session_.cnDatabase);
    };
    open(22, session_.rsInstrument, QStringLiteral("SELECT * FROM tbInstrument ORDER BY mID"));
    open(33, session_.rsParam,
         u"SELECT tbParam.*, tbParamType.mTag AS KeyType, tbParamLanguage.mDesc AS Des "
         u"FROM (tbParamType INNER JOIN tbParam ON tbParamType.mID = tbParam.mKeyType) "
         u"INNER JOIN tbParamLanguage ON tbParam.mID = tbParamLanguage.mID "
         u"WHERE (tbParamLanguage.mKeyLang = " %
             language % u") ORDER BY tbParam.mID;");
    open(44, session_.rsParamEnum,
         u"SELECT tbParamEnum.mID, tbParamEnum.mKeyParam, tbParamEnumLanguage.mDesc, tbParamEnum.mValue "
         u"FROM tbParamEnum INNER JOIN tbParamEnumLanguage ON tbParamEnum.mID = tbParamEnumLanguage.mID "
         u"WHERE (tbParamEnumLanguage.mKeyLang = " %
             language % u") ORDER BY tbParamEnum.mID;");
    open(55, session_.rsInstMem, QStringLiteral("SELECT * FROM tbInstMem ORDER BY mID"));
    open(66, session_.rsUsers, QStringLiteral("SELECT * FROM tbUsers ORDER BY Name;"));
}

void Database::readCompany()
{
    // By CompanyField.
    static const QStringList kFields{"Company", "Address", "Postcode", "Locality", "Country",
                                     "Phone",   "Fax",     "EMail",    "WEB",      "VATNumber"};
    Recordset& rsWork = session_.rsWork;

    emit progress(77);
    session_.strSQL = QStringLiteral("SELECT * FROM tbCompanySettings");
    rsWork.Open(session_.strSQL, session_.cnDatabase);
    if (!rsWork.Eof()) {
        for (int field = 0; field < kFields.size(); ++field)
            session_.CompanySet[field] = session::Null_To_Value(rsWork[kFields[field]]);
    } else {
        session_.strSQL =
            QStringLiteral("INSERT INTO tbCompanySettings (Company, Address, Postcode, Locality, "
                           "Country, Phone, Fax, EMail, WEB, VATNumber) VALUES(Null, Null, Null, "
                           "Null, Null, Null, Null, Null, Null, Null);");
        session_.cnDatabase.Execute(session_.strSQL);
    }
    rsWork.Close();

    emit progress(88);
    session_.strSQL = QStringLiteral("SELECT * FROM tbInfoDatabase");
    rsWork.Open(session_.strSQL, session_.cnDatabase);
    if (!rsWork.Eof())
        session_.DbVersion = rsWork.text("Version");
    rsWork.Close();
}

void Database::fillTree()
{
    const TreeFilling filling(structure_);
    const QString grp = QStringLiteral("IDGrp"), inst = QStringLiteral("IDInst"),
                  name = QStringLiteral("Name");
    const QString parGrp = QStringLiteral("IDParGrp");
    const QString none;
    Recordset& rsWork = session_.rsWork;

    session_.strSQL = QStringLiteral("SELECT * FROM tbGroupsUser ORDER BY Name;");
    for (rsWork.Open(session_.strSQL, session_.cnDatabase); !rsWork.Eof(); rsWork.MoveNext())
        structure_.Add_Node_TreeBus(structure::kGroup, rsWork.text(grp), none, none, rsWork.text(name));
    rsWork.Close();

    session_.strSQL = QStringLiteral("SELECT * FROM tbInstrumentsUser ORDER BY Name;");
    for (rsWork.Open(session_.strSQL, session_.cnDatabase); !rsWork.Eof(); rsWork.MoveNext())
        structure_.Add_Node_TreeBus(structure::kInstrument, rsWork.text(grp), rsWork.text(inst), none,
                                    rsWork.text(name));
    rsWork.Close();

    session_.strSQL = structure::paramGroupsStatement({}, session_.Language.Code);
    for (rsWork.Open(session_.strSQL, session_.cnDatabase); !rsWork.Eof(); rsWork.MoveNext())
        structure_.Add_Node_TreeBus(structure::kParamGroup, rsWork.text(grp), rsWork.text(inst),
                                    rsWork.text(parGrp), rsWork.text(name));
    rsWork.Close();
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
