#include "history/CompareModel.h"

#include "platform/CsvField.h"
#include "platform/PrintedPages.h"
#include "platform/Printer.h"
#include "session/Texts.h"

#include <QStringBuilder>
#include <algorithm>

namespace history {

using Outcome = ComparedValue::Outcome;

namespace {

constexpr int kRows = 45;
constexpr int kWidths[] = {40, 22, 22};
constexpr int kRuleWidth = 112;

const char* wordOf(Outcome outcome)
{
    switch (outcome) {
    case Outcome::Same:
        return "compare.same";
    case Outcome::Different:
        return "compare.different";
    case Outcome::OnlyLeft:
        return "compare.left";
    default:
        return "compare.right";
    }
}

QString printedRow(const QStringList& cells)
{
    QString line;
    for (qsizetype i = 0; i < qsizetype(std::size(kWidths)); ++i)
        line += cells[i].leftJustified(kWidths[i]) % u' ';
    return line % cells.last();
}

} // namespace

void CompareModel::setComparison(Comparison comparison)
{
    beginResetModel();
    comparison_ = std::move(comparison);
    narrow();
    endResetModel();
}

void CompareModel::setAll(bool all)
{
    beginResetModel();
    all_ = all;
    narrow();
    endResetModel();
}

void CompareModel::relabel()
{
    beginResetModel();
    endResetModel();
}

void CompareModel::narrow()
{
    shown_.clear();
    for (std::size_t place = 0; place < comparison_.groups.size(); ++place) {
        Group group{place, {}};
        const auto& values = comparison_.groups[place].values;
        for (std::size_t row = 0; row < values.size(); ++row) {
            if (all_ || values[row].outcome != Outcome::Same)
                group.rows.push_back(row);
        }
        if (!group.rows.empty())
            shown_.push_back(std::move(group));
    }
}

QString CompareModel::keyAt(const QModelIndex& index) const
{
    if (!index.isValid() || index.internalId() == 0)
        return {};
    const Group& group = shown_[index.internalId() - 1];
    return groupOf(group).values[group.rows[std::size_t(index.row())]].key;
}

QModelIndex CompareModel::indexOf(const QString& key) const
{
    for (std::size_t place = 0; place < shown_.size(); ++place) {
        const Group& group = shown_[place];
        for (std::size_t row = 0; row < group.rows.size(); ++row) {
            if (groupOf(group).values[group.rows[row]].key == key)
                return index(int(row), 0, index(int(place), 0));
        }
    }
    return {};
}

QString CompareModel::counts() const
{
    return texts_.own("compare.counts")
        .arg(comparison_.compared)
        .arg(comparison_.different)
        .arg(comparison_.onlyLeft)
        .arg(comparison_.onlyRight);
}

QStringList CompareModel::headings() const
{
    return {texts_.own("history.parameter"), comparison_.left,
            comparison_.right.isEmpty() ? texts_.own("compare.defaults") : comparison_.right,
            texts_.own("compare.what")};
}

// The id of a parameter's index tells its group, from 1; a group's is 0.
QModelIndex CompareModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return createIndex(row, column, parent.isValid() ? quintptr(parent.row()) + 1 : 0);
}

QModelIndex CompareModel::parent(const QModelIndex& child) const
{
    if (!child.isValid() || child.internalId() == 0)
        return {};
    return createIndex(int(child.internalId()) - 1, 0, quintptr(0));
}

int CompareModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return int(shown_.size());
    if (parent.internalId() != 0 || parent.column() != 0)
        return 0;
    return int(shown_[std::size_t(parent.row())].rows.size());
}

int CompareModel::columnCount(const QModelIndex&) const
{
    return kColumns;
}

QVariant CompareModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    if (index.internalId() == 0)
        return index.column() == 0 ? groupWords(shown_[std::size_t(index.row())]) : QVariant();
    const Group& group = shown_[index.internalId() - 1];
    return cell(groupOf(group).values[group.rows[std::size_t(index.row())]], index.column());
}

QVariant CompareModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractItemModel::headerData(section, orientation, role);
    return headings().value(section);
}

QString CompareModel::cell(const ComparedValue& value, int column) const
{
    switch (column) {
    case Parameter:
        return value.parameter;
    case Left:
        return value.left;
    case Right:
        return value.right;
    default:
        return texts_.own(wordOf(value.outcome));
    }
}

// "INST11\States: 3 of 20 differ"
QString CompareModel::groupWords(const Group& group) const
{
    const ComparedGroup& whole = groupOf(group);
    const auto differing = std::count_if(whole.values.begin(), whole.values.end(),
                                         [](const ComparedValue& v) { return v.outcome != Outcome::Same; });
    return texts_.own("compare.group").arg(whole.place).arg(differing).arg(whole.values.size());
}

QList<QByteArray> CompareModel::lines() const
{
    QList<QByteArray> lines{platform::csvLine(QStringList{texts_.own("history.place")} + headings())};
    for (const Group& group : shown_) {
        for (const std::size_t row : group.rows) {
            QStringList cells{groupOf(group).place};
            for (int column = 0; column < kColumns; ++column)
                cells << cell(groupOf(group).values[row], column);
            lines << platform::csvLine(cells);
        }
    }
    return lines;
}

QStringList CompareModel::printedRows() const
{
    QStringList rows;
    for (const Group& group : shown_) {
        rows << groupWords(group);
        for (const std::size_t place : group.rows) {
            QStringList cells;
            for (int column = 0; column < kColumns; ++column)
                cells << cell(groupOf(group).values[place], column);
            rows << u"  " % printedRow(cells);
        }
    }
    return rows;
}

// What is listed may become another comparison while the pages are made.
void CompareModel::print(platform::Printer& printer, const QString& title) const
{
    printer.setFont(QStringLiteral("Courier New"));
    platform::PrintedPages::Look look;
    look.rows = kRows;
    platform::PrintedPages pages(printer, look);
    const QStringList head{title, counts(), QString(kRuleWidth, u'-')};
    const QString columns = printedRow(headings());
    for (const QString& row : printedRows()) {
        if (pages.isFull() || !pages.hasRoomFor({row})) {
            pages.beginPage(head);
            pages.rule(columns);
        }
        pages.row(row);
    }
    pages.finish();
}

} // namespace history
