// Compose_EngVal and Extract_EngVal by wire type: values a second.

#include "values/Coding.h"

#include <benchmark/benchmark.h>

namespace {

using values::ParameterCoding;

// A scale of counts that stands for one of engineering values, and no limit on the way.
ParameterCoding coding(const char* keyType, const char* wireType, int size, int highCount, double highValue)
{
    ParameterCoding coding;
    coding.KeyType = QString::fromLatin1(keyType);
    coding.Type = QString::fromLatin1(wireType);
    coding.Size = size;
    coding.HW = highCount;
    coding.HR = coding.HL = highValue;
    return coding;
}

ParameterCoding bitField()
{
    ParameterCoding field = coding("ENUM", "BIT", 1, 255, 255);
    field.BitFirst = 2;
    field.BitCount = 3;
    return field;
}

ParameterCoding signedByte()
{
    ParameterCoding byte = coding("REAL", "S_BYTE", 1, 127, 127);
    byte.LW = -128;
    byte.LR = -128;
    return byte;
}

void compose(benchmark::State& state, const ParameterCoding& coding, const QByteArray& raw)
{
    if (values::Compose_EngVal(raw, coding).isEmpty())
        state.SkipWithError("the bytes give no value");
    for (auto _ : state)
        benchmark::DoNotOptimize(values::Compose_EngVal(raw, coding));
    state.SetItemsProcessed(state.iterations());
}

void extract(benchmark::State& state, const ParameterCoding& coding, const QString& value)
{
    if (values::Extract_EngVal(value, coding).size() != coding.Size)
        state.SkipWithError("the value gives no bytes");
    for (auto _ : state)
        benchmark::DoNotOptimize(values::Extract_EngVal(value, coding));
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK_CAPTURE(compose, BYTE, coding("REAL", "BYTE", 1, 255, 51), "\x7B");
BENCHMARK_CAPTURE(compose, BYTE_as_TIME_HM, coding("TIME_HM", "BYTE", 1, 144, 86400), "\x1B");
BENCHMARK_CAPTURE(compose, S_BYTE, signedByte(), "\xE4");
BENCHMARK_CAPTURE(compose, BIT, bitField(), "\x5C");
BENCHMARK_CAPTURE(compose, BCD, coding("REAL", "BCD", 2, 999, 99.9), QByteArray("\x01\x23", 2));
BENCHMARK_CAPTURE(compose, WORD_L, coding("REAL", "WORD_L", 2, 65535, 6553.5), QByteArray("\x39\x30", 2));
BENCHMARK_CAPTURE(compose, WORD_H, coding("REAL", "WORD_H", 2, 65535, 6553.5), QByteArray("\x30\x39", 2));
BENCHMARK_CAPTURE(compose, INT_L, coding("REAL", "INT_L", 2, 32767, 3276.7), QByteArray("\x39\x30", 2));
BENCHMARK_CAPTURE(compose, INT_H, coding("REAL", "INT_H", 2, 32767, 3276.7), QByteArray("\x30\x39", 2));

BENCHMARK_CAPTURE(extract, BYTE, coding("REAL", "BYTE", 1, 255, 51), "24.6");
BENCHMARK_CAPTURE(extract, BYTE_as_TIME_HM, coding("TIME_HM", "BYTE", 1, 144, 86400), "04:30:00");
BENCHMARK_CAPTURE(extract, WORD_L, coding("REAL", "WORD_L", 2, 65535, 6553.5), "1234.5");
BENCHMARK_CAPTURE(extract, WORD_H, coding("REAL", "WORD_H", 2, 65535, 6553.5), "1234.5");

} // namespace
