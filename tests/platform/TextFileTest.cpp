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
            writer.WriteLine(QString(size, 'x'));
            number = errorOf([&] { writer.commit(); });
        }
        EXPECT_EQ(number, errors::kDiskFull) << size;
        EXPECT_EQ(folder_.read("text"), "former") << size;
        EXPECT_THAT(folder_.names("."), ElementsAre("text")) << size;
    }
}

TEST_F(TextFileTest, ACharacterThatThePageLacksIsAskedForOrKept)
{
    const auto written = [&](const QString& text, Lacking lacking) {
        TextWriter writer(folder_.file("text"), 1252, "\n");
        writer.WriteLine(text);
        writer.commit(lacking);
        return folder_.read("text");
    };
    EXPECT_EQ(written("à Ж", Lacking::QuestionMark), "\xE0 ?\n");
    EXPECT_EQ(written("à Ж", Lacking::KeptAsUtf8), "\xEF\xBB\xBFà Ж\n");
    EXPECT_EQ(written("à", Lacking::KeptAsUtf8), "\xE0\n");
}

} // namespace
