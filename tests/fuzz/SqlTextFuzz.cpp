#include "fuzz/Workbench.h"

#include "bus/Statements.h"
#include "session/Helpers.h"

namespace {

struct Bench : fuzz::Workbench
{
    // A text inside a statement is a text and nothing else: it comes back as it was, it finds nothing that it
    // is not, and the tables stand as they stood.
    void run(const QString& text)
    {
        using session::Compose_SqlText;
        fuzz::require(
            first(QStringLiteral("SELECT ") + Compose_SqlText(text) + QStringLiteral(" AS Value")) == text);
        fuzz::require(count(bus::parameterStatement(text, bus::operationFilter("1", "1", text, text))) == 0 ||
                      text.compare(QStringLiteral("EN"), Qt::CaseInsensitive) == 0);
        session.cnDatabase.Execute(QStringLiteral("UPDATE tbParametersUser SET Value = ") +
                                   Compose_SqlText(text) +
                                   QStringLiteral(" WHERE IDGrp = 1 AND IDPar = 'P0204'"));
        fuzz::require(first(QStringLiteral(
                          "SELECT Value FROM tbParametersUser WHERE IDGrp = 1 AND IDPar = 'P0204'")) == text);
        fuzz::require(count(QStringLiteral("SELECT IDPar FROM tbParametersUser WHERE Value = ") +
                            Compose_SqlText(text) + QStringLiteral(" AND IDPar <> 'P0204' AND IDPar = ''")) ==
                      0);
        tidy();
    }

private:
    QString first(const QString& statement)
    {
        platform::Recordset rows;
        rows.Open(statement, session.cnDatabase);
        return rows.text(QStringLiteral("Value"));
    }
    int count(const QString& statement)
    {
        platform::Recordset rows;
        rows.Open(statement, session.cnDatabase);
        return rows.RecordCount();
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static Bench bench;
    bench.run(QString::fromUtf8(fuzz::bytesOf(data, size)));
    return 0;
}
