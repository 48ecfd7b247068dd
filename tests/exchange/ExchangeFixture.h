#pragma once

#include "exchange/Export.h"
#include "exchange/Import.h"
#include "platform/VirtualClock.h"
#include "support/CompanyFixture.h"

#include <QDir>
#include <QFile>

namespace exchange {

inline constexpr int kTextFilter = 1;
inline constexpr int kCommaFilter = 2;
inline constexpr int kDataTraceFilter = 3;
inline constexpr int kSpreadsheetFilter = 4;

// A company with an operator who may do everything, and the two ways of its plants out and in.
class ExchangeFixture : public support::CompanyFixture
{
protected:
    // Replaces what the company holds by one group of two instruments.
    void makeSmallPlant()
    {
        runOnPlant("DELETE FROM tbParametersUser; DELETE FROM tbInstrumentsUser; DELETE FROM tbGroupsUser;"
                   "INSERT INTO tbGroupsUser VALUES (4, 'North', 'Market, old', '0551');"
                   "INSERT INTO tbInstrumentsUser VALUES (4, 2, 'KT100', 'Cold 1', NULL, '10'),"
                   " (4, 7, 'KT200', 'Case', 'Fish', NULL);"
                   "INSERT INTO tbParametersUser VALUES (4, 2, 'P0101', 'G01', '12.3', 1),"
                   " (4, 2, 'P0202', 'G02', '3', 0), (4, 2, 'P0302', 'G03', NULL, 2),"
                   " (4, 7, 'P1102', 'G11', '300', 0);");
    }
    // The connected company, standing on a node of its tree.
    void standOn(const QString& key)
    {
        ASSERT_TRUE(connectPlant());
        structure.clickNode(key);
        op.forms.clear();
    }
    void exportTo(const QString& path, int filter, const QString& message)
    {
        op.chooseFile(path, filter);
        op.expect(message);
        exporting.Export_Item();
    }
    QByteArray exported(int filter)
    {
        const QString path = file("Data/export.out");
        exportTo(path, filter, texts(509));
        return contents(path);
    }
    static QByteArray contents(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
        return file.readAll();
    }
    QString makeFile(const QByteArray& bytes)
    {
        QFile made(file("Data/import.dat"));
        EXPECT_TRUE(made.open(QIODevice::WriteOnly));
        made.write(bytes);
        return made.fileName();
    }
    QStringList filesIn(const QString& below) const { return QDir(file(below)).entryList(QDir::Files); }
    // A text in a field of its own.
    static QByteArray at(const QByteArray& text, int width) { return text.leftJustified(width, ' '); }

    platform::VirtualClock clock;
    Export exporting{{session, texts, op, clock, structure}};
    Import importing{{session, texts, op, structure}};
};

} // namespace exchange
