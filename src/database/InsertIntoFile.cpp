#include "database/InsertIntoFile.h"

#include "platform/Connection.h"
#include "platform/Recordset.h"
#include "platform/RuntimeError.h"
#include "platform/Words.h"
#include "session/Helpers.h"

#include <QDir>
#include <QFile>
#include <QStringList>

namespace database {

using platform::Connection;
using session::Compose_SqlText;

namespace {

// What a connection does while this lives, and what takes it back on every way out.
class Meanwhile
{
public:
    Meanwhile(Connection& connection, const QString& begin, const QString& end)
        : connection_(connection), end_(end)
    {
        connection_.Execute(begin);
    }
    ~Meanwhile()
    {
        try {
            connection_.Execute(end_);
        } catch (const platform::RuntimeError&) {
            // The failure that leads here is told already.
        }
    }
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;

private:
    Connection& connection_;
    QString end_;
};

QStringList columnsOf(const Connection& connection, const QString& schema, const QString& table)
{
    platform::Recordset columns;
    columns.Open(QStringLiteral("SELECT name FROM pragma_table_info(%1, %2)")
                     .arg(Compose_SqlText(table), Compose_SqlText(schema)),
                 connection);
    QStringList names;
    for (; !columns.Eof(); columns.MoveNext())
        names << u'"' + columns.text(QStringLiteral("name")) + u'"';
    return names;
}

QStringList sorted(QStringList names)
{
    for (QString& name : names)
        name = name.toLower();
    names.sort();
    return names;
}

} // namespace

int insertIntoFile(Connection& company, const QString& table, const QString& file)
{
    const QString shown = QDir::toNativeSeparators(file);
    if (!QFile::exists(file)) // attaching would make it
        platform::failInWords(platform::errors::kFileNotFound, "file.missing", {shown});
    // The rows keep among themselves in the other file what they keep in this one: it needn't be looked up
    // again.
    const Meanwhile unchecked(company, QStringLiteral("PRAGMA foreign_keys=OFF;"),
                              QStringLiteral("PRAGMA foreign_keys=ON;"));
    const Meanwhile other(company, QStringLiteral("ATTACH DATABASE %1 AS other;").arg(Compose_SqlText(file)),
                          QStringLiteral("DETACH DATABASE other;"));
    company.Execute(QStringLiteral("PRAGMA other.synchronous=OFF;"));

    const QStringList columns = columnsOf(company, QStringLiteral("main"), table);
    if (columns.isEmpty() || sorted(columns) != sorted(columnsOf(company, QStringLiteral("other"), table)))
        platform::failInWords(platform::errors::kDatabase, "upgrade.columns", {table, shown});
    return company.Execute(
        QStringLiteral("INSERT INTO other.%1 (%2) SELECT %2 FROM main.%1;").arg(table, columns.join(u',')));
}

} // namespace database
