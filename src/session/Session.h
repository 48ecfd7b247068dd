#pragma once

#include "platform/Connection.h"
#include "platform/Recordset.h"
#include "session/StoredSettings.h"

#include <QString>
#include <array>
#include <memory>

namespace session {

// The operator who works with the open company. The five rights are Boolean texts.
struct UserRecord
{
    QString IDUser, Name, Phone, Fax, MobilePhone, EMail;
    QString UpgradeDb, Settings, Modify, EventViewer, ReadWrite;

    bool isAdministrator() const { return IDUser == QLatin1String("0"); }
};

// A right is true for a non-zero number text or "True".
bool rightOf(const QString& booleanText);

enum CompanyField
{
    Company,
    Address,
    Postcode,
    Locality,
    Country,
    Phone,
    Fax,
    EMail,
    WEB,
    VATNumber
};

// What the clipboard of the plant waits to do with ClipKey.
enum ClipOperation
{
    ClipNothing = 0,
    ClipCut = 1,
    ClipCopy = 2
};

// The values that the whole program shares, made once by main and handed on by reference.
struct Session : StoredSettings
{
    QString AppTitle = QStringLiteral("Calidora");
    QString AppPath; // the application folder, no trailing separator
    QString ExeName = QStringLiteral("Calidora");
    int CodePage = 1252; // of files and of the line, from the machine's locale
    int Charset = 0;     // the same as a character set number

    platform::Connection cnDatabase;
    QString ConnectionString; // what the engine is told to open: the whole name of the company file
    QString DbVersion;

    platform::Recordset rsInstrument, rsParam, rsParamEnum, rsInstMem, rsUsers; // open while connected

    std::array<QString, 10> CompanySet; // by CompanyField
    UserRecord CurrentUser;

    int ClipOperation = ClipNothing;
    QString ClipKey;

    // A path below the application folder, given with forward slashes.
    QString appFile(const QString& below) const { return AppPath + QLatin1Char('/') + below; }
    QString dbFile() const { return DbPath + QLatin1Char('/') + DbName; }
};

} // namespace session
