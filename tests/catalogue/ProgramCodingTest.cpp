#include "tests/catalogue/ProgramCoding.h"
#include "catalogue/tool/Checks.h"
#include "catalogue/tool/Coding.h"
#include "tests/catalogue/Published.h"

namespace catalogue {
namespace {

using testing::codingOf;
using testing::published;

// The catalogue's own reading of an instrument's memory and the program's are two; they must agree.
TEST(ProgramCoding, decodesEveryParameterAsTheCatalogueMeansIt)
{
    forEachParameter(published().catalogue, [](const Type&, const Group&, const Parameter& parameter) {
        if (parameter.wire == "STRING")
            return;
        const auto [first, last] = rawRange(parameter);
        const int stride = (last - first) / 128 + 1;
        for (int raw = first; raw <= last; raw += stride) {
            if (parameter.key.startsWith("TIME") && engineering(parameter, raw) >= 86400)
                continue; // kept out by the limits, but composed before they are looked at
            const QByteArray bytes = bytesOf(parameter, raw);
            ASSERT_EQ(values::Compose_EngVal(bytes, codingOf(parameter)),
                      decoded(parameter, bytes).value_or(QString("")))
                << parameter.id.toStdString() << " count " << raw;
        }
    });
}

TEST(ProgramCoding, encodesEveryStandardValueToItsBytes)
{
    forEachParameter(published().catalogue, [](const Type&, const Group&, const Parameter& parameter) {
        if (!parameter.standard || !hasEncoder(parameter) || parameter.wire == "STRING")
            return;
        const QByteArray bytes = bytesOf(parameter, *rawOf(parameter, *parameter.standard));
        if (parameter.wire == "BIT") {
            QString andMask;
            QString orMask;
            values::Compose_Byte(*parameter.standard, parameter.bitFirst, parameter.bitCount, andMask,
                                 orMask);
            EXPECT_EQ(orMask.toInt(nullptr, 2), static_cast<quint8>(bytes[0])) << parameter.id.toStdString();
        } else {
            EXPECT_EQ(values::Extract_EngVal(*parameter.standard, codingOf(parameter)).toHex(), bytes.toHex())
                << parameter.id.toStdString();
        }
    });
}

} // namespace
} // namespace catalogue
