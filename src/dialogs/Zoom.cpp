#include "dialogs/Zoom.h"

#include "dialogs/ZoomQuery.h"
#include "platform/Guard.h"
#include "platform/Operator.h"
#include "session/Session.h"

#include <QStringBuilder>

namespace dialogs {

namespace {

// These stand in English in every language.
const QString kFindPrompt = QStringLiteral("Input the string to search");
const QString kEndOfList = QStringLiteral("End of list. Do you want to repeat from the start?");
const QString kNotFound = QStringLiteral("No item found.");

constexpr int kNoRow = -1;

} // namespace

Zoom::Zoom(session::Session& session, platform::Operator& op) : session_(session), operator_(op) {}

QString Zoom::ShowZoom(const QString& Value)
{
    ZoomSet.Value = Value;
    ZoomSet.Result = Value;
    if (Value.endsWith(u'*') || Value.endsWith(u'@'))
        operator_.showFormModal(QStringLiteral("frmZoom"));
    return ZoomSet.Result;
}

void Zoom::Load()
{
    ZoomSet.Result.clear();
    sought_.clear();
    Refresh();
}

void Zoom::Refresh()
{
    platform::guarded("frmZoom/Load_Items", [&] {
        const platform::BusyPointer busy(operator_);
        list_.clear();
        rowsText_.clear();
        platform::Connection connection;
        connection.Open(ZoomSet.Connection);
        platform::Recordset records;
        records.Open(zoomQuery(ZoomSet), connection);
        if (!records.Eof())
            fillFrom(records);
    });
    emit filled();
}

void Zoom::fillFrom(platform::Recordset& records)
{
    const QStringList columns = records.fieldNames();
    const int count = records.RecordCount();
    std::vector<QStringList> rows;
    rows.reserve(count);
    for (int percent = 0; !records.Eof(); records.MoveNext()) {
        QStringList row;
        for (int column = 0; column < columns.size(); ++column)
            row << records.field(column).toString(); // NULL is empty
        rows.push_back(std::move(row));
        const int reached = int(rows.size() * 100 / count);
        if (reached != std::exchange(percent, reached))
            emit progress(reached);
    }
    list_.setRows(columns, std::move(rows));
    rowsText_ = u"# " % QString::number(count);
}

bool Zoom::pick(int row)
{
    if (row < 0 || row >= list_.rowCount())
        return false;
    ZoomSet.Result = list_.keyAt(row);
    return true;
}

// Finding
// -----------------------------------------------------------------------------------------------------------

int Zoom::Find(int selectedRow)
{
    const auto typed = operator_.inputBox(kFindPrompt, session_.AppTitle % u" Find");
    if (!typed || typed->isEmpty())
        return kNoRow;
    sought_ = *typed;
    return search(selectedRow);
}

int Zoom::FindAgain(int selectedRow)
{
    return sought_.isEmpty() ? Find(selectedRow) : search(selectedRow);
}

int Zoom::search(int selectedRow)
{
    const int first = selectedRow + 1;
    if (const int found = list_.find(sought_, first, list_.rowCount()); found != kNoRow)
        return found;
    const bool rowsSkipped = first > 0;
    if (rowsSkipped) {
        const int answer = operator_.messageBox(kEndOfList, platform::Buttons::YesNo,
                                                platform::Icon::Question, session_.AppTitle);
        if (answer != platform::answers::kYes)
            return kNoRow;
        if (const int found = list_.find(sought_, 0, first); found != kNoRow)
            return found;
    }
    operator_.messageBox(kNotFound, platform::Buttons::Ok, platform::Icon::Information, session_.AppTitle);
    return kNoRow;
}

} // namespace dialogs
