#include "catalogue/tool/Source.h"
#include "tests/catalogue/Sources.h"

#include <gmock/gmock.h>

namespace catalogue {
namespace {

using testing::SourceFolder;

QStringList textsOf(const std::vector<Line>& lines)
{
    QStringList texts;
    for (const Line& line : lines)
        texts << line.text;
    return texts;
}

std::vector<Line> linesOf(const SourceFolder& folder)
{
    Problems problems;
    std::vector<Line> lines = readSource(folder.path(), QStringLiteral("a.txt"), problems);
    if (!problems.empty())
        throw Refused(std::move(problems));
    return lines;
}

TEST(Source, leavesOutCommentsAndEmptyLines)
{
    SourceFolder folder;
    folder.write("a.txt", "# comment\n\none\n   # another\n  two\n");
    const std::vector<Line> lines = linesOf(folder);
    EXPECT_EQ(textsOf(lines), QStringList({"one", "two"}));
    EXPECT_FALSE(lines[0].indented);
    EXPECT_TRUE(lines[1].indented);
    EXPECT_EQ(lines[1].origin.line, 5);
}

TEST(Source, writesRepeatsOutOneInsideTheOther)
{
    SourceFolder folder;
    folder.write("a.txt", "repeat n 1..2\nx{n}\nrepeat m 0..1\ny{n}{m}\nend\nend\nz\n");
    EXPECT_EQ(textsOf(linesOf(folder)), QStringList({"x1", "y10", "y11", "x2", "y20", "y21", "z"}));
}

TEST(Source, letsAnIncludedFileSeeTheNamesKnownHere)
{
    SourceFolder folder;
    folder.write("a.txt", "let t 5\ninclude sub/b.txt\nlast\n");
    folder.write("sub/b.txt", "P{t:02}\n");
    const std::vector<Line> lines = linesOf(folder);
    EXPECT_EQ(textsOf(lines), QStringList({"P05", "last"}));
    EXPECT_EQ(lines[0].origin.file, QString("sub/b.txt"));
}

TEST(Source, readsOnBehindAMistake)
{
    SourceFolder folder;
    folder.write("a.txt", "one {x}\ntwo\ninclude none.txt\nrepeat n 1..x\nthree\nend\nfour {x}\n");
    Problems problems;
    const std::vector<Line> lines = readSource(folder.path(), "a.txt", problems);
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_TRUE(lines[0].unreadable);
    EXPECT_EQ(lines[1].text, QString("two"));
    EXPECT_FALSE(lines[1].unreadable);
    std::vector<std::string> told;
    for (const Problem& problem : problems)
        told.push_back(problem.text().toStdString());
    // An unknown name is told once.
    EXPECT_THAT(told, ::testing::ElementsAre("a.txt:1: \"x\" is not known here",
                                             ::testing::StartsWith("a.txt:3: \"none.txt\" cannot be read"),
                                             "a.txt:4: \"x\" is not a whole number"));
}

TEST(Source, namesAFileThatIsNotThere)
{
    SourceFolder folder;
    EXPECT_THAT(testing::refusal([&] { linesOf(folder); }),
                ::testing::StartsWith("a.txt: \"" + folder.file("a.txt").toStdString()));
}

struct Broken
{
    const char* text;
    const char* reason;
};

class BrokenSource : public ::testing::TestWithParam<Broken>
{
};

TEST_P(BrokenSource, isRefusedAtItsLine)
{
    SourceFolder folder;
    folder.write("a.txt", GetParam().text);
    EXPECT_THAT(testing::refusal([&] { linesOf(folder); }), ::testing::HasSubstr(GetParam().reason));
}

INSTANTIATE_TEST_SUITE_P(
    Lines, BrokenSource,
    ::testing::Values(Broken{"x\nend\n", "a.txt:2: \"end\" without \"repeat\""},
                      Broken{"repeat n 1..2\nx\n", "a.txt:1: a \"repeat\" that nothing ends"},
                      Broken{"repeat n 1\nx\nend\n", "a.txt:1: a repeat runs over a range"},
                      Broken{"repeat n a..2\nx\nend\n", "a.txt:1: \"a\" is not a whole number"},
                      Broken{"let t\n", "a.txt:1: \"let\" needs a name and a value"},
                      Broken{"let 5 t\n", "a.txt:1: \"let\" needs a name"},
                      Broken{"let t x\n", "a.txt:1: \"x\" is not a whole number"},
                      Broken{"one\ninclude b.txt\n", "a.txt:2: \"b.txt\" cannot be read"},
                      Broken{"include a.txt\n", "a.txt:1: \"a.txt\" includes itself"}));

} // namespace
} // namespace catalogue
