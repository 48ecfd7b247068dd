#include "history/HistoryModel.h"

#include "platform/CsvField.h"
#include "session/Texts.h"

#include <QDateTime>
#include <QStringBuilder>
#include <algorithm>

namespace history {

using platform::csvLine;

namespace {

const char* const kHeadings[HistoryModel::kColumns] = {
    "history.time", "history.place", "history.parameter", "history.old",
    "history.new",  "history.mark",  "history.cause",     "history.operator"};

const char* markOf(const std::optional<int>& state)
{
    if (!state)
        return "history.mark.none";
    switch (*state) {
    case 0:
        return "history.mark.equal";
    case 1:
        return "history.mark.changed";
    default:
        return "history.mark.added";
    }
}

} // namespace

QString markWords(const ShownNote& note, const session::Texts& texts)
{
    const QString now = texts.own(markOf(note.newState));
    if (note.oldState == note.newState)
        return now;
    return texts.own(markOf(note.oldState)) % u" \u2192 " % now;
}

QString causeWords(values::ValueCause cause, const session::Texts& texts)
{
    static const std::map<values::ValueCause, const char*> kWords{
        {values::ValueCause::Read, "history.cause.read"},
        {values::ValueCause::Edited, "history.cause.edited"},
        {values::ValueCause::Copied, "history.cause.copied"},
        {values::ValueCause::Pasted, "history.cause.pasted"},
        {values::ValueCause::Imported, "history.cause.imported"},
        {values::ValueCause::Synchronised, "history.cause.synchronised"},
        {values::ValueCause::Reset, "history.cause.reset"},
        {values::ValueCause::CheckedOk, "history.cause.ok"},
        {values::ValueCause::CheckedError, "history.cause.error"},
        {values::ValueCause::Cleared, "history.cause.cleared"},
        {values::ValueCause::Created, "history.cause.created"},
        {values::ValueCause::Deleted, "history.cause.deleted"},
    };
    const auto words = kWords.find(cause);
    return texts.own(words == kWords.end() ? "history.cause.unknown" : words->second);
}

QString timeWords(qint64 time)
{
    return QDateTime::fromMSecsSinceEpoch(time).toString("dd/MM/yyyy HH:mm:ss");
}

void HistoryModel::setNotes(std::vector<ShownNote> notes)
{
    beginResetModel();
    notes_ = std::move(notes);
    narrow();
    endResetModel();
}

void HistoryModel::setFilter(const QString& text)
{
    if (text == filter_)
        return;
    beginResetModel();
    filter_ = text;
    narrow();
    endResetModel();
}

void HistoryModel::narrow()
{
    shown_.clear();
    for (int i = 0; i < int(notes_.size()); ++i) {
        bool passes = filter_.isEmpty();
        for (int column = 0; !passes && column < kColumns; ++column)
            passes = cell(notes_[std::size_t(i)], column).contains(filter_, Qt::CaseInsensitive);
        if (passes)
            shown_.push_back(i);
    }
}

void HistoryModel::relabel()
{
    emit headerDataChanged(Qt::Horizontal, 0, kColumns - 1);
    setNotes(std::move(notes_)); // a filter speaks the language, too
}

const ShownNote* HistoryModel::noteAt(int row) const
{
    return row < 0 || row >= int(shown_.size()) ? nullptr : &notes_[std::size_t(shown_[std::size_t(row)])];
}

int HistoryModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(shown_.size());
}

int HistoryModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kColumns;
}

QVariant HistoryModel::data(const QModelIndex& index, int role) const
{
    const ShownNote* note = index.isValid() ? noteAt(index.row()) : nullptr;
    if (!note || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    return cell(*note, index.column());
}

QVariant HistoryModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    return texts_.own(kHeadings[section]);
}

QString HistoryModel::cell(const ShownNote& note, int column) const
{
    switch (column) {
    case Time:
        return timeWords(note.time);
    case Place:
        return note.place;
    case Parameter:
        return note.parameter;
    case Old:
        return note.oldShown;
    case New:
        return note.newShown;
    case Mark:
        return markWords(note, texts_);
    case Cause:
        return causeWords(note.cause, texts_);
    default:
        return note.operatorName;
    }
}

QList<QByteArray> HistoryModel::lines() const
{
    QStringList head;
    for (const char* heading : kHeadings)
        head << texts_.own(heading);
    QList<QByteArray> lines{csvLine(head)};
    for (const int place : shown_) {
        const ShownNote& note = notes_[std::size_t(place)];
        QStringList cells{QDateTime::fromMSecsSinceEpoch(note.time).toString("yyyy-MM-dd HH:mm:ss")};
        for (int column = Place; column < kColumns; ++column)
            cells << cell(note, column);
        lines << csvLine(cells);
    }
    return lines;
}

} // namespace history
