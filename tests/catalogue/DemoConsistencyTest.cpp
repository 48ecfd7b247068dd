// A demo is looked at by people who know such plants: what an instrument says in one place it doesn't deny in
// another.
#include "tests/catalogue/Published.h"

namespace catalogue {
namespace {

using testing::published;

constexpr const char* kValues =
    "CREATE TEMP VIEW v AS SELECT IDGrp, IDInst, IDPar AS p, CAST(Value AS REAL) AS x FROM tbParametersUser "
    "WHERE Value IS NOT NULL";

struct Contradiction
{
    const char* name;
    const char* sql; // one row for each, as a text
};

std::ostream& operator<<(std::ostream& out, const Contradiction& contradiction)
{
    return out << contradiction.name;
}

class DemoConsistency : public ::testing::TestWithParam<Contradiction>
{
};

TEST_P(DemoConsistency, isKept)
{
    SQLite::Database company = testing::opened(published().company);
    company.exec(kValues);
    EXPECT_EQ(testing::column(company, GetParam().sql), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Rules, DemoConsistency,
                         ::testing::Values(Contradiction{"aValueLiesBetweenItsOwnLimitsAndExtremes", R"(
            WITH triples(value, low, high) AS (VALUES
                ('P020101', 'P020103', 'P020104'), ('P020501', 'P020413', 'P020412'),
                ('P030101', 'P030103', 'P030104'), ('P030601', 'P030517', 'P030516'),
                ('P040101', 'P040104', 'P040105'), ('P060101', 'P060103', 'P060104'),
                ('P060118', 'P066003', 'P066004'))
            SELECT a.IDGrp || '_' || a.IDInst || ' ' || a.p || ' = ' || a.x
            FROM triples
            JOIN v a ON a.p = value
            JOIN v lowest ON lowest.p = low AND lowest.IDGrp = a.IDGrp AND lowest.IDInst = a.IDInst
            JOIN v highest ON highest.p = high AND highest.IDGrp = a.IDGrp AND highest.IDInst = a.IDInst
            WHERE NOT a.x BETWEEN lowest.x AND highest.x)"},
                                           Contradiction{"aLoggedTemperatureLiesBetweenThoseOfTheDay", R"(
            SELECT a.IDGrp || '_' || a.IDInst || ' ' || a.p || ' = ' || a.x
            FROM v a
            JOIN v lowest ON lowest.IDGrp = a.IDGrp AND lowest.IDInst = a.IDInst AND lowest.p = substr(a.p, 1, 5) || '14'
            JOIN v highest ON highest.IDGrp = a.IDGrp AND highest.IDInst = a.IDInst AND highest.p = substr(a.p, 1, 5) || '13'
            WHERE a.p LIKE 'P08__11' AND NOT a.x BETWEEN lowest.x AND highest.x)"},
                                           Contradiction{"superheatIsTheDifferenceOfTwoTemperatures", R"(
            WITH triples(superheat, gas, evaporation) AS (VALUES
                ('P050501', 'P050502', 'P050504'), ('P065003', 'P065002', 'P060119'))
            SELECT a.IDGrp || '_' || a.IDInst || ' ' || a.p || ' = ' || a.x
            FROM triples
            JOIN v a ON a.p = superheat
            JOIN v g ON g.p = gas AND g.IDGrp = a.IDGrp AND g.IDInst = a.IDInst
            JOIN v e ON e.p = evaporation AND e.IDGrp = a.IDGrp AND e.IDInst = a.IDInst
            WHERE abs(a.x - (g.x - e.x)) > 0.01)"},
                                           Contradiction{"aPacksPowerIsThatOfItsCompressors", R"(
            SELECT a.IDGrp || '_' || a.IDInst || ' ' || a.x
            FROM v a
            WHERE a.p = 'P066002' AND abs(a.x - (SELECT sum(x) FROM v b
                WHERE b.IDGrp = a.IDGrp AND b.IDInst = a.IDInst AND b.p LIKE 'P06__28')) > 0.01)"},
                                           Contradiction{"aPacksCapacityIsThatOfItsRunningCompressors", R"(
            SELECT a.IDGrp || '_' || a.IDInst || ' ' || a.x
            FROM v a JOIN v fitted USING (IDGrp, IDInst)
            WHERE a.p = 'P060120' AND fitted.p = 'P060116' AND abs(a.x - 100.0 / fitted.x * (SELECT Count(*) FROM v b
                WHERE b.IDGrp = a.IDGrp AND b.IDInst = a.IDInst AND b.p LIKE 'P06__18' AND b.x = 3)) > 0.1)"},
                                           Contradiction{"onlyARunningCompressorHasItsContactorClosed", R"(
            SELECT a.IDGrp || '_' || a.IDInst || ' ' || a.p
            FROM v a JOIN v contactor USING (IDGrp, IDInst)
            WHERE a.p LIKE 'P06__18' AND contactor.p = substr(a.p, 1, 5) || '23' AND (a.x = 3) <> (contactor.x = 1))"},
                                           Contradiction{"aCabinetsControlTemperatureIsTheWeightedMean", R"(
            SELECT a.IDGrp || '_' || a.IDInst || ' ' || a.x
            FROM v a JOIN v day USING (IDGrp, IDInst) JOIN v off USING (IDGrp, IDInst) JOIN v air USING (IDGrp, IDInst)
            WHERE a.p = 'P040704' AND day.p = 'P040109' AND off.p = 'P040701' AND air.p = 'P040702'
                AND abs(a.x - (day.x * off.x + (100 - day.x) * air.x) / 100) > 0.06)"},
                                           Contradiction{"aGatewayKnowsHowManyAnswer", R"(
            SELECT a.IDGrp || ' ' || a.p || ' = ' || a.x
            FROM v a
            WHERE a.p IN ('P010102', 'P010107')
                AND a.x <> (SELECT Count(*) - 1 FROM tbInstrumentsUser i WHERE i.IDGrp = a.IDGrp))"},
                                           Contradiction{"nothingRanLongerThanItsInstrument", R"(
            SELECT a.IDGrp || '_' || a.IDInst || ' ' || a.p || ' = ' || a.x
            FROM v a JOIN v hours USING (IDGrp, IDInst)
            WHERE hours.p LIKE '%9005' AND a.x > hours.x AND (a.p LIKE 'P06__24' OR a.p LIKE 'P071_10'
                OR a.p IN ('P020601', 'P030701', 'P040801', 'P040802', 'P050601', 'P110701', 'P110702')))"},
                                           Contradiction{"anInstrumentWithAnAlarmIsInAlarm", R"(
            SELECT DISTINCT a.IDGrp || '_' || a.IDInst || ' ' || a.p
            FROM v a JOIN v status USING (IDGrp, IDInst) JOIN tbParamEnum e ON e.mKeyParam = a.p AND e.mValue = a.x
            JOIN tbParamEnumLanguage l ON l.mID = e.mID AND l.mKeyLang = 'EN' AND l.mDesc = 'Alarm'
            WHERE status.p LIKE '%9001' AND status.x <> 2 AND a.p NOT LIKE 'P020511')"},
                                           Contradiction{"aDoorOpenTooLongIsOpen", R"(
            SELECT a.IDGrp || '_' || a.IDInst
            FROM v a JOIN v door USING (IDGrp, IDInst)
            WHERE a.p = 'P020409' AND a.x = 1 AND door.p = 'P020508' AND door.x <> 0)"}),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace
} // namespace catalogue
