#include "platform/Operator.h"

#include "platform/ScriptedOperator.h"

#include <gmock/gmock.h>

using namespace platform;

namespace {

TEST(BusyPointer, StandsUntilTheOutermostJobHasEnded)
{
    ScriptedOperator op;
    {
        const BusyPointer outer(op);
        EXPECT_EQ(op.pointer, Pointer::Hourglass);
        {
            const BusyPointer inner(op);
            EXPECT_EQ(op.pointer, Pointer::Hourglass);
        }
        EXPECT_EQ(op.pointer, Pointer::Hourglass);
    }
    EXPECT_EQ(op.pointer, Pointer::Default);
}

TEST(BusyPointer, CoversThePointerBetweenTheJobs)
{
    ScriptedOperator op;
    op.setPointer(Pointer::ArrowHourglass);
    EXPECT_EQ(op.pointer, Pointer::ArrowHourglass);
    {
        const BusyPointer busy(op);
        EXPECT_EQ(op.pointer, Pointer::Hourglass);
        op.setPointer(Pointer::Default);
        EXPECT_EQ(op.pointer, Pointer::Hourglass);
        op.setPointer(Pointer::ArrowHourglass);
    }
    EXPECT_EQ(op.pointer, Pointer::ArrowHourglass);
}

TEST(DialogPointer, TakesTheHourglassAwayWhileItStands)
{
    ScriptedOperator op;
    op.setPointer(Pointer::ArrowHourglass);
    {
        const BusyPointer busy(op);
        const BusyPointer inner(op);
        {
            const DialogPointer dialog(op);
            EXPECT_EQ(op.pointer, Pointer::ArrowHourglass);
            {
                const BusyPointer ownJob(op);
                EXPECT_EQ(op.pointer, Pointer::Hourglass);
            }
            EXPECT_EQ(op.pointer, Pointer::ArrowHourglass);
            op.setPointer(Pointer::Default);
            EXPECT_EQ(op.pointer, Pointer::Default) << "the line has become free under the dialog";
        }
        EXPECT_EQ(op.pointer, Pointer::Hourglass);
    }
    EXPECT_EQ(op.pointer, Pointer::Default);
}

// A desktop hears of the pointer only when it changes.
TEST(BusyPointer, TellsNothingTwice)
{
    class Counting : public ScriptedOperator
    {
    public:
        int told = 0;

    protected:
        void showPointer(Pointer) override { ++told; }
    };
    Counting op;
    op.setPointer(Pointer::Default);
    EXPECT_EQ(op.told, 0);
    {
        const BusyPointer outer(op);
        const BusyPointer inner(op);
        EXPECT_EQ(op.told, 1);
    }
    EXPECT_EQ(op.told, 2);
}

} // namespace
