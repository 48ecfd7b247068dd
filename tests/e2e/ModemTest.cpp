#include "e2e/RealLine.h"
#include "e2e/SoftModem.h"

#include <unistd.h>

using namespace e2e;
using bus::ActionCode;

namespace {

class ModemTest : public RealLine
{
protected:
    void SetUp() override
    {
        if (!SoftModem::isInstalled())
            GTEST_SKIP() << "iaxmodem is not installed";
        if (geteuid() != 0)
            GTEST_SKIP() << "iaxmodem runs for root alone";
        modem.emplace(portLink());
        ASSERT_TRUE(waitUntil([this] { return modem->isReady(); }));
        ASSERT_TRUE(open());
    }

    std::optional<SoftModem> modem;
};

TEST_F(ModemTest, AcceptsEveryCommandOfTheSetUpAndDials)
{
    openConsole("3_1_1_G01");
    console.Connect();
    ASSERT_TRUE(waitFor(ActionCode::Dialling));
    const auto& said = port.exchanges();

    const QByteArray expected[] = {"+++",    "ATH\r",   "AT\r",    "ATZ\r",
                                   "ATE0\r", "AT&D0\r", "AT&K0\r", "ATD0551234567\r"};
    ASSERT_EQ(said.size(), std::size(expected));
    for (std::size_t i = 0; i < said.size(); ++i)
        EXPECT_EQ(said[i].sent, expected[i]);
    for (std::size_t i = 1; i <= 5; ++i)
        EXPECT_TRUE(said[i].reply.contains("OK")) << said[i].sent.constData() << said[i].reply.constData();
    // Any character behind the last command lets the program dial, so that reply may come in two halves.
    EXPECT_TRUE(waitUntil([&] { return (said[6].reply + said[7].reply).contains("OK"); }));
    EXPECT_FALSE(said[6].reply.isEmpty());
    EXPECT_EQ(logged().last(), "Compose phone number: 0551234567");
}

TEST_F(ModemTest, IsAnsweredWhenItRings)
{
    Caller caller(modem->linePort());
    caller.ring();
    ASSERT_TRUE(waitUntil([&] {
        if (caller.wasRefused())
            caller.ring();
        return bus.actionCode() == ActionCode::CallWaiting;
    }));
    EXPECT_EQ(status(), 2);
    EXPECT_EQ(panels.text(bus::Panel::Info), "Incaming allarms...");
    EXPECT_EQ(panels.picture(bus::Panel::COMSet), bus::images::kPortBusy);

    ASSERT_TRUE(waitFor(ActionCode::CallAnswering));
    ASSERT_FALSE(port.exchanges().empty());
    EXPECT_EQ(port.exchanges().back().sent, "ATA\r");
    EXPECT_TRUE(waitUntil([&] { return caller.wasAnswered(); }))
        << "the exchange did not see the modem pick up";
}

} // namespace
