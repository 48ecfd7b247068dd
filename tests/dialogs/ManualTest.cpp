#include "dialogs/Manual.h"

#include "session/Session.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

using dialogs::Manual;

namespace {

class ManualText : public testing::TestWithParam<const char*>
{
protected:
    ManualText() { session.Language = session::LanguageSettings::fromIdentifier(GetParam()); }

    QString pathOf(const QString& chapter) const { return manual.address(chapter).mid(3); }
    QString textOf(const QString& chapter) const
    {
        QFile file(pathOf(chapter));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(chapter);
        return QString::fromUtf8(file.readAll());
    }
    // What "(...)" holds behind "[...]" everywhere in the chapter.
    QStringList targetsIn(const QString& chapter) const
    {
        static const QRegularExpression kTarget(R"(\]\(([^)]+)\))");
        QStringList targets;
        const QString text = textOf(chapter);
        for (auto found = kTarget.globalMatch(text); found.hasNext();)
            targets << found.next().captured(1);
        return targets;
    }
    // The texts of a block as a reader knows them: without mnemonics, places of values and what ends them.
    static QSet<QString> shownTexts(const QString& block)
    {
        QFile file(block);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(block);
        QSet<QString> shown;
        for (const QString& line : QString::fromUtf8(file.readAll()).split('\n')) {
            if (line.contains('"') && !line.startsWith('#'))
                shown << withoutEnd(line.section('"', 1, -2).remove('&').remove("%1"));
        }
        return shown;
    }
    static QString withoutEnd(QString text)
    {
        static const QRegularExpression kEnd("[:. ]+$");
        return text.remove(kEnd).trimmed();
    }
    static QString desktopName(const QString& language)
    {
        QFile entry(CALIDORA_DEMO_ENTRY);
        EXPECT_TRUE(entry.open(QIODevice::ReadOnly));
        const QString name = language == "en" ? "\nName=" : "\nName[" + language + "]=";
        return QString::fromUtf8(entry.readAll()).section(name, 1).section('\n', 0, 0);
    }
    static int headings(const QString& text) { return int(text.count(QRegularExpression("(^|\n)#+ "))); }

    session::Session session;
    Manual manual{session};
};

TEST_P(ManualText, HasTheSameChaptersAsTheEnglishOne)
{
    session::Session inEnglish;
    inEnglish.Language = session::LanguageSettings::fromIdentifier("EN_English_2000");
    const Manual english(inEnglish);
    EXPECT_GE(manual.chapters().size(), 17);
    EXPECT_EQ(manual.chapters(), english.chapters());
    for (const QString& chapter : manual.chapters()) {
        QFile file(english.address(chapter).mid(3));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(headings(textOf(chapter)), headings(QString::fromUtf8(file.readAll())))
            << qPrintable(chapter);
        EXPECT_EQ(textOf(chapter).count("!["), targetsIn(chapter).filter(".png").size());
    }
}

TEST_P(ManualText, EachPictureAndLinkResolves)
{
    int pictures = 0;
    for (const QString& chapter : manual.chapters()) {
        const QDir folder = QFileInfo(pathOf(chapter)).dir();
        for (const QString& target : targetsIn(chapter)) {
            EXPECT_TRUE(QFile::exists(QDir::cleanPath(folder.filePath(target))))
                << qPrintable(chapter) << ": " << qPrintable(target);
            if (target.endsWith(".png")) {
                ++pictures;
                EXPECT_TRUE(target.contains("/pictures/" + session.Language.Code.toLower() + '/'))
                    << qPrintable(target) << " is another language's";
            }
        }
    }
    EXPECT_GE(pictures, 20);
}

TEST_P(ManualText, NoPictureLiesThereForNothing)
{
    QString all;
    for (const QString& chapter : manual.chapters())
        all += textOf(chapter);
    const QDir folder(":/manual/pictures/" + session.Language.Code.toLower());
    for (const QString& picture : folder.entryList({"*.png"}))
        EXPECT_TRUE(all.contains('/' + picture + ')')) << qPrintable(picture);
}

TEST_P(ManualText, EachChapterHasATitleOfItsOwn)
{
    QStringList titles;
    for (const QString& chapter : manual.chapters())
        titles << manual.title(chapter);
    titles.sort();
    EXPECT_FALSE(titles.contains(""));
    EXPECT_EQ(titles.removeDuplicates(), 0);
    EXPECT_FALSE(titles.join("").contains('#'));
}

// What is set in bold is a word of the program's windows, or of the desktop's menu.
TEST_P(ManualText, EachNameStandsInTheProgram)
{
    const QString code = session.Language.Code;
    QSet<QString> names{"Calidora"};
    for (const QString& file :
         {":/texts/" + code + ".txt", QStringLiteral(":/texts/common.txt"), ":/own_texts/" + code + ".txt"})
        names += shownTexts(file);
    names << desktopName(code.toLower());
    static const QRegularExpression kName(R"(\*\*([^*]+)\*\*)");
    int found = 0;
    for (const QString& chapter : manual.chapters()) {
        const QString text = textOf(chapter);
        for (auto bold = kName.globalMatch(text); bold.hasNext();) {
            const QString words = bold.next().captured(1).simplified();
            if (words.endsWith('.') && !words.endsWith("..."))
                continue; // a sentence that must not be missed
            ++found;
            EXPECT_TRUE(names.contains(withoutEnd(words)))
                << qPrintable(chapter) << ": " << qPrintable(words);
        }
    }
    EXPECT_GE(found, 100);
}

INSTANTIATE_TEST_SUITE_P(Languages, ManualText,
                         testing::Values("EN_English_2000", "IT_Italiano_1000", "RU_Russian_6000"));

class ManualSearch : public testing::Test
{
protected:
    ManualSearch() { session.Language = session::LanguageSettings::fromIdentifier("EN_English_2000"); }

    QStringList found(const QString& words) const
    {
        QStringList all;
        for (const Manual::Hit& hit : manual.search(words))
            all << hit.chapter + ": " + hit.heading;
        return all;
    }

    session::Session session;
    Manual manual{session};
};

TEST_F(ManualSearch, HeadingsComeBeforeTexts)
{
    const QStringList hits = found("safety copies");
    ASSERT_GE(hits.size(), 2);
    EXPECT_EQ(hits[0], "11-safety-copies: Safety copies");
    EXPECT_TRUE(hits.contains("01-first-start: Starting"));
}

TEST_F(ManualSearch, CaseDoesNotMatterAndAllWordsMustBeThere)
{
    EXPECT_EQ(found("MODEM through"), found("through modem"));
    EXPECT_TRUE(found("modem").contains("16-trouble: No connection through the modem"));
    EXPECT_EQ(found("modem nosuchword"), QStringList());
    EXPECT_EQ(found("  "), QStringList());
}

TEST_F(ManualSearch, AWordOfTheHeadingAndOneOfItsTextGoTogether)
{
    EXPECT_FALSE(found("permission ttyUSB0").contains("16-trouble: Permission"));
    EXPECT_TRUE(found("permission dialout").contains("16-trouble: Permission"));
}

TEST_F(ManualSearch, TheExcerptShowsTheWordWithoutMarks)
{
    const std::vector<Manual::Hit> hits = manual.search("dialout");
    ASSERT_FALSE(hits.empty());
    EXPECT_TRUE(hits[0].excerpt.contains("dialout")) << qPrintable(hits[0].excerpt);
    EXPECT_FALSE(hits[0].excerpt.contains('`'));
    EXPECT_LE(hits[0].excerpt.size(), 120);
    EXPECT_TRUE(hits[0].excerpt.startsWith("... ")) << qPrintable(hits[0].excerpt);
    EXPECT_TRUE(hits[0].excerpt.endsWith("..."));
}

TEST_F(ManualSearch, PicturesAndAddressesAreNotSearched)
{
    EXPECT_EQ(found("png"), QStringList());
    EXPECT_EQ(found("07-operators.md"), QStringList());
}

TEST_F(ManualSearch, FollowsTheLanguage)
{
    session.Language = session::LanguageSettings::fromIdentifier("RU_Russian_6000");
    EXPECT_TRUE(found("оттайки").contains("03-editing: Копирование блока"));
    EXPECT_EQ(manual.title("17-keys"), "Клавиши");
}

TEST_F(ManualSearch, AnUnknownLanguageReadsEnglish)
{
    session.Language.Code = "XX";
    EXPECT_EQ(manual.title("17-keys"), "Keys");
}

TEST(ManualChapters, AWindowLeadsToItsOwn)
{
    EXPECT_EQ(Manual::chapterOf("frmReadWrite"), "04-reading-and-writing");
    EXPECT_EQ(Manual::chapterOf("messageBox"), "16-trouble");
    EXPECT_EQ(Manual::chapterOf("frmNobody"), "");
}

} // namespace
