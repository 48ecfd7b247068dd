#include "platform/Words.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace platform;

namespace {

TEST(Words, FillTheirPlacesAndGoBackToTheFormer)
{
    const Words former = setWords([](const QString& name) { return name + " of %2 in %1, %1"; });
    EXPECT_EQ(inWords("cut", {"a %2 b", "c"}), "cut of c in a %2 b, a %2 b");
    EXPECT_EQ(inWords("cut", {"a"}), "cut of %2 in a, a");
    try {
        failInWords(errors::kDiskFull, "x");
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number, errors::kDiskFull);
        EXPECT_EQ(error.description, "x of %2 in %1, %1");
    }
    EXPECT_TRUE(setWords(former));
}

TEST(Words, WordsThatFailDontHideTheFailure)
{
    const Words former = setWords([](const QString&) -> QString { fail(errors::kOutOfRange, "no text"); });
    EXPECT_EQ(inWords("file.locked", {"a"}), "file.locked: a");
    setWords(former);
}

TEST(Words, WithoutALanguageTheNameAndItsValuesAreTold)
{
    const Words former = setWords({});
    EXPECT_EQ(inWords("file.locked", {"a", "b"}), "file.locked: a, b");
    setWords(former);
}

} // namespace
