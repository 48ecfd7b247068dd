#include "texts/TextFile.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

QString ownTexts(const char* language)
{
    return QStringLiteral("own_texts/%1.txt").arg(language);
}

// The numbered places of a text, sorted: "%2 of %1" gives %1, %2.
QStringList places(const QString& text)
{
    QStringList found;
    QRegularExpressionMatchIterator all = QRegularExpression("%\\d+").globalMatch(text);
    while (all.hasNext()) {
        found << all.next().captured();
    }
    std::sort(found.begin(), found.end());
    return found;
}

class OwnTexts : public testing::TestWithParam<const char*>
{
protected:
    const TextFile english_ = readTexts(ownTexts("EN"));
    const TextFile texts_ = readTexts(ownTexts(GetParam()));
};

TEST_P(OwnTexts, HoldTheSameKeysInTheSameOrder)
{
    EXPECT_EQ(texts_.strays, QStringList());
    EXPECT_FALSE(english_.heads.isEmpty());
    EXPECT_EQ(texts_.heads, english_.heads);
    EXPECT_EQ(texts_.texts.size(), texts_.heads.size()) << "a key stands twice";
}

TEST_P(OwnTexts, NameKeysInLowerCaseWithPoints)
{
    const QRegularExpression key("^[a-z]+(\\.[a-z]+)+$");
    for (const QString& head : texts_.heads) {
        EXPECT_TRUE(head.contains(key)) << qPrintable(head);
    }
}

TEST_P(OwnTexts, LeaveTheSamePlacesForValues)
{
    for (const QString& key : english_.heads) {
        EXPECT_EQ(places(texts_.texts[key]), places(english_.texts[key])) << qPrintable(key);
    }
}

TEST_P(OwnTexts, SayEverything)
{
    for (const QString& key : english_.heads) {
        EXPECT_FALSE(texts_.texts[key].trimmed().isEmpty()) << qPrintable(key);
    }
}

// A button is called the same by the catalogue, by this file and by the messages that tell to press it.
TEST_P(OwnTexts, CallButtonsAsTheCatalogueDoes)
{
    const TextFile catalogue = readTexts(QStringLiteral("texts/%1.txt").arg(GetParam()));
    EXPECT_EQ(texts_.texts["common.ok"], catalogue.texts["13"]);
    EXPECT_EQ(texts_.texts["common.cancel"], catalogue.texts["14"]);
    EXPECT_TRUE(catalogue.texts["572"].contains(texts_.texts["common.yes"]));
    EXPECT_TRUE(catalogue.texts["573"].contains(texts_.texts["common.no"]));
    EXPECT_TRUE(catalogue.texts["574"].contains(texts_.texts["common.cancel"]));
    const QString connect = QString(catalogue.texts["268"]).remove('&');
    EXPECT_TRUE(texts_.texts["console.hint.connect"].contains(connect)) << qPrintable(connect);
}

INSTANTIATE_TEST_SUITE_P(Languages, OwnTexts, testing::Values("EN", "IT", "RU"),
                         [](const auto& info) { return std::string(info.param); });

} // namespace
