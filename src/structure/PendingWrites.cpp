#include "structure/PendingWrites.h"

#include "platform/RuntimeError.h"
#include "structure/Image.h"
#include "structure/NameOrder.h"
#include "structure/NodeKey.h"
#include "structure/ParameterWords.h"
#include "structure/PlantNames.h"
#include "values/ParamState.h"

#include <QStringBuilder>
#include <algorithm>

namespace structure {

namespace {

struct Pending
{
    PlantNames::Names names;
    int IDGrp, IDInst;
    QString IDParGrp;
    ListItem item; // its detail the parameter group
};

// By the names, as tree and list show them; what they leave open by the ids. Stable: the rows of a parameter
// group stand in order.
void sortByPlace(std::vector<Pending>& writes)
{
    std::stable_sort(writes.begin(), writes.end(), [](const Pending& one, const Pending& other) {
        if (const int groups = compareNames(one.names.group, other.names.group); groups != 0)
            return groups < 0;
        if (one.IDGrp != other.IDGrp)
            return one.IDGrp < other.IDGrp;
        if (const int names = compareNames(one.names.instrument, other.names.instrument); names != 0)
            return names < 0;
        if (one.IDInst != other.IDInst)
            return one.IDInst < other.IDInst;
        return compareNames(one.IDParGrp, other.IDParGrp) < 0;
    });
}

// Groups whose parameters are read in one go; between two of them the file is free.
constexpr std::size_t kGroupsInSlice = 50;

// By their place in the company.
std::vector<Pending> read(CompanyReader& company, const QString& language, const StopFlag& stop)
{
    std::vector<int> groups;
    company.eachRow(QStringLiteral("SELECT IDGrp FROM tbGroupsUser ORDER BY IDGrp;"),
                    [&](const platform::Statement& row) { groups.push_back(int(row.integer(0))); });
    const ParameterWords words(company, language);
    std::vector<Pending> writes;
    const auto take = [&](const platform::Statement& row) {
        const ParameterWord* word = words.parameter(bytesOf(row, 2));
        const QString* group = words.group(bytesOf(row, 3));
        if (!word || !group)
            return;
        writes.push_back(
            {{},
             int(row.integer(0)),
             int(row.integer(1)),
             textOf(row, 3),
             {parameterKey(textOf(row, 0), textOf(row, 1), textOf(row, 3), textOf(row, 2)), word->name,
              word->shown(textOrNull(row, 4)), *group, int(Image::ParameterChanged)}});
    };
    for (std::size_t first = 0; first < groups.size() && !stop; first += kGroupsInSlice) {
        const std::size_t last = std::min(first + kGroupsInSlice, groups.size()) - 1;
        company.eachRow(QStringLiteral(R"(
            SELECT IDGrp, IDInst, IDPar, IDParGrp, Value
            FROM tbParametersUser
            WHERE ((IDGrp BETWEEN %1 AND %2) AND (State = %3))
            ORDER BY IDGrp, IDInst, IDPar;)")
                            .arg(groups[first])
                            .arg(groups[last])
                            .arg(int(values::ParamState::Changed)),
                        take);
    }
    if (writes.empty())
        return writes;
    PlantNames names(company);
    for (Pending& write : writes)
        write.names = names.above(QString::number(write.IDGrp), QString::number(write.IDInst));
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
            write.item.detail =
                write.names.group % u'\\' % write.names.instrument % u'\\' % write.item.detail;
            pending.items.push_back(std::move(write.item));
        }
    } catch (const platform::RuntimeError& error) {
        pending.failure = error.description;
    }
    return pending;
}

} // namespace structure
