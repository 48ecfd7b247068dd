#include "support/CompanyFixture.h"

#include "users/UserTable.h"

#include <QDir>
#include <QFile>
#include <SQLiteCpp/SQLiteCpp.h>

namespace support {

namespace {

QString textOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("can't read " + path.toStdString());
    return QString::fromUtf8(file.readAll());
}

// Built once for all tests of a program, then copied: a copy is much cheaper than the statements.
struct Templates
{
    QTemporaryDir folder;
    QString model = folder.filePath(QStringLiteral("model.mdb"));
    QString plant = folder.filePath(QStringLiteral("plant.mdb"));

    Templates()
    {
        runSql(model, textOf(QStringLiteral(CALIDORA_SCHEMA)));
        runSql(model, supportText(QStringLiteral("model.sql")));
        QFile::copy(model, plant);
        runSql(plant, supportText(QStringLiteral("plant.sql")));
    }
    static const Templates& instance()
    {
        static const Templates templates;
        return templates;
    }
};

} // namespace

void runSql(const QString& file, const QString& sql)
{
    SQLite::Database engine(file.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    engine.exec("PRAGMA synchronous=OFF;");
    engine.exec(sql.toStdString());
}

QStringList column(const QString& file, const QString& sql)
{
    SQLite::Database engine(file.toStdString(), SQLite::OPEN_READONLY);
    SQLite::Statement statement(engine, sql.toStdString());
    QStringList texts;
    while (statement.executeStep()) {
        const SQLite::Column value = statement.getColumn(0);
        texts << (value.isNull() ? QStringLiteral("NULL") : QString::fromStdString(value.getString()));
    }
    return texts;
}

void makePlant(const QString& file)
{
    QFile::copy(Templates::instance().plant, file);
}

QString supportText(const QString& name)
{
    return textOf(QStringLiteral(CALIDORA_TEST_SUPPORT "/") + name);
}

CompanyFixture::CompanyFixture()
{
    const Templates& templates = Templates::instance();
    for (const char* below : {"Data", "Data Model", "Log"})
        QDir().mkpath(file(QLatin1String(below)));
    QFile::copy(templates.model, modelFile());
    QFile::copy(templates.plant, plantFile());
    session.AppPath = folder_.path();
    session.DbPath = file(QStringLiteral("Data"));
    setLanguage(QStringLiteral("EN_English_2000"));
    formerWords_ = platform::setWords([this](const QString& name) { return texts.own(name); });
}

CompanyFixture::~CompanyFixture()
{
    platform::setWords(formerWords_);
    failures.expectNone();
    EXPECT_EQ(op.unexpected, QStringList());
    EXPECT_TRUE(op.done()) << "the operator was asked less than the test expected";
}

void CompanyFixture::setLanguage(const QString& identifier)
{
    session.Language = session::LanguageSettings::fromIdentifier(identifier);
}

bool CompanyFixture::connectTo(const QString& name)
{
    session.DbName = name;
    return database.Connect_Database(session.dbFile());
}

bool CompanyFixture::logIn(const QString& IDUser, const QString& password)
{
    users::requery(session);
    return gate.SearchUser(IDUser, password);
}

void CompanyFixture::setRight(const QString& right, const QString& stored)
{
    runOnPlant(
        QStringLiteral("UPDATE tbUsers SET %1 = '%2' WHERE IDUser = '%3'").arg(right, stored, kTechnician));
    if (session.cnDatabase.State() == platform::Connection::Opened) {
        EXPECT_TRUE(logIn(kTechnician));
    }
}

} // namespace support
