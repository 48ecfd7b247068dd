#include "events/LineSplitter.h"

#include <QStringList>
#include <gmock/gmock.h>
#include <vector>

using events::LineSplitter;

namespace {

struct Row
{
    QByteArray bytes;
    std::vector<QByteArray> lines;
};

std::vector<QByteArray> split(const QByteArray& bytes, qsizetype step, qsizetype most = 1000)
{
    LineSplitter splitter(most);
    std::vector<QByteArray> lines;
    const auto take = [&](QByteArrayView line) { lines.push_back(line.toByteArray()); };
    for (qsizetype at = 0; at < bytes.size(); at += step)
        splitter.feed(QByteArrayView(bytes).sliced(at, std::min(step, bytes.size() - at)), take);
    splitter.feed({}, take);
    splitter.finish(take);
    return lines;
}

class LineSplitterTest : public testing::TestWithParam<Row>
{
};

TEST_P(LineSplitterTest, CutsAlikeHoweverTheBytesArrive)
{
    for (qsizetype step = 1; step <= GetParam().bytes.size() + 1; ++step)
        EXPECT_EQ(split(GetParam().bytes, step), GetParam().lines) << "by " << step;
}

INSTANTIATE_TEST_SUITE_P(
    Ends, LineSplitterTest,
    testing::Values(Row{"", {}}, Row{"one\n", {"one"}}, Row{"one\ntwo\n", {"one", "two"}},
                    Row{"one\ntwo", {"one", "two"}}, // cut off in mid-line
                    Row{"one\r\ntwo\r\n", {"one", "two"}}, Row{"one\rtwo\r", {"one", "two"}},
                    Row{"one\r\ntwo\nthree\rfour", {"one", "two", "three", "four"}}, Row{"\n", {""}},
                    Row{"\r\n", {""}}, Row{"\r\r\n\n", {"", "", ""}}, Row{"one\n\ntwo", {"one", "", "two"}},
                    Row{"one\r\n\r\ntwo", {"one", "", "two"}}, Row{"\none", {"", "one"}},
                    Row{QByteArray("a\0b\n", 4), {QByteArray("a\0b", 3)}}));

TEST(LineSplitter, KeepsOnlyTheStartOfALineWithoutEnd)
{
    const QByteArray bytes = QByteArray(50, 'a') + "\nb\n" + QByteArray(50, 'c');
    for (const qsizetype step : {1, 7, 10, 11})
        EXPECT_EQ(split(bytes, step, 10),
                  (std::vector<QByteArray>{QByteArray(10, 'a'), "b", QByteArray(10, 'c')}));
}

TEST(LineSplitter, ANewStreamBeginsAfresh)
{
    LineSplitter splitter(100);
    std::vector<QByteArray> lines;
    const auto take = [&](QByteArrayView line) { lines.push_back(line.toByteArray()); };
    splitter.feed("one\r", take);
    splitter.finish(take);
    splitter.feed("\ntwo", take);
    splitter.finish(take);
    EXPECT_EQ(lines, (std::vector<QByteArray>{"one", "", "two"}));
}

} // namespace
