#include "session/Charset.h"

#include "platform/CodePage.h"
#include "session/Session.h"

#include <algorithm>
#include <iterator>

namespace session {

namespace {

struct Row
{
    int localeId;
    int charset;
};

constexpr Row kCharsets[] = {
    {1025, 178},  {2049, 178},  {3073, 178},  {4097, 178},  {5121, 178},  {6145, 178},  {7169, 178},
    {8193, 178},  {9217, 178},  {10241, 178}, {11265, 178}, {12289, 178}, {13313, 178}, {14337, 178},
    {15361, 178}, {16385, 178}, {1028, 136},  {1029, 238},  {1038, 238},  {1045, 238},  {1051, 238},
    {1032, 161},  {1037, 177},  {1041, 128},  {1042, 129},  {1049, 204},  {1058, 204},  {1059, 204},
    {1060, 204},  {1061, 204},  {1062, 204},  {1063, 204},  {3098, 204},  {1054, 222},  {1055, 162},
    {2052, 134},  {3076, 134},  {4100, 134},
};

} // namespace

int charsetOfLocale(int localeId)
{
    const auto row = std::find_if(std::begin(kCharsets), std::end(kCharsets),
                                  [=](const Row& known) { return known.localeId == localeId; });
    return row == std::end(kCharsets) ? 0 : row->charset;
}

void applyMachineLocale(Session& session, int localeId)
{
    session.Charset = charsetOfLocale(localeId);
    session.CodePage = platform::codePageOf(session.Charset);
}

} // namespace session
