#include "fuzz/Workbench.h"

#include "exchange/Import.h"
#include "platform/CodePage.h"

namespace {

// Agrees to everything that the import asks.
class Agreeing : public platform::ScriptedOperator
{
public:
    int messageBox(const QString&, platform::Buttons buttons, platform::Icon, const QString&) override
    {
        return buttons == platform::Buttons::YesNo ? platform::answers::kYes : platform::answers::kOk;
    }
};

struct Bench : fuzz::Workbench
{
    // Any file comes in as one group or not at all, and touches nothing of the others.
    void run(const QByteArray& input)
    {
        const int groups = count(QStringLiteral("tbGroupsUser"));
        const int before =
            count(QStringLiteral("tbInstrumentsUser")) + count(QStringLiteral("tbParametersUser"));
        const QString path = file(QStringLiteral("Data/import.dat"));
        QFile trace(path);
        fuzz::require(trace.open(QIODevice::WriteOnly) && trace.write(input) == input.size());
        trace.close();
        agreeing.chooseFile(path);
        exchange::Import({session, texts, agreeing, structure}).Import_Item();

        const int after =
            count(QStringLiteral("tbInstrumentsUser")) + count(QStringLiteral("tbParametersUser"));
        const int added = count(QStringLiteral("tbGroupsUser")) - groups;
        fuzz::require(added == 0 ? after == before : added == 1);
        fuzz::require(added == 1 || !failures.take().empty() || noLines(input));
        structure.Remove_Node_TreeBus(QStringLiteral("1_4"));
        session.cnDatabase.Execute(QStringLiteral("DELETE FROM tbParametersUser WHERE IDGrp = 4"));
        session.cnDatabase.Execute(QStringLiteral("DELETE FROM tbInstrumentsUser WHERE IDGrp = 4"));
        session.cnDatabase.Execute(QStringLiteral("DELETE FROM tbGroupsUser WHERE IDGrp = 4"));
        tidy();
    }

private:
    // Nothing that is a line of the form: empty ones, and those whose key has no number in front.
    static bool noLines(const QByteArray& input)
    {
        for (QByteArray line : input.split('\n')) {
            if (line.endsWith('\r'))
                line.chop(1);
            const bool numbered =
                !line.left(8).trimmed().isEmpty() || line.left(8).count(' ') < line.left(8).size();
            const bool named = line.mid(8, 50).count(' ') < line.mid(8, 50).size();
            if (!line.isEmpty() && (numbered || !named))
                return false;
        }
        return true;
    }
    int count(const QString& table)
    {
        platform::Recordset rows;
        rows.Open(QStringLiteral("SELECT Count(*) AS Rows FROM ") + table, session.cnDatabase);
        return rows.number(QStringLiteral("Rows"));
    }

    Agreeing agreeing;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static Bench bench;
    bench.run(fuzz::bytesOf(data, size));
    return 0;
}
