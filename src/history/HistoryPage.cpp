#include "history/HistoryPage.h"

#include "history/NoteFile.h"
#include "platform/RuntimeError.h"
#include "session/Helpers.h"
#include "structure/NodeKey.h"
#include "structure/ParameterWords.h"
#include "structure/PlantNames.h"

#include <QFileInfo>
#include <QStringBuilder>

namespace history {

using session::Compose_SqlText;
using structure::bytesOf;
using structure::CompanyReader;
using structure::textOf;
using structure::textOrNull;

namespace {

// Of an instrument the notes are found by their key; of a whole group, which holds most of them, by walking
// back from the newest.
QString elementCondition(const QString& key)
{
    const structure::KeyParts ids = structure::Extract_Key(key);
    switch (structure::Extract_Level(key)) {
    case structure::kGroup:
        return u"(+IDGrp = " % ids.IDGrp % u')';
    case structure::kInstrument:
        return u"(IDGrp = " % ids.IDGrp % u") AND (IDInst = " % ids.IDInst % u')';
    case structure::kParamGroup:
        return u"(IDGrp = " % ids.IDGrp % u") AND (IDInst = " % ids.IDInst % u") AND (IDParGrp = " %
               Compose_SqlText(ids.IDParGrp) % u')';
    case structure::kParameter:
        return u"(IDGrp = " % ids.IDGrp % u") AND (IDInst = " % ids.IDInst % u") AND (IDPar = " %
               Compose_SqlText(ids.IDPar) % u')';
    default:
        return QStringLiteral("(1 = 1)");
    }
}

QString conditionOf(const PageRequest& request)
{
    const QString element = elementCondition(request.key);
    QString condition = element;
    if (request.lastOperation)
        condition += u" AND (Operation = (SELECT Operation FROM tbNote WHERE " % element %
                     u" ORDER BY ID DESC LIMIT 1))";
    if (request.failedChecks)
        condition += QStringLiteral(" AND (Cause = %1)").arg(int(values::ValueCause::CheckedError));
    if (request.operation)
        condition +=
            QStringLiteral(" AND (Operation = %1) AND (OldValue IS NOT NewValue)").arg(*request.operation);
    return condition;
}

QString statementOf(const PageRequest& request)
{
    static const QString kStatement = QStringLiteral(
        R"(SELECT tbNote.ID, tbNote.Operation, tbNote.Time, IDGrp, IDInst, IDPar, IDParGrp, OldValue,
                  NewValue, OldState, NewState, Cause, tbOperation.Operator
           FROM tbNote
                LEFT JOIN tbOperation ON tbNote.Operation = tbOperation.ID
           WHERE (%1)
           ORDER BY tbNote.ID DESC
           LIMIT %2;)");
    return kStatement.arg(conditionOf(request)).arg(HistoryPage::kMostNotes + 1);
}

std::optional<int> numberOrNull(const platform::Statement& row, int column)
{
    return row.kind(column) == platform::Statement::Kind::Null ? std::nullopt
                                                               : std::optional(int(row.integer(column)));
}

// What a note's ids are called in the company as it is now. What is not there any more bears its id.
class Words
{
public:
    Words(const PageRequest& request)
        : company_(request.company), words_(company_, request.language), names_(company_)
    {
    }

    void fill(ShownNote& note, const platform::Statement& row)
    {
        const QString IDGrp = textOf(row, 3), IDInst = textOf(row, 4), IDPar = textOf(row, 5),
                      IDParGrp = textOf(row, 6);
        note.key = structure::parameterKey(IDGrp, IDInst, IDParGrp, IDPar);
        const structure::PlantNames::Names& names = names_.above(IDGrp, IDInst);
        const QString* group = words_.group(bytesOf(row, 6));
        note.place = orId(names.group, IDGrp) % u'\\' % orId(names.instrument, IDInst) % u'\\' %
                     (group ? *group : IDParGrp);
        const structure::ParameterWord* word = words_.parameter(bytesOf(row, 5));
        note.parameter = word ? word->name : IDPar;
        note.oldShown = shown(word, note.oldValue, note.oldState.has_value());
        note.newShown = shown(word, note.newValue, note.newState.has_value());
    }

    const structure::ParameterWord* wordOf(const QString& IDPar) const
    {
        const QByteArray id = IDPar.toUtf8();
        return words_.parameter({id.constData(), std::size_t(id.size())});
    }

private:
    static QString orId(const QString& name, const QString& id) { return name.isEmpty() ? u'#' + id : name; }
    static QString shown(const structure::ParameterWord* word, const std::optional<QString>& value,
                         bool there)
    {
        if (!there)
            return {};
        const QString stored = value.value_or(QStringLiteral("--"));
        const QString shown = word ? word->shown(value) : stored;
        return shown.isEmpty() ? stored : shown; // a number that no choice has
    }

    CompanyReader company_;
    structure::ParameterWords words_;
    structure::PlantNames names_;
};

ShownNote noteOf(const platform::Statement& row)
{
    ShownNote note;
    note.number = row.integer(0);
    note.operation = row.integer(1);
    note.time = row.integer(2);
    note.oldValue = textOrNull(row, 7);
    note.newValue = textOrNull(row, 8);
    note.oldState = numberOrNull(row, 9);
    note.newState = numberOrNull(row, 10);
    note.cause = values::ValueCause(int(row.integer(11)));
    note.operatorName = textOf(row, 12);
    return note;
}

void read(HistoryPage& page, const PageRequest& request, const structure::StopFlag& stop)
{
    Words words(request);
    if (structure::Extract_Level(request.key) == structure::kParameter) {
        if (const auto* word = words.wordOf(structure::Extract_Key(request.key).IDPar)) {
            page.kind = word->form.kind;
            page.choices = word->choices;
        }
    }
    if (!QFileInfo::exists(historyFileOf(request.company)))
        return;
    CompanyReader notes(historyFileOf(request.company));
    notes.eachRow(statementOf(request), [&](const platform::Statement& row) {
        if (stop)
            return;
        if (int(page.notes.size()) == HistoryPage::kMostNotes) {
            page.more = true;
            return;
        }
        ShownNote note = noteOf(row);
        words.fill(note, row);
        page.notes.push_back(std::move(note));
    });
}

} // namespace

HistoryPage readHistory(const PageRequest& request, const structure::StopFlag& stop)
{
    HistoryPage page;
    try {
        read(page, request, stop);
    } catch (const platform::RuntimeError& error) {
        page.failure = error.description;
    }
    return page;
}

} // namespace history
