#pragma once

#include "database/Database.h"
#include "platform/ScriptedOperator.h"
#include "platform/Words.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/Structure.h"
#include "support/FailureRecorder.h"
#include "support/QtPrinters.h"
#include "users/Login.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace support {

// Runs the statements of a text on a database file, which is made when it is missing. Throws what the engine
// throws.
void runSql(const QString& file, const QString& sql);
// The first column of a statement's rows as texts, NULL as "NULL", read over a connection of its own.
QStringList column(const QString& file, const QString& sql);
// Makes the test company, alone, in a new file.
void makePlant(const QString& file);
// The text of a file of tests/support.
QString supportText(const QString& name);

// Operators of the test company: nothing but the administrator; one with every right; one without any, whose
// password is "Secret".
inline const QString kAdministrator = QStringLiteral("0");
inline const QString kTechnician = QStringLiteral("1");
inline const QString kGuest = QStringLiteral("2");

// An application folder of its own for each test, with the model of a small catalogue ("Data Model") and a
// company on it ("Data/Plant.mdb"); a session in English that knows the folder and nothing else yet;
// structure and database on it. Not yet connected: see connectPlant().
//
// Every failure reported that a test doesn't take from `failures` fails the test at its end.
class CompanyFixture : public testing::Test
{
protected:
    CompanyFixture();
    ~CompanyFixture() override;

    QString file(const QString& below) const { return folder_.filePath(below); }
    QString modelFile() const { return file(QStringLiteral("Data Model/Calidora_Model_Instrument.mdb")); }
    QString plantFile() const { return file(QStringLiteral("Data/Plant.mdb")); }
    void setLanguage(const QString& identifier);
    // Names the company and connects to it, as the commands do. Nobody works with it yet.
    bool connectTo(const QString& name);
    // The same with the test company, and its technician, who has every right, logs in.
    bool connectPlant() { return connectTo(QStringLiteral("Plant.mdb")) && logIn(kTechnician); }
    // Logs an operator of the open company in.
    bool logIn(const QString& IDUser, const QString& password = {});
    // Stores something else for a right of the technician, who logs in again if he works already.
    void setRight(const QString& right, const QString& stored);
    void runOnPlant(const QString& sql) { runSql(plantFile(), sql); }

    FailureRecorder failures;
    session::Session session;
    session::Texts texts{session.Language};
    platform::ScriptedOperator op;
    structure::Structure structure{session, texts, op};
    database::Database database{session, texts, op, structure};
    users::Login gate{{session, texts, op, {}}};

private:
    QTemporaryDir folder_;
    platform::Words formerWords_;
};

} // namespace support
