#include "catalogue/tool/Database.h"

#include <QFile>
#include <filesystem>

namespace catalogue {

namespace {

// What SQLite may have left beside a file; beside a new file of that name it would be taken for its own.
void removeCompanions(const QString& file)
{
    for (const char* ending : {"-journal", "-wal", "-shm"})
        QFile::remove(file + ending);
}

void removeWithCompanions(const QString& file)
{
    QFile::remove(file);
    removeCompanions(file);
}

} // namespace

void buildDatabase(const QString& target, const std::function<void(SQLite::Database&)>& fill)
{
    const QString fresh = target + QStringLiteral(".new");
    removeWithCompanions(fresh);
    try {
        {
            SQLite::Database database(fresh.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
            database.exec("PRAGMA journal_mode=DELETE; PRAGMA synchronous=FULL;");
            fill(database);
        }
        removeWithCompanions(target + QStringLiteral("-"));
        removeCompanions(target);
        std::filesystem::rename(fresh.toStdU16String(), target.toStdU16String());
    } catch (...) {
        removeWithCompanions(fresh);
        throw;
    }
}

void bindText(SQLite::Statement& statement, int index, const QString& text)
{
    if (text.isNull())
        statement.bind(index);
    else
        statement.bind(index, text.toStdString());
}

QString textOf(const SQLite::Column& column)
{
    return column.isNull() ? QString() : QString::fromStdString(column.getString());
}

} // namespace catalogue
