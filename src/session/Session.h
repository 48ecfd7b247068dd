#pragma once

#include "platform/Connection.h"
#include "platform/Recordset.h"

#include <QString>
#include <array>
#include <memory>

namespace session {

struct ToolbarSettings
{
    qint16 View = -1;  // 0 reduced, else complete
    qint16 Icons = -1; // 0 small, else large
};

struct ListBusSettings
{
    qint16 View = -1; // 0 large icons, 1 small icons, 2 list, 3 report; -1 gives 0
    qint16 Col1Width = -1;
    qint16 Col2Width = -1;
    qint16 Col3Width = -1; // form units; -1 the control's default
};

struct TreeBusSettings
{
    qint16 Visible = -1;
    qint16 Width = -1; // form units; -1 or more than half the client width gives half of it
};

struct LogSettings
{
    qint16 DelLog = -1;
    qint16 DelLogRuntimeErr = -1;
    qint16 DelLogInstErr = -1;
    qint16 LogDays = 180;
};

// The state of the line.
enum LineStatus : qint16
{
    kPortClosed = -1, // or not usable
    kLineIdle = 0,
    kConnected = 1, // to a group, with no operation running
    kBusy = 2       // a connection comes or goes, an operation runs, an instrument calls in
};

// The line's six settings, as indices into their tables, and its state, which is not stored.
struct COMPortSettings
{
    qint16 Port = 0; // number less one: 0 is COM1
    qint16 Speed = 3;
    qint16 DataBit = 3;
    qint16 Parity = 2;
    qint16 StopBit = 0;
    qint16 FlowCtrl = 0;
    LineStatus Status = kLineIdle;
};

struct LanguageSettings
{
    QString Code = QStringLiteral("IT");
    QString Name = QStringLiteral("Italiano");
    QString Base = QStringLiteral("1000");
    QString ID = QStringLiteral("IT_Italiano_1000");

    // Takes an identifier "<code>_<name>_<base>" apart; one without its second "_" fails.
    static LanguageSettings fromIdentifier(const QString& identifier);
};

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
struct Session
{
    QString AppTitle = QStringLiteral("Calidora");
    QString AppPath; // the application folder, no trailing separator
    QString ExeName = QStringLiteral("Calidora");
    int CodePage = 1252; // of files and of the line, from the machine's locale
    int Charset = 0;     // the same as a character set number

    platform::Connection cnDatabase;
    QString ConnectionString; // what the engine is told to open: the whole name of the company file
    QString DbName;           // file name, no path; "" means no company is open
    QString DbPath;           // its folder, no trailing separator
    QString DbVersion;

    platform::Recordset rsInstrument, rsParam, rsParamEnum, rsInstMem, rsUsers; // open while connected

    ToolbarSettings ToolbarSet;
    ListBusSettings ListBusSet;
    TreeBusSettings TreeBusSet;
    LogSettings LogSet;
    COMPortSettings COMPort;
    LanguageSettings Language;
    QString DirBackup, DirExport, DirImport;

    std::array<QString, 10> CompanySet; // by CompanyField
    UserRecord CurrentUser;

    int ClipOperation = ClipNothing;
    QString ClipKey;

    // A path below the application folder, given with forward slashes.
    QString appFile(const QString& below) const { return AppPath + QLatin1Char('/') + below; }
    QString dbFile() const { return DbPath + QLatin1Char('/') + DbName; }
};

} // namespace session
