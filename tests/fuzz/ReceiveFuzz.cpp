#include "fuzz/Workbench.h"

#include <algorithm>

namespace {

using bus::ActionCode;

struct Bench : fuzz::Workbench
{
    Bench()
    {
        runOnPlant("UPDATE tbParametersUser SET State = 1 WHERE IDPar IN ('P0201', 'P0202', 'P0204')");
    }

    // The first byte chooses what the line is doing; the rest arrives in pieces, each behind two bytes that
    // tell its size and the pause in front of it. Whatever came, the operator finds the way back to an idle
    // line.
    void run(const QByteArray& input)
    {
        reach(uchar(input[0]) % 14, uchar(input[0]) / 14 % 4);
        for (qsizetype at = 1; at + 2 < input.size();) {
            const int size = uchar(input[at]) % 64;
            clock.run(uchar(input[at + 1]) * 40);
            arrives(input.mid(at + 2, size));
            at += 2 + size;
        }
        clock.run(1000);
        if (status() > 0)
            bus.truncateConnection();
        clock.run(70000);
        bus.Delete_Allarms();
        fuzz::require(status() == 0);
        fuzz::require(bus.actionCode() == ActionCode::Idle || bus.actionCode() == ActionCode::Polling);
        tidy();
    }

private:
    void reach(int state, int item)
    {
        const char* const items[] = {"1_1", "3_1_1_G01", "3_1_1_G02", "2_1_2"};
        openConsole(items[item]);
        const bool cable = state != 1 && state != 2 && state != 3;
        if (model.simulatorPressed() != cable) {
            bus.parTrasm().Simulator = cable;
            console.Set_Simulator(false);
        }
        switch (state) {
        case 0:
            return console.Connect();
        case 1:
            return console.Connect();
        case 2:
            return dial();
        case 3:
            dial();
            arrives("CONNECT");
            return console.Disconnect();
        case 4:
            connectByHand();
            return console.Disconnect();
        case 5:
            connectByHand();
            return clock.run(30000);
        case 6:
            connectByHand();
            console.Read_Param();
            return clock.run(3000);
        case 7:
        case 8:
        case 9:
        case 10:
            return write(state);
        case 11:
            return arrives("RING");
        case 12:
            arrives("RING");
            return clock.run(3000);
        case 13:
            return arrives("ATD");
        }
    }
    void dial()
    {
        console.Connect();
        for (int step = 0; step < 5; ++step) {
            arrives("OK");
            clock.run(2000);
        }
        arrives("O");
    }
    void write(int state)
    {
        const ActionCode codes[] = {ActionCode::WritingRam, ActionCode::MergingRam, ActionCode::WritingEeprom,
                                    ActionCode::Checking};
        runOnPlant("UPDATE tbParametersUser SET State = 1 WHERE IDPar IN ('P0201', 'P0202')");
        connectByHand();
        console.Write_Param();
        const ActionCode wanted = codes[state - 7];
        for (int step = 0; step < 40 && bus.actionCode() != wanted; ++step) {
            clock.run(3000);
            arrives("\x55\x06");
        }
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static Bench bench;
    if (size > 0)
        bench.run(fuzz::bytesOf(data, std::min<size_t>(size, 400)));
    return 0;
}
