#include "platform/TextFile.h"

#include "support/ApplicationFolder.h"
#include "support/FullDisk.h"
#include "support/Throws.h"

#include <gmock/gmock.h>

using namespace platform;
using support::errorOf;
using testing::ElementsAre;

namespace {

class TextFileTest : public testing::Test
{
protected:
    std::vector<std::string> linesOf(const QByteArray& bytes, int codePage = 1252)
    {
        folder_.write("text", bytes);
        TextReader reader(folder_.file("text"), codePage);
        std::vector<std::string> lines;
        while (!reader.AtEndOfStream())
            lines.push_back(reader.ReadLine().toStdString());
        return lines;
    }

    support::ApplicationFolder folder_;
};

TEST_F(TextFileTest, ReadsLinesOfEitherLineEnd)
{
    EXPECT_THAT(linesOf(""), ElementsAre());
    EXPECT_THAT(linesOf("a\nb\n"), ElementsAre("a", "b"));
    EXPECT_THAT(linesOf("a\r\nb"), ElementsAre("a", "b"));
    EXPECT_THAT(linesOf("\n\r\nx "), ElementsAre("", "", "x "));
}

// The kernel's own folder takes no file of anybody, not even of the administrator.
TEST_F(TextFileTest, AFolderThatTakesNoFilesDeniesPermission)
{
    EXPECT_EQ(errorOf([] { TextWriter("/sys/calidora.log", 1252); }), errors::kPermissionDenied);
    EXPECT_EQ(errorOf([&] { TextWriter(folder_.file("missing/x.log"), 1252); }), errors::kPathNotFound);
}

TEST_F(TextFileTest, ReadsInTheCodePageUnlessTheFileIsMarkedAsUtf8)
{
    EXPECT_THAT(linesOf("\xE0", 1252), ElementsAre("à"));
    EXPECT_THAT(linesOf("\xE0", 1251), ElementsAre("а"));
    EXPECT_THAT(linesOf("\xEF\xBB\xBFЁ à\n", 1252), ElementsAre("Ё à"));
}

TEST_F(TextFileTest, ReadingPastTheEndFails)
{
    folder_.write("text", "one\n");
    TextReader reader(folder_.file("text"), 1252);
    reader.ReadLine();
    EXPECT_EQ(errorOf([&] { reader.ReadLine(); }), kInputPastEnd);
}

TEST_F(TextFileTest, WhatCantBeOpenedFailsWithItsReason)
{
    EXPECT_EQ(errorOf([&] { TextReader(folder_.file("none"), 1252); }), errors::kFileNotFound);
    EXPECT_EQ(errorOf([&] { TextReader(folder_.file("no/none"), 1252); }), errors::kPathNotFound);
    EXPECT_EQ(errorOf([&] { TextWriter(folder_.file("no/none"), 1252); }), errors::kPathNotFound);
    EXPECT_NE(errorOf([&] { TextReader(folder_.file("Data"), 1252); }), 0);
}

TEST_F(TextFileTest, ReplacesTheFileOnlyAtTheCommit)
{
    folder_.write("text", "former");
    {
        TextWriter abandoned(folder_.file("text"), 1252);
        abandoned.WriteLine("half");
    }
    EXPECT_EQ(folder_.read("text"), "former");
    EXPECT_THAT(folder_.names("."), ElementsAre("text"));

    TextWriter writer(folder_.file("text"), 1252, "\r\n");
    writer.WriteLine("è");
    writer.WriteLine("");
    EXPECT_EQ(folder_.read("text"), "former");
    writer.commit();
    EXPECT_EQ(folder_.read("text"), "\xE8\r\n\r\n");
}

TEST_F(TextFileTest, AFullDiskLeavesTheFormerFile)
{
    folder_.write("text", "former");
    for (int size : {2000, 100000}) {
        int number = 0;
        {
            support::FullDisk full(1000);
            TextWriter writer(folder_.file("text"), 1252);
            number = errorOf([&] {
                writer.WriteLine(QString(size, 'x'));
                writer.commit();
            });
        }
        EXPECT_EQ(number, errors::kDiskFull) << size;
        EXPECT_EQ(folder_.read("text"), "former") << size;
        EXPECT_THAT(folder_.names("."), ElementsAre("text")) << size;
    }
}

TEST_F(TextFileTest, ALongFileFailsAtTheLineThatFindsTheDiskFull)
{
    support::FullDisk full(100'000);
    TextWriter writer(folder_.file("text"), 1252);
    int written = 0;
    EXPECT_EQ(errorOf([&] {
                  for (; written < 1000; ++written)
                      writer.WriteLine(QString(999, 'x'));
              }),
              errors::kDiskFull);
    EXPECT_GE(written, 99);
    EXPECT_LT(written, 150) << "a full disk isn't kept for the end";
}

TEST_F(TextFileTest, ALongFileStandsWholeAtTheCommitOnly)
{
    folder_.write("text", "former");
    TextWriter writer(folder_.file("text"), 1252, "\n");
    for (int line = 0; line < 1000; ++line)
        writer.WriteLine(QString(99, 'x'));
    EXPECT_EQ(folder_.read("text"), "former");
    writer.commit();
    EXPECT_EQ(folder_.read("text"), (QByteArray(99, 'x') + '\n').repeated(1000));
    EXPECT_THAT(folder_.names("."), ElementsAre("text"));
}

TEST_F(TextFileTest, ACharacterThatThePageLacksIsAskedForOrKeptInUtf8)
{
    const auto written = [&](int codePage) {
        TextWriter writer(folder_.file("text"), codePage, "\n");
        writer.WriteLine("à Ж");
        writer.WriteLine("x");
        writer.commit();
        return folder_.read("text");
    };
    EXPECT_EQ(written(1252), "\xE0 ?\nx\n");
    EXPECT_EQ(written(kUtf8WithMark), "\xEF\xBB\xBFà Ж\nx\n");
}

} // namespace
