#include "values/Numbers.h"

#include "platform/RuntimeError.h"

#include <clocale>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

using namespace values;
namespace errors = platform::errors;

namespace {

struct NumberRow
{
    const char* text;
    double number;
};

TEST(NumbersTest, ReadsNumbers)
{
    const NumberRow rows[] = {
        {"0", 0},
        {"12.3", 12.3},
        {"12,3", 12.3},
        {"-10", -10},
        {"+7", 7},
        {" 42 ", 42},
        {".5", .5},
        {"5.", 5},
        {"-,25", -.25},
        {"1E3", 1000},
        {"1e-3", .001},
        {"1.5E+2", 150},
        {"007", 7},
        {"1E-400", 0},
        {"-1E-400", 0},
        {"0E999999", 0},
        {"0,0000001", 1e-7},
        {"1E308", 1e308},
        {"1E-99999999999999", 0},
    };
    for (const auto& row : rows) {
        EXPECT_TRUE(isNumeric(QString(row.text))) << row.text;
        EXPECT_EQ(toNumber(QString(row.text)), row.number) << row.text;
    }
}

int errorOf(const QString& text)
{
    try {
        toNumber(text);
    } catch (const platform::RuntimeError& error) {
        return error.number;
    }
    return 0;
}

TEST(NumbersTest, RefusesEverythingElse)
{
    for (const char* text :
         {"",    " ",  "-",   "+",   ".",     ",",     "1.2.3", "1,2.3",  "1,234,567", "1 2", "- 1",
          "--1", "1-", "E5",  "1E",  "1E+",   "1E1.5", "0x10",  "&H10",   "1d3",       "abc", "12a",
          "$5",  "5%", "inf", "nan", "--.--", "\t1",   "1\n",   "\u0663", "\u22121"}) {
        EXPECT_FALSE(isNumeric(QString::fromUtf8(text))) << text;
        EXPECT_EQ(errorOf(QString::fromUtf8(text)), errors::kTypeMismatch) << text;
    }
}

TEST(NumbersTest, ANumberBeyondADoubleIsNone)
{
    for (const QString& text : {QString("1E309"), QString("-1E309"), QString("1E99999999999999"),
                                QString(400, '9'), QString(400, '9') + "E-10", QString("0.001E400")}) {
        EXPECT_FALSE(isNumeric(text)) << text.toStdString();
        EXPECT_EQ(errorOf(text), errors::kOverflow) << text.toStdString();
    }
    EXPECT_EQ(toNumber("0." + QString(400, '0') + "1"), 0);
}

TEST(NumbersTest, WritesUpToFifteenDigits)
{
    const NumberRow rows[] = {
        {"0", 0.0},
        {"0", -0.0},
        {"12.3", 12.3},
        {"466", 466},
        {"466", 466.0000000000001},
        {"-10", -10},
        {"0.1", 0.1},
        {"0.3", 0.1 + 0.2},
        {"0.333333333333333", 1.0 / 3},
        {"0.0001", 0.0001},
        {"9.99E-05", 0.0000999},
        {"1E-05", 0.00001},
        {"999999999999999", 999999999999999.0},
        {"1E+15", 1e15},
        {"-1E+15", -1e15},
        {"1E+15", 999999999999999.9},
        {"1.23456789012346E+20", 123456789012345678901.0},
        {"1E+100", 1e100},
        {"1.79769313486232E+308", std::numeric_limits<double>::max()},
    };
    for (const auto& row : rows)
        EXPECT_EQ(toText(row.number).toStdString(), row.text);
}

TEST(NumbersTest, WritesNoNumberThatIsNotFinite)
{
    EXPECT_THROW(toText(std::numeric_limits<double>::infinity()), platform::RuntimeError);
    EXPECT_THROW(toText(std::numeric_limits<double>::quiet_NaN()), platform::RuntimeError);
}

TEST(NumbersTest, FifteenDigitsAreWhatTheTextSays)
{
    std::mt19937_64 random(15);
    std::uniform_real_distribution<double> mantissa(-10, 10);
    std::uniform_int_distribution<int> exponent(-20, 20);
    for (int round = 0; round < 20000; ++round) {
        const double number = mantissa(random) * std::pow(10, exponent(random));
        const QString text = toText(number);
        EXPECT_EQ(toFifteenDigits(number), toNumber(text));
        EXPECT_EQ(toStored(number).text, text);
        EXPECT_EQ(toStored(number).number, toNumber(text));
        EXPECT_EQ(toText(toNumber(text)), text);
        EXPECT_NEAR(toNumber(text), number, std::abs(number) * 1e-14);
    }
}

TEST(NumbersTest, HalvesGoToTheEvenNeighbour)
{
    const struct
    {
        double number, rounded;
    } rows[] = {{0.5, 0},  {1.5, 2},    {2.5, 2},    {-0.5, 0}, {-1.5, -2},   {-2.5, -2},   {0.49, 0},
                {0.51, 1}, {-0.51, -1}, {-1e-20, 0}, {7, 7},    {254.5, 254}, {255.5, 256}, {1e17, 1e17}};
    for (const auto& row : rows)
        EXPECT_EQ(roundHalfEven(row.number), row.rounded) << row.number;
}

TEST(NumbersTest, AnIntegerHasThirtyTwoBits)
{
    EXPECT_EQ(toInteger(2147483647.4), 2147483647);
    EXPECT_EQ(toInteger(-2147483648.5), std::numeric_limits<int>::min());
    EXPECT_THROW(toInteger(2147483647.5), platform::RuntimeError);
    EXPECT_THROW(toInteger(-2147483649.0), platform::RuntimeError);
    EXPECT_THROW(toInteger(std::numeric_limits<double>::quiet_NaN()), platform::RuntimeError);
}

// Puts the process into a locale with a decimal comma, if the machine has one; the results must not notice.
TEST(NumbersTest, AsksNoLocale)
{
    const std::string former = std::setlocale(LC_ALL, nullptr);
    for (const char* name : {"it_IT.UTF-8", "de_DE.UTF-8", "ru_RU.UTF-8", "fr_FR.UTF-8"})
        if (std::setlocale(LC_ALL, name))
            break;
    EXPECT_EQ(toText(12.3), "12.3");
    EXPECT_EQ(toNumber(QString("12.3")), 12.3);
    EXPECT_EQ(toNumber(QString("12,3")), 12.3);
    std::setlocale(LC_ALL, former.c_str());
}

} // namespace
