#include "property/PropertyCopy.h"

#include "platform/Connection.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "platform/Recordset.h"
#include "property/PropertyModel.h"
#include "session/Helpers.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"
#include "structure/Structure.h"
#include "values/ValueCause.h"

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

const QString kIDCopy = QStringLiteral("mIDCopy");
const QString kValue = QStringLiteral("Value");

// What was copied before a failure stays copied.
void keepWhatRan(platform::Transaction& transaction)
{
    try {
        transaction.commit();
    } catch (const platform::RuntimeError&) {
        // The first failure is the one to be told; with this one nothing is half copied.
    }
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
    written_ = 0;
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

QString PropertyCopy::sourceId() const
{
    static const QString kStatement = QStringLiteral(
        R"(SELECT tbParam.mIDCopy
           FROM tbParametersUser
                INNER JOIN tbParam ON tbParametersUser.IDPar = tbParam.mID
           WHERE ((tbParametersUser.IDGrp = %1)
              AND (tbParametersUser.IDInst = %2)
              AND (tbParametersUser.IDPar = %3));)");
    Recordset row;
    row.Open(kStatement.arg(property_.IDGrp(), property_.IDInst(), Compose_SqlText(property_.IDPar())),
             session_.cnDatabase);
    return row.Eof() ? QString() : row.text(kIDCopy);
}

QString PropertyCopy::blocksSql() const
{
    static const QString kStatement = QStringLiteral(
        R"(SELECT Mid(tbParam.mIDCopy,4,2) AS IDLev2, tbParamCopyLanguage.mDesc
           FROM tbParamCopyLanguage
                INNER JOIN (tbParametersUser
                            INNER JOIN tbParam ON tbParametersUser.IDPar = tbParam.mID)
                ON tbParamCopyLanguage.mID = tbParam.mIDCopy
           WHERE ((tbParametersUser.IDGrp = %1)
              AND (tbParametersUser.IDInst = %2)
              AND (Mid(tbParam.mIDCopy,1,2) = %3)
              AND (Mid(tbParam.mIDCopy,1,5) <> %4)
              AND (tbParamCopyLanguage.mKeyLang = %5))
           GROUP BY Mid(tbParam.mIDCopy,4,2), tbParamCopyLanguage.mDesc
           ORDER BY Mid(tbParam.mIDCopy,4,2);)");
    return kStatement.arg(property_.IDGrp(), property_.IDInst(), Compose_SqlText(familyOf(IDCopy_)),
                          Compose_SqlText(blockOf(IDCopy_)), Compose_SqlText(session_.Language.Code));
}

void PropertyCopy::Load_Items()
{
    guarded("frmPropertyCopy/Load_Items", [&] {
        const platform::BusyPointer busy(operator_);
        beginResetModel();
        blocks_.clear();
        endResetModel();
        IDCopy_ = sourceId();
        Recordset rows;
        rows.Open(blocksSql(), session_.cnDatabase);
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
        // The list follows on every way out, when the copy is through.
        struct ListFollows
        {
            structure::Structure& structure;
            ~ListFollows() { structure.reloadList(); }
        } follows{structure_};
        const platform::BusyPointer busy(operator_);
        const values::Causing causing(session_.cnDatabase, values::ValueCause::Copied);
        keepEqual();
        platform::Transaction transaction(session_.cnDatabase);
        try {
            copyCheckedBlocks();
        } catch (const platform::RuntimeError&) {
            keepWhatRan(transaction);
            throw;
        }
        transaction.commit();
        emit copied();
    });
}

QString PropertyCopy::sourceName() const
{
    const QString block = IDCopy_.mid(3, 2);
    try {
        Recordset row;
        row.Open(
            QStringLiteral("SELECT mDesc FROM tbParamCopyLanguage WHERE ((mID = %1) AND (mKeyLang = %2));")
                .arg(Compose_SqlText(IDCopy_), Compose_SqlText(session_.Language.Code)),
            session_.cnDatabase);
        return row.Eof() ? block : QString(block % u' ' % row.text("mDesc"));
    } catch (const platform::RuntimeError&) {
        return block;
    }
}

// One block goes without a question.
bool PropertyCopy::mayCopy(int blocks)
{
    using namespace platform;
    if (blocks == 0) {
        operator_.messageBox(texts_(session::rows::kSelectRecords), Buttons::Ok, Icon::Exclamation,
                             session_.AppTitle);
        return false;
    }
    if (blocks == 1)
        return true;
    return operator_.messageBox(texts_(533) % u"\r\n" % texts_(534), Buttons::YesNo, Icon::Question,
                                session_.AppTitle) == answers::kYes;
}

void PropertyCopy::copyCheckedBlocks()
{
    static const QString kStatement = QStringLiteral(
        R"(SELECT tbParam.mIDCopy, tbParametersUser.[Value]
           FROM tbParametersUser
                INNER JOIN tbParam ON tbParametersUser.IDPar = tbParam.mID
           WHERE ((tbParametersUser.IDGrp = %1)
              AND (tbParametersUser.IDInst = %2)
              AND (Mid(tbParam.mIDCopy,1,5) = %3))
           ORDER BY tbParam.mIDCopy;)");
    Recordset source;
    source.Open(kStatement.arg(property_.IDGrp(), property_.IDInst(), Compose_SqlText(blockOf(IDCopy_))),
                session_.cnDatabase);
    Progress progress(*this, source.RecordCount());
    for (; !source.Eof(); source.MoveNext()) {
        for (const Block& block : blocks_) {
            if (block.checked)
                copyTo(inBlock(source.text(kIDCopy), block.id), source[kValue]);
        }
        progress.advance();
    }
}

// A target that the instrument lacks changes nothing, in silence.
// What stands as equal to the instrument can be taken back after the copy.
void PropertyCopy::keepEqual() const
{
    Recordset rows;
    rows.Open(QStringLiteral(R"(SELECT * FROM tbParametersUser
                                WHERE ((IDGrp = %1) AND (IDInst = %2) AND (State = 0));)")
                  .arg(property_.IDGrp(), property_.IDInst()),
              session_.cnDatabase);
    for (; !rows.Eof(); rows.MoveNext())
        structure_.memory().keepEqual({{}, rows.text("IDGrp"), rows.text("IDInst"), {}, rows.text("IDPar")},
                                      rows.text("Value"));
}

void PropertyCopy::copyTo(const QString& IDCopy, const QVariant& value)
{
    static const QString kStatement = QStringLiteral(
        R"(UPDATE tbParametersUser
           SET [Value] = %1, State = 1
           FROM tbParam
           WHERE ((tbParametersUser.IDPar = tbParam.mID)
              AND (tbParametersUser.IDGrp = %2)
              AND (tbParametersUser.IDInst = %3)
              AND (tbParam.mIDCopy = %4));)");
    written_ += session_.cnDatabase.Execute(kStatement.arg(Compose_SqlText(value), property_.IDGrp(),
                                                           property_.IDInst(), Compose_SqlText(IDCopy)));
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
