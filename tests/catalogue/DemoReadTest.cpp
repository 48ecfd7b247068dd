#include "catalogue/tool/Checks.h"
#include "catalogue/tool/MemoryWriter.h"
#include "tests/catalogue/Published.h"

#include "instrument/MemoryFile.h"
#include "support/BusFixture.h"

namespace catalogue {
namespace {

using testing::mayBeUnknown;
using testing::published;

// The demo company in the program, its instruments' memories behind the virtual instrument on a cable.
class DemoReadTest : public support::BusFixture, public ::testing::WithParamInterface<int>
{
protected:
    DemoReadTest()
    {
        writeCompany(published().demo, published().catalogue, published().model, demoFile());
        writeMemory(published().demo, published().catalogue, demoFile(), file("instrument.txt"));
        database.Disconnect_Database();
        connectTo("Demo.mdb");
        instrument::Options options;
        options.link = instrument::LinkMode::Cable;
        options.group = GetParam();
        peer = std::make_unique<support::InstrumentPeer>(
            clock, port, instrument::loadMemoryFile(file("instrument.txt")), options);
    }

    QString demoFile() const { return file("Data/Demo.mdb"); }
    int countInPlant(const QString& condition) const
    {
        const QString sql = QString("SELECT Count(*) FROM tbParametersUser WHERE IDGrp = %1 AND %2");
        return support::column(demoFile(), sql.arg(GetParam()).arg(condition)).value(0).toInt();
    }
};

// Nothing is left unread: each parameter is marked and emptied first, and has a value and no mark afterwards.
TEST_P(DemoReadTest, readsEveryInstrumentByItsBanks)
{
    support::runSql(demoFile(), "UPDATE tbParametersUser SET Value = NULL, State = 1");
    openConsole(QString("1_%1").arg(GetParam()));
    connectOverCable();
    console.Read_Param();
    ASSERT_TRUE(waitWhileBusy());
    EXPECT_GT(countInPlant("State = 0"), 300);
    EXPECT_EQ(countInPlant("State <> 0"), 0);
    EXPECT_EQ(countInPlant("Value IS NULL AND IDPar NOT IN (" + mayBeUnknown() + ")"), 0);
    console.Disconnect();
    ASSERT_TRUE(waitWhileBusy());
}

// Whoever just looks at the program hears an alarm within two minutes.
TEST_P(DemoReadTest, takesDownTheCallThatComesInByItself)
{
    openConsole(QString("1_%1").arg(GetParam()));
    clock.run(120000);
    EXPECT_EQ(status(), 0);
    EXPECT_EQ(panels.picture(bus::Panel::Allarm), bus::images::kAlarm);
    QStringList alarms;
    for (const QString& line : logLines())
        alarms << support::descriptionOf(line);
    EXPECT_TRUE(alarms.contains("TERMICA DEL VENTILATORE 3")) << alarms.join('\n').toStdString();
}

INSTANTIATE_TEST_SUITE_P(Plants, DemoReadTest, ::testing::Range(1, 7));

} // namespace
} // namespace catalogue
