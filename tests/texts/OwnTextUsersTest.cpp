#include "texts/TextFile.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

// All of the program's sources, one behind the other.
QString sources()
{
    QString all;
    QDirIterator files(QStringLiteral(CALIDORA_RESOURCES "/.."), {"*.cpp", "*.h"}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (file.open(QIODevice::ReadOnly))
            all += QString::fromUtf8(file.readAll());
    }
    return all;
}

TEST(OwnTextUsers, EachTextIsFetchedSomewhere)
{
    const QString program = sources();
    ASSERT_GT(program.size(), 100'000);
    for (const QString& name : readTexts("own_texts/EN.txt").heads)
        EXPECT_TRUE(program.contains('"' + name + '"')) << "nobody fetches " << name.toStdString();
}

// The names that the lower floors fail under have their words.
TEST(OwnTextUsers, EachFailureHasItsWords)
{
    const TextFile texts = readTexts("own_texts/EN.txt");
    const QRegularExpression call(
        "(?:inWords|failInWords|words_)\\([^\"()]*(?:errors::\\w+, *)?\"([a-z.]+)\"");
    int calls = 0;
    for (auto match = call.globalMatch(sources()); match.hasNext(); ++calls) {
        const QString name = match.next().captured(1);
        EXPECT_TRUE(texts.texts.contains(name)) << name.toStdString();
    }
    EXPECT_GT(calls, 10);
}

} // namespace
