#pragma once

#include "values/Coding.h"

#include <initializer_list>

namespace values {

// Lines that the tests of both directions share.

inline ParameterCoding onLine(const char* type, const char* keyType, int LW, int HW, double LR, double HR,
                              double LL, double HL)
{
    ParameterCoding coding;
    coding.Type = type;
    coding.KeyType = keyType;
    coding.LW = LW;
    coding.HW = HW;
    coding.LR = LR;
    coding.HR = HR;
    coding.LL = LL;
    coding.HL = HL;
    return coding;
}

inline ParameterCoding tenths(const char* type)
{
    return onLine(type, "REAL", 0, 255, 0, 25.5, 5, 25);
}

// 300 seconds a count: 21 hours and a quarter at the top.
inline ParameterCoding fiveMinutes(const char* type, const char* keyType)
{
    return onLine(type, keyType, 0, 255, 0, 76500, 0, 76500);
}

inline ParameterCoding signedByte()
{
    return onLine("S_BYTE", "REAL", -128, 127, -128, 127, -50, 100);
}

inline ParameterCoding bcd()
{
    return onLine("BCD", "REAL", 0, 999, 0, 99.9, 0, 90);
}

inline ParameterCoding word(const char* type)
{
    return onLine(type, "REAL", 0, 65535, 0, 6553.5, 0, 6000);
}

inline ParameterCoding integer(const char* type)
{
    return onLine(type, "REAL", -32768, 32767, -32768, 32767, -100, 100);
}

inline ParameterCoding bits(int first, int count)
{
    ParameterCoding coding = onLine("BIT", "ENUM", 0, 7, 0, 7, 0, 7);
    coding.BitFirst = first;
    coding.BitCount = count;
    return coding;
}

inline QByteArray bytes(std::initializer_list<int> codes)
{
    QByteArray run;
    for (const int code : codes)
        run += static_cast<char>(code);
    return run;
}

} // namespace values
