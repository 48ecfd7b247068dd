#include "platform/InsertIntoFile.h"

#include "platform/Words.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStringList>
#include <SQLiteCpp/SQLiteCpp.h>

namespace platform {

namespace {

// The other file, at hand while this lives. What is written to it needs no flush of its own: who wants it
// kept copies it to its place.
class Attached
{
public:
    Attached(SQLite::Database& engine, const QString& file) : engine_(engine)
    {
        SQLite::Statement attach(engine_, "ATTACH DATABASE ? AS other");
        attach.bind(1, QFile::encodeName(file).toStdString());
        attach.exec();
        engine_.exec("PRAGMA other.synchronous=OFF;");
    }
    ~Attached() { engine_.tryExec("DETACH DATABASE other"); }
    Attached(const Attached&) = delete;
    Attached& operator=(const Attached&) = delete;

private:
    SQLite::Database& engine_;
};

// The rows keep among themselves in the other file what they keep in this one: it needn't be looked up again.
class UncheckedReferences
{
public:
    explicit UncheckedReferences(SQLite::Database& engine) : engine_(engine)
    {
        engine_.exec("PRAGMA foreign_keys=OFF;");
    }
    ~UncheckedReferences() { engine_.tryExec("PRAGMA foreign_keys=ON;"); }
    UncheckedReferences(const UncheckedReferences&) = delete;
    UncheckedReferences& operator=(const UncheckedReferences&) = delete;

private:
    SQLite::Database& engine_;
};

QStringList columnsOf(SQLite::Database& engine, const char* schema, const QString& table)
{
    SQLite::Statement columns(engine, "SELECT name FROM pragma_table_info(?, ?)");
    columns.bind(1, table.toStdString());
    columns.bind(2, schema);
    QStringList names;
    while (columns.executeStep())
        names << u'"' + QString::fromStdString(columns.getColumn(0).getString()) + u'"';
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

std::optional<InsertIntoFile> InsertIntoFile::parse(const QString& sql)
{
    static const QRegularExpression kStatement(
        QRegularExpression::anchoredPattern("INSERT INTO (\\w+) IN '((?:[^']|'')+)'\\s*SELECT (\\w+)\\.\\* "
                                            "FROM (\\w+);?"),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = kStatement.match(sql);
    if (!match.hasMatch() || match.captured(3) != match.captured(4))
        return std::nullopt;
    return InsertIntoFile{match.captured(1), QDir::fromNativeSeparators(match.captured(2).replace("''", "'")),
                          match.captured(3)};
}

int InsertIntoFile::run(SQLite::Database& engine) const
{
    if (!QFile::exists(file)) // attaching would make it
        failInWords(errors::kFileNotFound, "file.missing", {QDir::toNativeSeparators(file)});
    const UncheckedReferences unchecked(engine);
    const Attached other(engine, file);
    const QStringList columns = columnsOf(engine, "main", source);
    if (columns.isEmpty() || sorted(columns) != sorted(columnsOf(engine, "other", table)))
        failInWords(errors::kDatabase, "upgrade.columns", {table, QDir::toNativeSeparators(file)});
    const QString names = columns.join(u',');
    const QString insert =
        QStringLiteral("INSERT INTO other.%1 (%2) SELECT %2 FROM main.%3").arg(table, names, source);
    return engine.exec(insert.toStdString());
}

} // namespace platform
