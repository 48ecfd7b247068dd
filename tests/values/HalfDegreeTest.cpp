#include "values/HalfDegree.h"

#include <gtest/gtest.h>

using values::halfDegreeRule;

namespace {

TEST(HalfDegreeTest, TemperaturesGoUpToTheNextHalfDegree)
{
    const std::pair<double, double> rows[] = {
        {20, 20},   {20.2, 20.5}, {20.5, 20.5}, {20.50001, 21}, {20.7, 21}, {20.00001, 20.5},
        {-1.2, -1}, {-1.5, -1.5}, {-1.7, -1.5}, {-2, -2},       {0, 0},     {-0.1, 0},
    };
    for (const auto& [number, stored] : rows)
        EXPECT_EQ(halfDegreeRule(number, QStringLiteral("\u00B0C")), stored) << number;
}

TEST(HalfDegreeTest, OtherUnitsKeepTheirNumbers)
{
    for (const QString& unit : {QString(), QString("C"), QStringLiteral("\u00B0F"),
                                QStringLiteral("\u00B0C "), QStringLiteral("\u00B0c"), QStringLiteral("K")})
        EXPECT_EQ(halfDegreeRule(20.2, unit), 20.2) << qPrintable(unit);
}

} // namespace
