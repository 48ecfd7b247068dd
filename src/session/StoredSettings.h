#pragma once

#include <QString>

namespace session {

struct ToolbarSettings
{
    qint16 View = -1;  // 0 reduced, else complete
    qint16 Icons = -1; // 0 small, else large

    bool operator==(const ToolbarSettings&) const = default;
};

struct ListBusSettings
{
    qint16 View = -1; // 0 large icons, 1 small icons, 2 list, 3 report; -1 gives 0
    qint16 Col1Width = -1;
    qint16 Col2Width = -1;
    qint16 Col3Width = -1; // form units; -1 the control's default

    bool operator==(const ListBusSettings&) const = default;
};

struct TreeBusSettings
{
    qint16 Visible = -1;
    qint16 Width = -1; // form units; -1 or more than half the client width gives half of it

    bool operator==(const TreeBusSettings&) const = default;
};

struct LogSettings
{
    qint16 DelLog = -1;
    qint16 DelLogRuntimeErr = -1;
    qint16 DelLogInstErr = -1;
    qint16 LogDays = 180;

    bool operator==(const LogSettings&) const = default;
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

    bool operator==(const COMPortSettings&) const = default;
};

struct LanguageSettings
{
    QString Code = QStringLiteral("IT");
    QString Name = QStringLiteral("Italiano");
    QString Base = QStringLiteral("1000");
    QString ID = QStringLiteral("IT_Italiano_1000");

    // Takes an identifier "<code>_<name>_<base>" apart; one without its second "_" fails.
    static LanguageSettings fromIdentifier(const QString& identifier);

    bool operator==(const LanguageSettings&) const = default;
};

// What the configuration file remembers between two runs.
struct StoredSettings
{
    QString DbName; // the open company's file name, no path; "" means no company is open
    QString DbPath; // its folder, no trailing separator
    ToolbarSettings ToolbarSet;
    ListBusSettings ListBusSet;
    TreeBusSettings TreeBusSet;
    LogSettings LogSet;
    COMPortSettings COMPort;
    LanguageSettings Language;
    QString DirBackup, DirExport, DirImport;

    bool operator==(const StoredSettings&) const = default;
};

} // namespace session
