#pragma once

#include "history/HistoryModel.h"
#include "history/HistoryPage.h"
#include "history/Recorder.h"
#include "platform/VirtualClock.h"
#include "support/CompanyFixture.h"

namespace support {

// The small company with somebody who takes notes of it.
class HistoryFixture : public CompanyFixture
{
protected:
    HistoryFixture() { connectPlant(); }

    // Changes one value, and lets a minute pass.
    void edit(const QString& IDPar, const QString& value, int state = 1,
              values::ValueCause cause = values::ValueCause::Edited, const QString& element = "1_1")
    {
        const values::Causing causing(session.cnDatabase, cause);
        session.cnDatabase.Execute(
            QStringLiteral(
                "UPDATE tbParametersUser SET Value = %1, State = %2 WHERE IDGrp = %3 AND IDInst = %4 AND "
                "IDPar = '%5';")
                .arg(value == "NULL" ? value : '\'' + value + '\'')
                .arg(state)
                .arg(element[0], element[2], IDPar));
        clock.run(60'000);
    }
    history::PageRequest request(const QString& key) const
    {
        return {plantFile(), session.Language.Code, key, false, false, {}};
    }
    static history::HistoryPage read(const history::PageRequest& request)
    {
        return history::readHistory(request, false);
    }
    // "EN T1: 12.3 °C > 5.0 °C", the newest first.
    static QStringList told(const history::HistoryPage& page)
    {
        QStringList lines;
        for (const history::ShownNote& note : page.notes)
            lines << note.parameter + ": " + note.oldShown + " > " + note.newShown;
        return lines;
    }

    platform::VirtualClock clock;
    history::Recorder recorder{session, clock};
};

} // namespace support
