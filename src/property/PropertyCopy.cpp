#include "property/PropertyCopy.h"

#include "platform/Guard.h"
#include "platform/Operator.h"
#include "platform/Recordset.h"
#include "property/PropertyModel.h"
#include "session/Helpers.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/Structure.h"

#include <QStringBuilder>
#include <algorithm>

namespace property {

using platform::guarded;
using platform::Recordset;
using session::Compose_SqlText;

namespace {

// The three parts of a copy id of eight characters: family and separator, block, place in the block.
QString familyOf(const QString& id)
{
    return id.left(2);
}
QString blockOf(const QString& id)
{
    return id.left(5);
}
QString inBlock(const QString& id, const QString& block)
{
    return id.left(3) % block % id.mid(5, 3);
}

// prgLoad over one job; it is full, and hidden, on every way out.
class Progress
{
public:
    Progress(PropertyCopy& copy, int total) : copy_(copy), total_(total) { emit copy_.progress(0, total_); }
    ~Progress() { emit copy_.progress(total_, total_); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void advance() { emit copy_.progress(++done_, total_); }

private:
    PropertyCopy& copy_;
    int total_;
    int done_ = 0;
};

} // namespace

PropertyCopy::PropertyCopy(session::Session& session, const session::Texts& texts, platform::Operator& op,
                           structure::Structure& structure, const PropertyModel& property)
    : session_(session), texts_(texts), operator_(op), structure_(structure), property_(property)
{
}

void PropertyCopy::load()
{
    Load_Items();
}

void PropertyCopy::unload()
{
    guarded("frmReadWrite.Form_Unload", [&] {
        beginResetModel();
        blocks_.clear();
        endResetModel();
    });
}

QString PropertyCopy::ofInstrument() const
{
    return u"WHERE ((tbParametersUser.IDGrp = " % property_.IDGrp() % u") AND (tbParametersUser.IDInst = " %
           property_.IDInst() % u") AND ";
}

QString PropertyCopy::sourceId() const
{
    session_.strSQL = u"SELECT tbParam.mIDCopy FROM tbParametersUser INNER JOIN tbParam "
                      u"ON tbParametersUser.IDPar = tbParam.mID " %
                      ofInstrument() % u"(tbParametersUser.IDPar = " % Compose_SqlText(property_.IDPar()) %
                      u"));";
    Recordset row;
    row.Open(session_.strSQL, session_.cnDatabase);
    return row.Eof() ? QString() : row.text(QStringLiteral("mIDCopy"));
}

void PropertyCopy::Load_Items()
{
    guarded("frmPropertyCopy/Load_Items", [&] {
        const platform::BusyPointer busy(operator_);
        beginResetModel();
        blocks_.clear();
        endResetModel();
        IDCopy_ = sourceId();
        session_.strSQL =
            u"SELECT Mid(tbParam.mIDCopy,4,2) AS IDLev2, tbParamCopyLanguage.mDesc "
            u"FROM tbParamCopyLanguage INNER JOIN (tbParametersUser INNER JOIN tbParam "
            u"ON tbParametersUser.IDPar = tbParam.mID) ON tbParamCopyLanguage.mID = tbParam.mIDCopy " %
            ofInstrument() % u"(Mid(tbParam.mIDCopy,1,2) = " % Compose_SqlText(familyOf(IDCopy_)) %
            u") AND (Mid(tbParam.mIDCopy,1,5) <> " % Compose_SqlText(blockOf(IDCopy_)) %
            u") AND (tbParamCopyLanguage.mKeyLang = " % Compose_SqlText(session_.Language.Code) %
            u")) GROUP BY Mid(tbParam.mIDCopy,4,2), tbParamCopyLanguage.mDesc "
            u"ORDER BY Mid(tbParam.mIDCopy,4,2);";
        Recordset rows;
        rows.Open(session_.strSQL, session_.cnDatabase);
        Progress progress(*this, rows.RecordCount());
        for (; !rows.Eof(); rows.MoveNext()) {
            beginInsertRows({}, int(blocks_.size()), int(blocks_.size()));
            blocks_.push_back({rows.text(QStringLiteral("IDLev2")), rows.text(QStringLiteral("mDesc"))});
            endInsertRows();
            progress.advance();
        }
    });
}

void PropertyCopy::Check_List()
{
    guarded("frmPropertyCopy/Check_List", [&] { checkAll(true); });
}

void PropertyCopy::UnCheck_List()
{
    guarded("frmPropertyCopy/UnCheck_List", [&] { checkAll(false); });
}

void PropertyCopy::checkAll(bool checked)
{
    for (Block& block : blocks_)
        block.checked = checked;
    if (!blocks_.empty())
        emit dataChanged(index(0, 0), index(int(blocks_.size()) - 1, 0));
}

int PropertyCopy::checkedCount() const
{
    return int(
        std::count_if(blocks_.begin(), blocks_.end(), [](const Block& block) { return block.checked; }));
}

void PropertyCopy::Copy_Value()
{
    guarded("frmPropertyCopy/Copy_Value", [&] {
        if (!mayCopy(checkedCount()))
            return;
        // What was copied before a failure stays copied, so the list follows on every way out.
        struct ListFollows
        {
            structure::Structure& structure;
            ~ListFollows() { structure.reloadList(); }
        } follows{structure_};
        const platform::BusyPointer busy(operator_);
        copyCheckedBlocks();
    });
}

// One block goes without a question.
bool PropertyCopy::mayCopy(int blocks)
{
    using namespace platform;
    if (blocks == 0) {
        session_.strMsg = texts_(532);
        operator_.messageBox(session_.strMsg, Buttons::Ok, Icon::Exclamation, session_.AppTitle);
        return false;
    }
    if (blocks == 1)
        return true;
    session_.strMsg = texts_(533) % u"\r\n" % texts_(534);
    session_.Answer =
        operator_.messageBox(session_.strMsg, Buttons::YesNo, Icon::Question, session_.AppTitle);
    return session_.Answer == answers::kYes;
}

void PropertyCopy::copyCheckedBlocks()
{
    static const QString kIDCopy = QStringLiteral("mIDCopy");
    static const QString kValue = QStringLiteral("Value");
    session_.strSQL = u"SELECT tbParam.mIDCopy, tbParametersUser.[Value] "
                      u"FROM tbParametersUser INNER JOIN tbParam ON tbParametersUser.IDPar = tbParam.mID " %
                      ofInstrument() % u"(Mid(tbParam.mIDCopy,1,5) = " % Compose_SqlText(blockOf(IDCopy_)) %
                      u")) ORDER BY tbParam.mIDCopy";
    Recordset source;
    source.Open(session_.strSQL, session_.cnDatabase);
    Progress progress(*this, source.RecordCount());
    for (; !source.Eof(); source.MoveNext()) {
        for (const Block& block : blocks_) {
            if (!block.checked)
                continue;
            session_.strSQL = u"UPDATE tbParametersUser SET [Value] = " % Compose_SqlText(source[kValue]) %
                              u", State = 1 FROM tbParam " % ofInstrument() %
                              u"(tbParametersUser.IDPar = tbParam.mID) AND (tbParam.mIDCopy = " %
                              Compose_SqlText(inBlock(source.text(kIDCopy), block.id)) % u"));";
            session_.cnDatabase.Execute(session_.strSQL);
        }
        progress.advance();
    }
}

// lvwItems
// --------------------------------------------------------------------------------------------------------

int PropertyCopy::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(blocks_.size());
}

int PropertyCopy::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant PropertyCopy::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const Block& block = blocks_[std::size_t(index.row())];
    if (role == Qt::DisplayRole)
        return index.column() == 0 ? block.id : block.description;
    if (role == Qt::CheckStateRole && index.column() == 0)
        return block.checked ? Qt::Checked : Qt::Unchecked;
    return {};
}

bool PropertyCopy::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || index.column() != 0 || role != Qt::CheckStateRole)
        return false;
    blocks_[std::size_t(index.row())].checked = value.toInt() == Qt::Checked;
    emit dataChanged(index, index);
    return true;
}

Qt::ItemFlags PropertyCopy::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.isValid() && index.column() == 0 ? flags | Qt::ItemIsUserCheckable : flags;
}

QVariant PropertyCopy::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section > 1)
        return {};
    return texts_(section == 0 ? 101 : 103);
}

} // namespace property
