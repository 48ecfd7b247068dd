#include "bus/SettingsText.h"

#include "session/Session.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

using bus::settingsText;
using session::COMPortSettings;

namespace {

QString text(qint16 speed, qint16 parity, qint16 dataBit, qint16 stopBit)
{
    COMPortSettings port;
    port.Speed = speed;
    port.Parity = parity;
    port.DataBit = dataBit;
    port.StopBit = stopBit;
    return settingsText(port);
}

TEST(SettingsTextTest, SpeedParityDataBitsAndStopBitsInThisOrder)
{
    EXPECT_EQ(text(5, 2, 3, 0), "9600,N,8,1");
}

TEST(SettingsTextTest, EveryEntryOfTheSpeedTable)
{
    const char* const speeds[] = {"300",   "600",   "1200",   "2400",   "4800",   "9600",  "19200",
                                  "38400", "57600", "115200", "230400", "460800", "921600"};
    for (qint16 i = 0; i < 13; ++i)
        EXPECT_EQ(text(i, 2, 3, 0), QString(speeds[i]) + ",N,8,1");
}

TEST(SettingsTextTest, EveryEntryOfTheOtherTables)
{
    const char* const parities[] = {"E", "O", "N", "M", "S"};
    for (qint16 i = 0; i < 5; ++i)
        EXPECT_EQ(text(0, i, 0, 0), QString("300,%1,5,1").arg(parities[i]));
    for (qint16 i = 0; i < 4; ++i)
        EXPECT_EQ(text(0, 0, i, 0), QString("300,E,%1,1").arg(5 + i));
    const char* const stopBits[] = {"1", "1.5", "2"};
    for (qint16 i = 0; i < 3; ++i)
        EXPECT_EQ(text(0, 0, 0, i), QString("300,E,5,%1").arg(stopBits[i]));
}

TEST(SettingsTextTest, AnIndexOutsideItsTableAddsNothing)
{
    struct
    {
        qint16 speed, parity, dataBit, stopBit;
        const char* expected;
    } const rows[] = {
        {13, 2, 3, 0, ",N,8,1"},   {-1, 2, 3, 0, ",N,8,1"},           {5, 5, 3, 0, "9600,8,1"},
        {5, -1, 3, 0, "9600,8,1"}, {5, 2, 4, 0, "9600,N,1"},          {5, 2, 3, 3, "9600,N,8"},
        {-1, -1, -1, -1, ""},      {32767, 32767, 32767, -32768, ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(text(row.speed, row.parity, row.dataBit, row.stopBit), row.expected);
}

} // namespace
