#include "exchange/ReportLines.h"

#include "exchange/Fields.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"

namespace exchange {

namespace {

// Of a column whose values are all different no more are kept than these.
constexpr qsizetype kMostKept = 20000;

QString stateWord(const session::Texts& texts, int state)
{
    switch (state) {
    case 0:
        return texts.own("export.state.read");
    case 1:
        return texts.own("export.state.changed");
    default:
        return texts.own("export.state.added");
    }
}

} // namespace

ReportLines::ReportLines(const session::Session& session, const session::Texts& texts, ReportForm form,
                         const QString& time)
    : form_(form), codePage_(session.CodePage), shown_(session),
      keyTitle_('[' + texts(session::rows::kId) + ']')
{
    addColumns(texts);
    if (form == ReportForm::Spreadsheet)
        addSpreadsheetColumns(texts, time);
}

void ReportLines::addColumns(const session::Texts& texts)
{
    add(texts(session::rows::kName) + ' ' + texts(session::rows::kEquipment), 50, ReportRow::GrpName);
    add(texts(session::rows::kDescription) + ' ' + texts(session::rows::kEquipment), 255, ReportRow::GrpDes);
    add(texts(session::rows::kPhone), 30, ReportRow::Phone);
    add(texts(session::rows::kName) + ' ' + texts(session::rows::kInstrument), 50, ReportRow::InstName);
    add(texts(session::rows::kDescription) + ' ' + texts(session::rows::kInstrument), 255,
        ReportRow::InstDes);
    add(texts(session::rows::kInstrument), 16, ReportRow::IDItem);
    add(texts(session::rows::kAddress), 16, ReportRow::Address);
    add(texts(session::rows::kDescription), 255, ReportRow::ParGrpDes);
    add(texts(145), 255, ReportRow::ParDes);
    columns_.push_back({texts(session::rows::kValue),
                        255,
                        {ReportRow::IDPar, ReportRow::Value},
                        [this](const ReportRow& row) {
                            return form_ == ReportForm::Text ? shown_.of(row) : shown_.ofForCommas(row);
                        }});
}

void ReportLines::addSpreadsheetColumns(const session::Texts& texts, const QString& time)
{
    add(texts.own("export.unit"), 0, ReportRow::UM);
    add(texts.own("export.raw"), 0, ReportRow::Value);
    columns_.push_back({texts.own("export.state"), 0, {ReportRow::State}, [&texts](const ReportRow& row) {
                            return stateWord(texts, row.number(ReportRow::State));
                        }});
    columns_.push_back({texts.own("export.time"), 0, {}, [time](const ReportRow&) { return time; }});
}

void ReportLines::add(const QString& title, int width, ReportRow::Column source)
{
    columns_.push_back({title, width, {source}, [source](const ReportRow& row) { return row.text(source); }});
}

QByteArray ReportLines::title() const
{
    QByteArray line = hasKey() ? field(keyTitle_, 0) : QByteArray();
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (i > 0 || hasKey())
            line += hasKey() ? ',' : ' ';
        line += field(columns_[i].title, columns_[i].width);
    }
    return line + kLineEnd;
}

const QByteArray& ReportLines::line(const ReportRow& row)
{
    line_.resize(0);
    if (hasKey()) {
        const QByteArray IDPar = QByteArray(row.bytes(ReportRow::IDPar).toByteArray()).replace('.', '_');
        line_ += field(QString::number(row.number(ReportRow::IDGrp)) + '_' +
                           QString::number(row.number(ReportRow::IDInst)) + '_' + QString::fromUtf8(IDPar),
                       0);
    }
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (i > 0 || hasKey())
            line_ += hasKey() ? ',' : ' ';
        line_ += fieldOf(columns_[i], row);
    }
    return line_ += kLineEnd;
}

QByteArray ReportLines::field(const QString& text, int width) const
{
    switch (form_) {
    case ReportForm::Text:
        return fixedField(text, width, codePage_);
    case ReportForm::Comma:
        return trimmedField(text, codePage_);
    case ReportForm::Spreadsheet:
        break;
    }
    return quotedField(text);
}

// Most columns say the same from row to row: what was made once is used again.
const QByteArray& ReportLines::fieldOf(Column& column, const ReportRow& row)
{
    key_.resize(0);
    for (const ReportRow::Column source : column.sources) {
        const QByteArrayView bytes = row.bytes(source);
        key_.append(bytes.data(), bytes.size());
        key_ += row.isNull(source) ? '\1' : '\0';
    }
    const auto known = column.fields.constFind(key_);
    if (known != column.fields.constEnd())
        return *known;
    if (column.fields.size() >= kMostKept)
        column.fields.clear();
    // A key of its own: the shared one is written over.
    const QByteArray key(key_.constData(), key_.size());
    return *column.fields.insert(key, field(column.text(row), column.width));
}

} // namespace exchange
