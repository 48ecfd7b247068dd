#include "structure/PendingWrites.h"

#include "platform/RuntimeError.h"
#include "structure/ParameterWords.h"

#include <QStringBuilder>
#include <algorithm>

namespace structure {

namespace {

constexpr int kChangedImage = 6;

struct Pending
{
    QString group, instrument; // names
    int IDGrp, IDInst;
    ListItem item; // its detail the parameter group
};

// Stable, so that what the names leave open stands in the order of the ids.
void sortByPlace(std::vector<Pending>& writes)
{
    std::stable_sort(writes.begin(), writes.end(), [](const Pending& one, const Pending& other) {
        if (const int groups = one.group.compare(other.group, Qt::CaseInsensitive); groups != 0)
            return groups < 0;
        if (one.IDGrp != other.IDGrp)
            return one.IDGrp < other.IDGrp;
        return one.instrument.compare(other.instrument, Qt::CaseInsensitive) < 0;
    });
}

std::vector<Pending> read(CompanyReader& company, const QString& language, const StopFlag& stop)
{
    const ParameterWords words(company, language);
    std::vector<Pending> writes;
    company.eachRowOfPlant(
        QStringLiteral(
            "SELECT tbParametersUser.IDGrp, tbParametersUser.IDInst, tbParametersUser.IDParGrp, "
            "tbParametersUser.IDPar, tbParametersUser.Value, tbGroupsUser.Name, tbInstrumentsUser.Name "
            "FROM (tbParametersUser INNER JOIN tbInstrumentsUser ON tbParametersUser.IDGrp = "
            "tbInstrumentsUser.IDGrp AND tbParametersUser.IDInst = tbInstrumentsUser.IDInst) "
            "INNER JOIN tbGroupsUser ON tbInstrumentsUser.IDGrp = tbGroupsUser.IDGrp "
            "WHERE ((tbParametersUser.IDGrp BETWEEN ? AND ?) AND (tbParametersUser.State = 1)) "
            "ORDER BY tbParametersUser.IDGrp, tbParametersUser.IDInst, tbParametersUser.IDParGrp, "
            "tbParametersUser.IDPar;"),
        stop, [&](SQLite::Statement& row) {
            const ParameterWord* word = words.parameter(bytesOf(row, 3));
            const QString* group = words.group(bytesOf(row, 2));
            if (!word || !group)
                return;
            const std::optional<QString> value =
                row.isColumnNull(4) ? std::nullopt : std::optional(textOf(row, 4));
            const QString key = u"4_" % textOf(row, 0) % u'_' % textOf(row, 1) % u'_' % textOf(row, 2) %
                                u'_' % textOf(row, 3);
            writes.push_back({textOf(row, 5),
                              textOf(row, 6),
                              row.getColumn(0).getInt(),
                              row.getColumn(1).getInt(),
                              {key, word->name, word->shown(value), *group, kChangedImage}});
        });
    return writes;
}

} // namespace

PendingWrites readPendingWrites(const QString& file, const QString& language, const StopFlag& stop)
{
    PendingWrites pending;
    try {
        CompanyReader company(file);
        std::vector<Pending> writes = read(company, language, stop);
        sortByPlace(writes);
        for (Pending& write : writes) {
            write.item.detail = write.group % u'\\' % write.instrument % u'\\' % write.item.detail;
            pending.items.push_back(std::move(write.item));
        }
    } catch (const platform::RuntimeError& error) {
        pending.failure = error.description;
    }
    return pending;
}

} // namespace structure
