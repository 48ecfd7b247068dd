#include "database/CompanyCheck.h"

#include "database/FileCopy.h"
#include "platform/RuntimeError.h"
#include "session/Texts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

namespace database {

namespace {

const QByteArray kMagic("SQLite format 3\0", 16);
constexpr int kBusyMilliseconds = 500;

const QStringList kTables{
    "tbInstrument",
    "tbInstrumentLanguage",
    "tbParamGroup",
    "tbParamGroupLanguage",
    "tbParam",
    "tbParamLanguage",
    "tbParamType",
    "tbParamEnum",
    "tbParamEnumLanguage",
    "tbParamCopyLanguage",
    "tbInstMem",
    "tbGroupsUser",
    "tbInstrumentsUser",
    "tbParametersUser",
    "tbParUser_tmp",
    "tbEvent",
    "tbUsers",
    "tbCompanySettings",
    "tbInfoDatabase",
};

class Check
{
public:
    Check(const QString& file, const QString& shown, const session::Texts& texts)
        : file_(file), shown_(QDir::toNativeSeparators(shown)), texts_(texts)
    {
    }

    void run() const
    {
        expectMagic();
        try {
            // A journal beside the file is played back, which only a writer may do.
            const int mode = hasSideFiles(file_) ? SQLite::OPEN_READWRITE : SQLite::OPEN_READONLY;
            SQLite::Database engine(QFile::encodeName(file_).toStdString(), mode, kBusyMilliseconds);
            expectTables(engine);
            expectWhole(engine);
        } catch (const SQLite::Exception& exception) {
            failAs(exception);
        }
    }

private:
    void expectMagic() const
    {
        QFile file(file_);
        if (!QFileInfo(file_).isFile())
            platform::fail(platform::errors::kFileNotFound, text("file.missing"));
        if (!file.open(QIODevice::ReadOnly))
            platform::fail(platform::errors::kPermissionDenied,
                           QStringLiteral("'%1': %2").arg(shown_, file.errorString()));
        if (file.read(kMagic.size()) != kMagic)
            failAsForeign();
    }

    void expectTables(SQLite::Database& engine) const
    {
        QStringList missing;
        for (const QString& table : kTables) {
            if (!engine.tableExists(table.toStdString()))
                missing << table;
        }
        if (missing.size() == kTables.size())
            failAsForeign();
        if (!missing.isEmpty())
            failAsIncomplete(missing.join(QStringLiteral(", ")));
    }

    void expectWhole(SQLite::Database& engine) const
    {
        const QString outcome =
            QString::fromStdString(engine.execAndGet("PRAGMA quick_check(1);").getString());
        if (outcome != QLatin1String("ok"))
            failAsIncomplete(outcome.simplified());
    }

    [[noreturn]] void failAs(const SQLite::Exception& exception) const
    {
        switch (exception.getErrorCode()) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            platform::fail(platform::errors::kDatabase, text("file.locked"));
        case SQLITE_NOTADB:
            failAsForeign();
        default:
            failAsIncomplete(QString::fromUtf8(exception.what()));
        }
    }

    [[noreturn]] void failAsForeign() const
    {
        platform::fail(platform::errors::kDatabase, text("file.notdatabase"));
    }
    [[noreturn]] void failAsIncomplete(const QString& what) const
    {
        platform::fail(platform::errors::kDatabase,
                       texts_.own(QStringLiteral("file.incomplete")).arg(shown_, what));
    }
    // The text with the file's name in it.
    QString text(const char* key) const { return texts_.own(QLatin1String(key)).arg(shown_); }

    const QString file_;
    const QString shown_;
    const session::Texts& texts_;
};

} // namespace

void checkCompany(const QString& file, const QString& shown, const session::Texts& texts)
{
    Check(file, shown, texts).run();
}

} // namespace database
