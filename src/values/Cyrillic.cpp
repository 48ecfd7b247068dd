#include "values/Cyrillic.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace values {

namespace {

constexpr int kHalf = 128;

// Stands for a code without a counterpart, so that it stays visible on the display and in the list.
constexpr uchar kNoCounterpart = '!';

struct CodePair
{
    uchar from;
    uchar to;
};

// Display codes: capital and small Yo, then the capital and the small letters in the order of the alphabet.
constexpr CodePair kOut[] = {
    {168, 162}, {184, 181}, {192, 65},  {193, 160}, {194, 66},  {195, 161}, {196, 224}, {197, 69},
    {198, 163}, {199, 164}, {200, 165}, {201, 166}, {202, 75},  {203, 167}, {204, 77},  {205, 72},
    {206, 79},  {207, 168}, {208, 80},  {209, 67},  {210, 84},  {211, 169}, {212, 170}, {213, 88},
    {214, 225}, {215, 171}, {216, 172}, {217, 226}, {218, 173}, {219, 174}, {220, 98},  {221, 175},
    {222, 176}, {223, 177}, {224, 97},  {225, 178}, {226, 179}, {227, 180}, {228, 227}, {229, 101},
    {230, 182}, {231, 183}, {232, 184}, {233, 185}, {234, 186}, {235, 187}, {236, 188}, {237, 189},
    {238, 111}, {239, 190}, {240, 112}, {241, 99},  {242, 191}, {243, 121}, {244, 228}, {245, 120},
    {246, 229}, {247, 192}, {248, 193}, {249, 230}, {250, 194}, {251, 195}, {252, 196}, {253, 197},
    {254, 198}, {255, 199},
};

// Instrument codes of the upper half.
constexpr CodePair kIn[] = {
    {160, 193}, {161, 195}, {162, 168}, {163, 198}, {164, 199}, {165, 200}, {166, 201}, {167, 203},
    {168, 207}, {169, 211}, {170, 212}, {171, 215}, {172, 216}, {173, 218}, {174, 219}, {175, 221},
    {176, 222}, {177, 223}, {178, 225}, {179, 226}, {180, 227}, {181, 184}, {182, 230}, {183, 231},
    {184, 232}, {185, 233}, {186, 234}, {187, 235}, {188, 236}, {189, 237}, {190, 239}, {191, 242},
    {192, 247}, {193, 248}, {194, 250}, {195, 251}, {196, 252}, {197, 253}, {198, 254}, {199, 255},
    {224, 196}, {225, 214}, {226, 217}, {227, 228}, {228, 244}, {229, 246}, {230, 249},
};

// Instrument codes that are Latin letters, and their look-alikes. Those of I, J, S, i, j and s have no way
// back.
constexpr CodePair kInLowerHalf[] = {
    {65, 192},  {66, 194},  {67, 209},  {69, 197},  {72, 205},  {73, 178},  {74, 163},  {75, 202},
    {77, 204},  {79, 206},  {80, 208},  {83, 189},  {84, 210},  {88, 213},  {89, 211},  {97, 224},
    {98, 226},  {99, 241},  {101, 229}, {104, 237}, {105, 179}, {106, 188}, {107, 234}, {109, 236},
    {111, 238}, {112, 240}, {115, 190}, {116, 242}, {120, 245}, {121, 243},
};

using UpperHalf = std::array<uchar, kHalf>;

struct Tables
{
    UpperHalf out;
    UpperHalf in;
};

template <std::size_t Count>
constexpr UpperHalf tableOf(const CodePair (&pairs)[Count])
{
    UpperHalf table{};
    table.fill(kNoCounterpart);
    for (const CodePair& pair : pairs)
        table[pair.from - kHalf] = pair.to;
    return table;
}

// Both tables, made while the program is built.
constexpr Tables Inizialize_RUChr()
{
    return {tableOf(kOut), tableOf(kIn)};
}

constexpr Tables kTables = Inizialize_RUChr();

uchar displayOfLatin(uchar code)
{
    const auto found = std::find_if(std::begin(kInLowerHalf), std::end(kInLowerHalf),
                                    [code](const CodePair& pair) { return pair.from == code; });
    return found == std::end(kInLowerHalf) ? code : found->to;
}

template <class Translation>
QByteArray translated(QByteArray text, Translation translation)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [&](char byte) { return static_cast<char>(translation(static_cast<uchar>(byte))); });
    return text;
}

} // namespace

QByteArray Translate_RUChrOut(QByteArray text)
{
    return translated(std::move(text),
                      [](uchar code) { return code < kHalf ? code : kTables.out[code - kHalf]; });
}

QByteArray Translate_RUChrIn(QByteArray text)
{
    return translated(std::move(text), [](uchar code) {
        return code < kHalf ? displayOfLatin(code) : kTables.in[code - kHalf];
    });
}

} // namespace values
