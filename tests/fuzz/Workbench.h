#pragma once

#include "fuzz/Require.h"
#include "support/BusFixture.h"

#include <QFile>

namespace fuzz {

// Bus, console and company of the tests, made once and used for every input.
class Workbench : public support::BusFixture
{
public:
    Workbench()
    {
        // The disk is not what is looked at here.
        session.cnDatabase.Execute(QStringLiteral("PRAGMA synchronous=OFF"));
    }

    // Forgets what an input left behind in the stand-ins.
    void tidy()
    {
        failures.take();
        op.boxes.clear();
        op.unexpected.clear();
        op.forms.clear();
        mark();
        eventLog.deleteEvents();
        for (const QString& name : logFiles())
            QFile::remove(file(QStringLiteral("Log/") + name));
    }

private:
    void TestBody() override {}
};

} // namespace fuzz
