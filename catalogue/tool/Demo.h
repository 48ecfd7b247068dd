#pragma once

#include "catalogue/tool/Source.h"

#include <QMap>
#include <optional>

namespace catalogue {

// A value that a demo instrument has other than its type's standard.
struct DemoValue
{
    QString parameter;
    std::optional<QString> value; // none: not known
    int state = 0;                // 1: changed here and not yet written; 2: added by a synchronisation
    Origin origin;
};

// An instrument calls in, so long after the start of the line.
struct DemoCall
{
    int seconds = 0;
    QStringList alarms;
};

struct DemoInstrument
{
    QString address; // two hexadecimal characters
    QString type;
    QString name;
    QString description;
    std::vector<DemoValue> values; // in the company
    std::vector<DemoValue> holds;  // in the instrument's own memory, where that matters
    std::vector<DemoCall> calls;
    Origin origin;
};

struct DemoPlant
{
    QString name;
    QString phone;
    QString description;
    std::vector<DemoInstrument> instruments;
    Origin origin;
};

// Somebody who works with the company.
struct DemoUser
{
    QString number; // "0" is the administrator
    QString name;
    QString password;
    QStringList rights; // columns of tbUsers
};

// A customer, as catalogue/demo tells it.
struct Demo
{
    std::vector<DemoUser> users;
    QMap<QString, QString> company; // columns of tbCompanySettings
    std::vector<DemoPlant> plants;
};

// Reads a plant description; the forms are told in catalogue/README.md. Refuses the
// lines that have no meaning, all of them at once.
Demo readDemo(const QString& file);

} // namespace catalogue
