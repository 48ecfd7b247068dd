#include "catalogue/tool/Checks.h"
#include "catalogue/tool/Coding.h"
#include "tests/catalogue/Published.h"

#include <QRegularExpression>
#include <QSet>
#include <gmock/gmock.h>

namespace catalogue {
namespace {

using testing::published;

TEST(PublishedCatalogue, keepsEveryRule)
{
    for (const Problem& problem : problemsOf(published().catalogue))
        ADD_FAILURE() << problem.text().toStdString();
}

TEST(PublishedCatalogue, isTheRangeThatWasPromised)
{
    QSet<QString> tags;
    for (const Type& type : published().catalogue.types)
        tags.insert(type.tag);
    EXPECT_GE(tags.size(), 13);
    EXPECT_TRUE(tags.contains("ALIEN"));
    size_t parameters = 0;
    forEachParameter(published().catalogue,
                     [&](const Type&, const Group&, const Parameter&) { ++parameters; });
    EXPECT_GE(parameters, 900u);
}

TEST(PublishedCatalogue, usesEveryWireTypeAndEveryKey)
{
    QSet<QString> wires;
    QSet<QString> keys;
    QSet<int> banks;
    bool hasRamOnly = false;
    bool hasWideField = false;
    forEachParameter(published().catalogue, [&](const Type&, const Group&, const Parameter& parameter) {
        wires.insert(parameter.wire);
        keys.insert(parameter.key);
        banks.insert(parameter.bank);
        hasRamOnly = hasRamOnly || (parameter.editable && parameter.writeCmd == 0);
        hasWideField = hasWideField || parameter.bitCount > 1;
    });
    EXPECT_EQ(wires, QSet<QString>(
                         {"BYTE", "S_BYTE", "BIT", "BCD", "WORD_L", "WORD_H", "INT_L", "INT_H", "STRING"}));
    EXPECT_EQ(keys, QSet<QString>({"REAL", "ENUM", "STRING", "TIME_H", "TIME_HM", "TIME_HMS"}));
    EXPECT_GE(banks.size(), 2);
    EXPECT_TRUE(hasRamOnly);
    EXPECT_TRUE(hasWideField);
}

// Every count whose value lies between the limits comes back from its bytes; a decoded value never exceeds
// them.
TEST(PublishedCatalogue, decodesWhatLiesOnItsScale)
{
    forEachParameter(published().catalogue, [](const Type&, const Group&, const Parameter& parameter) {
        if (parameter.wire == "STRING")
            return;
        const auto [first, last] = rawRange(parameter);
        const int stride = (last - first) / 512 + 1;
        for (int raw = first; raw <= last; raw += stride) {
            const double value = engineering(parameter, raw);
            const std::optional<QString> text = decoded(parameter, bytesOf(parameter, raw));
            const bool isInside = value >= parameter.low && value <= parameter.high;
            const std::optional<QString> wanted =
                isInside ? std::optional(valueText(parameter, raw)) : std::nullopt;
            if (isInside || (value > parameter.high && parameter.wire != "BIT")) {
                ASSERT_EQ(text, wanted) << parameter.id.toStdString() << " count " << raw;
            }
        }
    });
}

TEST(PublishedCatalogue, encodesItsStandardValuesAndReadsThemBack)
{
    size_t encoded = 0;
    forEachParameter(published().catalogue, [&](const Type&, const Group&, const Parameter& parameter) {
        if (!parameter.standard || !hasEncoder(parameter) || parameter.standard->startsWith('@'))
            return;
        ++encoded;
        if (parameter.wire == "STRING") {
            const QByteArray bytes = parameter.standard->toLatin1().leftJustified(parameter.size, ' ');
            EXPECT_EQ(decoded(parameter, bytes), parameter.standard) << parameter.id.toStdString();
            return;
        }
        const std::optional<int> raw = rawOf(parameter, *parameter.standard);
        ASSERT_TRUE(raw) << parameter.id.toStdString();
        EXPECT_EQ(decoded(parameter, bytesOf(parameter, *raw)), parameter.standard)
            << parameter.id.toStdString();
    });
    EXPECT_GT(encoded, 500u);
}

TEST(PublishedCatalogue, lastByteOfEveryParameterLiesInItsBank)
{
    forEachParameter(published().catalogue, [](const Type&, const Group&, const Parameter& parameter) {
        const Bank* bank = published().catalogue.bank(parameter.bank);
        ASSERT_NE(bank, nullptr);
        EXPECT_GE(parameter.address, bank->start) << parameter.id.toStdString();
        EXPECT_LE(parameter.address + parameter.size, bank->start + bank->size) << parameter.id.toStdString();
    });
}

TEST(PublishedCatalogue, isWrittenInTheLanguageItSays)
{
    const QRegularExpression cyrillic("\\p{Cyrillic}");
    for (const Type& type : published().catalogue.types) {
        EXPECT_TRUE(type.text[2].contains(cyrillic)) << type.tag.toStdString();
        for (const Group& group : type.groups)
            EXPECT_TRUE(group.text[2].contains(cyrillic)) << group.id.toStdString();
    }
    forEachParameter(published().catalogue, [&](const Type&, const Group&, const Parameter& parameter) {
        EXPECT_TRUE(parameter.text[2].contains(cyrillic) || parameter.text[2] == parameter.text[1])
            << parameter.id.toStdString();
    });
}

TEST(PublishedCatalogue, hasASourceForEveryTermOfItsGlossary)
{
    for (const Term& term : published().catalogue.glossary) {
        bool used = false;
        forEachParameter(published().catalogue, [&](const Type&, const Group&, const Parameter& parameter) {
            used = used || parameter.text[1].contains(term.stems[1][0], Qt::CaseInsensitive);
        });
        EXPECT_TRUE(used) << term.origin.line << ": " << term.stems[1][0].toStdString();
    }
}

} // namespace
} // namespace catalogue
