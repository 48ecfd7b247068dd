#include "events/EventModel.h"

#include "LogText.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <gmock/gmock.h>

using namespace events;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const EventWords kWords{{"Type", "Date", "Source", "Equipment", "Instrument", "Description"},
                        {"", "Information", "Warning", "Error"},
                        {"", "ALLARMS", "READ/WRITE"}};

class EventModelTest : public testing::Test
{
protected:
    EventModelTest() { model_.setWords(kWords); }

    void add(const QByteArray& line)
    {
        model_.store().append(LogLine(line));
        model_.finish();
    }
    void add(const QByteArray& type, const QByteArray& date, const QByteArray& source,
             const QByteArray& equipment, const QByteArray& instrument, const QByteArray& description)
    {
        add(logs::line(type, date, source, equipment, instrument, description));
    }
    void describe(const QList<QByteArray>& descriptions)
    {
        for (const QByteArray& description : descriptions)
            add("1", "14/03/2026 10:20:30", "2", "", "", description);
    }
    QStringList column(EventColumn column) const
    {
        QStringList texts;
        for (int row = 0; row < model_.rowCount(); ++row)
            texts << model_.text(row, column);
        return texts;
    }
    QStringList descriptions() const { return column(EventColumn::Description); }
    // A small plant's events, out of order.
    void addThree()
    {
        add("3", "15/03/2026 00:00:00", "1", "Beta", "zeta", "fire");
        add("1", "14/03/2026 23:59:59", "2", "alpha", "", "Connected.");
        add("2", "16/03/2025 12:00:00", "1", "ALPHA", "Eta", "door");
    }

    EventModel model_;
};

TEST_F(EventModelTest, ShowsWhatALineHolds)
{
    add("3", "14/03/2026 10:20:30", "1", "PLANT", "BOILER", "Caf\xE9 \x80");
    add("9", "", "7", "", "", "");
    EXPECT_EQ(model_.rowCount(), 2);
    EXPECT_EQ(model_.columnCount(), 6);
    QStringList cells;
    for (int column = 0; column < 6; ++column)
        cells << model_.index(0, column).data().toString();
    EXPECT_THAT(cells, ElementsAre("Error", "2026/03/14 10:20:30", "ALLARMS", "PLANT", "BOILER",
                                   QString::fromUtf8("Café €")));
    EXPECT_EQ(model_.index(0, 0).data(EventModel::ImageRole), 3);
    EXPECT_FALSE(model_.index(0, 1).data(EventModel::ImageRole).isValid());
    // What is neither information nor warning is an error; an unknown source has no name.
    EXPECT_EQ(model_.text(1, EventColumn::Type), "Error");
    EXPECT_EQ(model_.text(1, EventColumn::Source), "");
    EXPECT_EQ(model_.text(1, EventColumn::Date), "");
    EXPECT_EQ(model_.headerData(5, Qt::Horizontal, Qt::DisplayRole), "Description");
    EXPECT_FALSE(model_.headerData(6, Qt::Horizontal, Qt::DisplayRole).isValid());
    EXPECT_EQ(model_.rowCount(model_.index(0, 0)), 0);
}

TEST_F(EventModelTest, NamesItsColumnsAndNothingElse)
{
    EXPECT_EQ(model_.headerData(0, Qt::Horizontal, Qt::DisplayRole), "Type");
    EXPECT_EQ(model_.headerData(5, Qt::Horizontal, Qt::DisplayRole), "Description");
    EXPECT_FALSE(model_.headerData(-1, Qt::Horizontal, Qt::DisplayRole).isValid());
    EXPECT_FALSE(model_.headerData(6, Qt::Horizontal, Qt::DisplayRole).isValid());
    EXPECT_FALSE(model_.headerData(0, Qt::Vertical, Qt::DisplayRole).isValid());
    EXPECT_FALSE(model_.headerData(0, Qt::Horizontal, Qt::ToolTipRole).isValid());
}

TEST_F(EventModelTest, KeepsTheLongestEventWhole)
{
    const QByteArray equipment(50, 'e'), instrument(50, 'i'), description(255, 'd');
    for (int i = 0; i < 20000; ++i) // more than one block of memory
        model_.store().append(
            LogLine(logs::line("2", "xx/03/2026 10:20:30", "2", equipment, instrument, description)));
    model_.finish();
    for (const int row : {0, 10485, 19999}) {
        EXPECT_EQ(model_.text(row, EventColumn::Date), "xx/03/2026 10:20:30");
        EXPECT_EQ(model_.text(row, EventColumn::Equipment), equipment);
        EXPECT_EQ(model_.text(row, EventColumn::Instrument), instrument);
        EXPECT_EQ(model_.text(row, EventColumn::Description), description);
        EXPECT_EQ(model_.text(row, EventColumn::Type), "Warning");
        EXPECT_EQ(model_.text(row, EventColumn::Source), "READ/WRITE");
    }
}

TEST_F(EventModelTest, DecodesInTheCodePageOfTheLoad)
{
    model_.clear(1251);
    describe({"\xCA\xCE\xD2\xA8\xCB", "\xEA\xEE\xF2"});
    EXPECT_THAT(descriptions(), ElementsAre(QString::fromUtf8("КОТЁЛ"), QString::fromUtf8("кот")));
    model_.setNeedle(QString::fromUtf8("котё"));
    EXPECT_EQ(model_.rowCount(), 1);
}

TEST_F(EventModelTest, EveryColumnSortsByItsTextsWithoutRegardToCase)
{
    addThree();
    model_.clickColumn(EventColumn::Type);
    EXPECT_THAT(column(EventColumn::Type), ElementsAre("Error", "Information", "Warning"));
    model_.clickColumn(EventColumn::Date);
    EXPECT_THAT(column(EventColumn::Date),
                ElementsAre("2025/03/16 12:00:00", "2026/03/14 23:59:59", "2026/03/15 00:00:00"));
    model_.clickColumn(EventColumn::Source);
    EXPECT_THAT(column(EventColumn::Source), ElementsAre("ALLARMS", "ALLARMS", "READ/WRITE"));
    model_.clickColumn(EventColumn::Equipment);
    EXPECT_EQ(column(EventColumn::Equipment).last(), "Beta");
    model_.clickColumn(EventColumn::Instrument);
    EXPECT_THAT(column(EventColumn::Instrument), ElementsAre("", "Eta", "zeta"));
    model_.clickColumn(EventColumn::Description);
    EXPECT_THAT(descriptions(), ElementsAre("Connected.", "door", "fire"));
}

TEST_F(EventModelTest, ASecondClickTurnsTheOrderAndAnotherColumnAscends)
{
    addThree();
    EXPECT_EQ(model_.sortColumn(), -1);
    model_.clickColumn(EventColumn::Date);
    EXPECT_EQ(model_.sortColumn(), 1);
    EXPECT_TRUE(model_.sortAscending());
    model_.clickColumn(EventColumn::Date);
    EXPECT_FALSE(model_.sortAscending());
    EXPECT_THAT(descriptions(), ElementsAre("fire", "Connected.", "door"));
    model_.clickColumn(EventColumn::Date);
    EXPECT_THAT(descriptions(), ElementsAre("door", "Connected.", "fire"));
    model_.clickColumn(EventColumn::Date);
    model_.clickColumn(EventColumn::Type);
    EXPECT_TRUE(model_.sortAscending());
}

TEST_F(EventModelTest, EqualRowsKeepTheirOrderInEitherDirection)
{
    for (const char* description : {"c", "a", "d", "b"})
        add("1", "14/03/2026 10:20:30", "2", *description < 'c' ? "same" : "SAME", "", description);
    model_.clickColumn(EventColumn::Equipment);
    EXPECT_THAT(descriptions(), ElementsAre("c", "a", "d", "b"));
    model_.clickColumn(EventColumn::Equipment);
    EXPECT_THAT(descriptions(), ElementsAre("c", "a", "d", "b"));
    model_.clickColumn(EventColumn::Description);
    model_.clickColumn(EventColumn::Date);
    EXPECT_THAT(descriptions(), ElementsAre("a", "b", "c", "d"));
}

// A list so long that it is sorted beside the event loop.
class LongEventModelTest : public testing::Test
{
protected:
    LongEventModelTest()
    {
        model_.setWords(kWords);
        fill();
    }
    void fill()
    {
        model_.clear(1252);
        for (const char* description : {"c", "a", "b"})
            model_.store().append(LogLine(logs::line("1", "14/03/2026 10:20:30", "2", "", "", description)));
        model_.finish();
    }
    QString descriptions() const
    {
        QString texts;
        for (int row = 0; row < model_.rowCount(); ++row)
            texts += model_.text(row, EventColumn::Description);
        return texts;
    }
    void wait()
    {
        while (model_.isSorting())
            QCoreApplication::processEvents();
    }

    int argc_ = 0;
    QCoreApplication application_{argc_, nullptr};
    EventModel model_{2};
    QSignalSpy changed_{&model_, &QAbstractItemModel::layoutChanged};
    QSignalSpy sorting_{&model_, &EventModel::sortingChanged};
};

TEST_F(LongEventModelTest, StaysAliveWhileItIsSorted)
{
    model_.clickColumn(EventColumn::Description);
    EXPECT_TRUE(model_.isSorting());
    EXPECT_EQ(sorting_.count(), 1);
    EXPECT_EQ(model_.sortColumn(), 5);
    EXPECT_EQ(descriptions(), "cab");
    model_.setChecked({1}, true);
    model_.setSpan(EventModel::Span{0, 99991231235959});
    const QPersistentModelIndex current = model_.index(0, 5);
    wait();
    EXPECT_EQ(descriptions(), "abc");
    EXPECT_EQ(current.row(), 2);
    EXPECT_TRUE(model_.isChecked(0));
    EXPECT_EQ(model_.checkedCount(), 1);
    EXPECT_EQ(changed_.count(), 1);
    EXPECT_EQ(sorting_.count(), 2);
}

TEST_F(LongEventModelTest, WhatIsNarrowedMeanwhileStaysSo)
{
    model_.clickColumn(EventColumn::Description);
    model_.setNeedle("c");
    wait();
    EXPECT_EQ(descriptions(), "c");
    model_.setNeedle({});
    EXPECT_EQ(descriptions(), "abc");
}

TEST_F(LongEventModelTest, AnotherClickGivesTheFirstSortUp)
{
    model_.clickColumn(EventColumn::Description);
    model_.clickColumn(EventColumn::Description);
    wait();
    EXPECT_EQ(descriptions(), "cba");
    EXPECT_EQ(changed_.count(), 1);
}

TEST_F(LongEventModelTest, ALoadGivesTheSortUpAndSortsWhenItHasEnded)
{
    model_.clickColumn(EventColumn::Description);
    model_.clear(1252);
    EXPECT_FALSE(model_.isSorting());
    QCoreApplication::processEvents();
    EXPECT_EQ(changed_.count(), 0);
    for (const char* description : {"z", "x", "y"})
        model_.store().append(LogLine(logs::line("1", "14/03/2026 10:20:30", "2", "", "", description)));
    model_.grow();
    model_.clickColumn(EventColumn::Description); // the other way round
    EXPECT_FALSE(model_.isSorting()) << "the load may change what would be sorted";
    EXPECT_EQ(descriptions(), "zyx");
    model_.clickColumn(EventColumn::Description);
    model_.store().append(LogLine(logs::line("1", "14/03/2026 10:20:30", "2", "", "", "w")));
    model_.finish();
    EXPECT_EQ(descriptions(), "xyzw");
    wait();
    EXPECT_EQ(descriptions(), "wxyz");
}

TEST_F(LongEventModelTest, AWindowThatClosesTakesNothingAnyMore)
{
    model_.clickColumn(EventColumn::Description);
    model_.resetSort();
    EXPECT_FALSE(model_.isSorting());
    QCoreApplication::processEvents();
    EXPECT_EQ(descriptions(), "cab");
}

TEST_F(LongEventModelTest, AsManyAsAreSortedAtOnceAreNotSortedAside)
{
    EventModel model(3);
    for (const char* description : {"c", "a", "b"})
        model.store().append(LogLine(logs::line("1", "14/03/2026 10:20:30", "2", "", "", description)));
    model.finish();
    model.clickColumn(EventColumn::Description);
    EXPECT_FALSE(model.isSorting());
    EXPECT_EQ(model.text(0, EventColumn::Description), "a");
}

TEST(SortAside, ToldToStopItEnds)
{
    SortAside aside;
    bool taken = false;
    aside.begin(
        {2, 1},
        [](std::vector<quint32>&, const std::atomic<bool>& stop) {
            while (!stop)
                std::this_thread::yield();
        },
        [&taken](const std::vector<quint32>&) { taken = true; });
    EXPECT_TRUE(aside.isBusy());
    aside.giveUp();
    EXPECT_FALSE(aside.isBusy());
    EXPECT_FALSE(taken);
}

TEST_F(EventModelTest, LongTextsSortByEveryCharacter)
{
    const QList<QByteArray> texts{"Parameter value: 10",
                                  "parameter VALUE: 1",
                                  "Parameter value",
                                  "Parameter value: 9",
                                  "Parameter value: 10.5",
                                  "",
                                  "Parameter value: 10, long",
                                  "Parameter value: 10, lone",
                                  "12345678",
                                  "1234567",
                                  "123456789"};
    describe(texts);
    QStringList expected;
    for (const QByteArray& text : texts)
        expected << text;
    std::stable_sort(expected.begin(), expected.end(), [](const QString& a, const QString& b) {
        return QString::compare(a, b, Qt::CaseInsensitive) < 0;
    });
    model_.clickColumn(EventColumn::Description);
    EXPECT_EQ(descriptions(), expected);
    model_.clickColumn(EventColumn::Description);
    std::reverse(expected.begin(), expected.end());
    EXPECT_EQ(descriptions(), expected);
}

TEST_F(EventModelTest, SortsLettersAsTextsWithoutCaseSort)
{
    QList<QByteArray> letters;
    for (int byte = 0x21; byte < 0x100; ++byte)
        letters << QByteArray(1, char(byte));
    for (const int codePage : {1250, 1251, 1252, 1253}) {
        model_.clear(codePage);
        model_.resetSort();
        describe(letters);
        QStringList expected = descriptions();
        std::stable_sort(expected.begin(), expected.end(), [](const QString& a, const QString& b) {
            return QString::compare(a, b, Qt::CaseInsensitive) < 0;
        });
        model_.clickColumn(EventColumn::Description);
        EXPECT_EQ(descriptions(), expected) << codePage;
    }
}

TEST_F(EventModelTest, ManyRowsSortLikeFew)
{
    // Prefixes of every length up to three looks, in any case; many texts come more than once.
    QList<QByteArray> texts;
    quint32 random = 7;
    for (int i = 0; i < 4000; ++i) {
        random = random * 1664525 + 1013904223;
        const QByteArray start = QByteArray(random >> 28 & 15, random >> 20 & 1 ? 'p' : 'P');
        texts << start + QByteArray::number(random >> 12 & 127) + QByteArray(random >> 24 & 7, 'x');
    }
    describe(texts);
    std::vector<std::pair<QString, quint32>> expected;
    for (int row = 0; row < model_.rowCount(); ++row)
        expected.emplace_back(model_.text(row, EventColumn::Description), model_.eventAt(row));
    for (const int sign : {1, -1}) {
        std::stable_sort(expected.begin(), expected.end(), [sign](const auto& a, const auto& b) {
            return QString::compare(a.first, b.first, Qt::CaseInsensitive) * sign < 0;
        });
        model_.clickColumn(EventColumn::Description);
        for (int row = 0; row < model_.rowCount(); ++row)
            ASSERT_EQ(model_.eventAt(row), expected[std::size_t(row)].second) << row;
    }
}

TEST_F(EventModelTest, KnowsItsCellsAndNoOthers)
{
    addThree();
    EXPECT_TRUE(model_.index(2, 5).isValid());
    EXPECT_FALSE(model_.index(3, 0).isValid());
    EXPECT_FALSE(model_.index(-1, 0).isValid());
    EXPECT_FALSE(model_.index(0, 6).isValid());
    EXPECT_FALSE(model_.index(0, -1).isValid());
    EXPECT_FALSE(model_.index(0, 0, model_.index(1, 0)).isValid());
    EXPECT_TRUE(model_.flags(model_.index(1, 1)) & Qt::ItemIsSelectable);
    EXPECT_TRUE(model_.flags(model_.index(1, 1)) & Qt::ItemIsEnabled);
}

TEST_F(EventModelTest, ADateThatCannotBeReadSortsAsItsText)
{
    add("1", "14/03/2026 10:20:30", "2", "", "", "b");
    add("1", "2026/03/14 10:20:29", "2", "", "", "a");
    add("1", "2026/03/14 10:20:31", "2", "", "", "c");
    add("1", "", "2", "", "", "0");
    model_.clickColumn(EventColumn::Date);
    EXPECT_THAT(descriptions(), ElementsAre("0", "a", "b", "c"));
    model_.clickColumn(EventColumn::Date);
    EXPECT_THAT(descriptions(), ElementsAre("c", "b", "a", "0"));
}

TEST_F(EventModelTest, SelectedRowsMoveWithTheirEvents)
{
    addThree();
    const QPersistentModelIndex fire = model_.index(0, 2), door = model_.index(2, 0);
    model_.clickColumn(EventColumn::Description);
    EXPECT_EQ(fire.row(), 2);
    EXPECT_EQ(fire.column(), 2);
    EXPECT_EQ(door.row(), 1);
}

TEST_F(EventModelTest, ASortedListStaysSortedOverALoad)
{
    model_.clickColumn(EventColumn::Description);
    describe({"c", "a"});
    describe({"b"});
    EXPECT_THAT(descriptions(), ElementsAre("a", "b", "c"));
    model_.clear(1252);
    describe({"z", "y"});
    EXPECT_THAT(descriptions(), ElementsAre("y", "z"));
    model_.resetSort();
    EXPECT_EQ(model_.sortColumn(), -1);
    describe({"x"});
    EXPECT_EQ(descriptions().last(), "x");
}

TEST_F(EventModelTest, GrowsInStepsAndIsWholeAtTheEnd)
{
    const auto append = [this](int count) {
        while (count-- > 0)
            model_.store().append(LogLine(logs::event("x")));
    };
    QSignalSpy inserted(&model_, &QAbstractItemModel::rowsInserted);
    append(3);
    model_.grow();
    EXPECT_EQ(model_.rowCount(), 3);
    append(44);
    model_.grow(); // not sixteen times as many
    EXPECT_EQ(model_.rowCount(), 3);
    append(1);
    model_.grow();
    EXPECT_EQ(model_.rowCount(), 48);
    append(1);
    model_.finish();
    EXPECT_EQ(model_.rowCount(), 49);
    ASSERT_EQ(inserted.size(), 3);
    EXPECT_EQ(inserted[1][1], 3);
    EXPECT_EQ(inserted[1][2], 47);
}

struct Words
{
    QString needle;
    QStringList descriptions;
};

class NarrowingTest : public EventModelTest, public testing::WithParamInterface<Words>
{
};

TEST_P(NarrowingTest, FindsPlainCharactersInEveryColumn)
{
    addThree();
    add("1", "99/99/2026", "0", "a.c", "Caf\xE9", "last");
    model_.setNeedle(GetParam().needle);
    EXPECT_EQ(descriptions(), GetParam().descriptions);
}

INSTANTIATE_TEST_SUITE_P(Needles, NarrowingTest,
                         testing::Values(Words{"", {"fire", "Connected.", "door", "last"}},
                                         Words{"FIRE", {"fire"}}, Words{"fires", {}},
                                         Words{"alpha", {"Connected.", "door"}}, Words{"zet", {"fire"}},
                                         Words{"informa", {"Connected.", "last"}}, Words{"warn", {"door"}},
                                         Words{"allarms", {"fire", "door"}}, Words{"read/", {"Connected."}},
                                         Words{"2026/03/1", {"fire", "Connected."}},
                                         Words{"23:59", {"Connected."}}, Words{"14 23", {"Connected."}},
                                         Words{"14/03", {}}, Words{"99/99", {"last"}}, Words{"a.c", {"last"}},
                                         Words{"caf\u00C9", {"last"}}, Words{"\u041A", {}}, Words{"?", {}},
                                         Words{"etaf", {}} // no match runs from one column into the next
                                         ));

TEST_F(EventModelTest, ASpanNarrowsAndWordsNarrowFurther)
{
    addThree();
    add("1", "no date", "2", "", "", "undated");
    QSignalSpy changed(&model_, &EventModel::rowsChanged);
    model_.setSpan(EventModel::Span{20260314235959, 20260315000000});
    EXPECT_THAT(descriptions(), ElementsAre("fire", "Connected."));
    EXPECT_EQ(changed.size(), 1);
    EXPECT_TRUE(model_.isNarrowed());
    model_.setNeedle("fi");
    EXPECT_THAT(descriptions(), ElementsAre("fire"));
    model_.setNeedle("door");
    EXPECT_THAT(descriptions(), IsEmpty());
    model_.setSpan({});
    EXPECT_THAT(descriptions(), ElementsAre("door"));
    EXPECT_TRUE(model_.isNarrowed());
    model_.setNeedle({});
    EXPECT_FALSE(model_.isNarrowed());
    EXPECT_EQ(changed.size(), 5);
    model_.setNeedle({});
    model_.setSpan({});
    EXPECT_EQ(changed.size(), 5);
}

TEST_F(EventModelTest, WhatIsNarrowedStaysInItsOrder)
{
    addThree();
    model_.clickColumn(EventColumn::Date);
    model_.setNeedle("alpha");
    EXPECT_THAT(descriptions(), ElementsAre("door", "Connected."));
    model_.clickColumn(EventColumn::Description);
    EXPECT_THAT(descriptions(), ElementsAre("Connected.", "door"));
    describe({"ALPHA again", "no"});
    EXPECT_THAT(descriptions(), ElementsAre("ALPHA again", "Connected.", "door"));
    model_.setNeedle({});
    EXPECT_EQ(model_.rowCount(), 5);
    EXPECT_EQ(descriptions().first(), "ALPHA again");
}

TEST_F(EventModelTest, TheTimelineFollowsTheWordsAndNotTheSpan)
{
    addThree();
    model_.setSpan(EventModel::Span{20260315000000, 20260315000000});
    EXPECT_EQ(model_.timeline().bars().size(), 3u);
    model_.setNeedle("fire");
    const Timeline timeline = model_.timeline();
    ASSERT_EQ(timeline.bars().size(), 1u);
    EXPECT_EQ(timeline.bars()[0].counts[3], 1);
}

TEST_F(EventModelTest, ChecksOneAndAll)
{
    addThree();
    EXPECT_EQ(model_.checkedCount(), 0);
    QSignalSpy changed(&model_, &QAbstractItemModel::dataChanged);
    EXPECT_TRUE(model_.setData(model_.index(1, 0), Qt::Checked, Qt::CheckStateRole));
    EXPECT_EQ(changed.size(), 1);
    EXPECT_TRUE(model_.isChecked(1));
    EXPECT_EQ(model_.index(1, 0).data(Qt::CheckStateRole), Qt::Checked);
    EXPECT_EQ(model_.index(0, 0).data(Qt::CheckStateRole), Qt::Unchecked);
    EXPECT_FALSE(model_.index(1, 1).data(Qt::CheckStateRole).isValid());
    EXPECT_FALSE(model_.setData(model_.index(1, 1), Qt::Checked, Qt::CheckStateRole));
    EXPECT_FALSE(model_.setData(model_.index(1, 0), "text", Qt::EditRole));
    EXPECT_TRUE(model_.flags(model_.index(1, 0)) & Qt::ItemIsUserCheckable);
    EXPECT_FALSE(model_.flags(model_.index(1, 1)) & Qt::ItemIsUserCheckable);
    model_.clickColumn(EventColumn::Description);
    EXPECT_TRUE(model_.isChecked(0)); // the check goes with its event
    model_.setData(model_.index(0, 0), Qt::Unchecked, Qt::CheckStateRole);
    EXPECT_EQ(model_.checkedCount(), 0);
    model_.setAllChecked(true);
    EXPECT_EQ(model_.checkedCount(), 3);
    EXPECT_EQ(changed.last()[1].toModelIndex().row(), 2);
    model_.setAllChecked(false);
    EXPECT_EQ(model_.checkedCount(), 0);
}

TEST_F(EventModelTest, ChecksOnlyWhatIsShown)
{
    addThree();
    model_.setNeedle("fire");
    model_.setAllChecked(true);
    EXPECT_EQ(model_.checkedCount(), 1);
    model_.setNeedle("door");
    EXPECT_EQ(model_.checkedCount(), 0);
    model_.setNeedle({});
    EXPECT_EQ(model_.checkedCount(), 1);
    model_.clear(1252);
    addThree();
    EXPECT_EQ(model_.checkedCount(), 0);
}

TEST_F(EventModelTest, ChecksTheRowsThatAreTold)
{
    addThree();
    model_.clickColumn(EventColumn::Description); // Connected., door, fire
    QSignalSpy changed(&model_, &QAbstractItemModel::dataChanged);
    model_.setChecked({0, 2}, true);
    EXPECT_TRUE(model_.isChecked(0) && model_.isChecked(2));
    EXPECT_FALSE(model_.isChecked(1));
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 0);
    EXPECT_EQ(changed[0][1].toModelIndex().row(), 2);
    model_.setChecked({2}, false);
    model_.setChecked({}, true);
    EXPECT_EQ(model_.checkedCount(), 1);
    EXPECT_EQ(changed.size(), 2);
}

TEST_F(EventModelTest, GivesRowsAsText)
{
    addThree();
    EXPECT_THAT(model_.cells(0),
                ElementsAre("Error", "2026/03/15 00:00:00", "ALLARMS", "Beta", "zeta", "fire"));
    EXPECT_EQ(model_.rowsText({2, 1}), "Warning\t2025/03/16 12:00:00\tALLARMS\tALPHA\tEta\tdoor\n"
                                       "Information\t2026/03/14 23:59:59\tREAD/WRITE\talpha\t\tConnected.");
    EXPECT_EQ(model_.rowsText({}), "");
}

TEST_F(EventModelTest, FindsTheRowOfAnEvent)
{
    addThree();
    model_.clickColumn(EventColumn::Description);
    EXPECT_EQ(model_.eventAt(2), 0u);
    EXPECT_EQ(model_.rowOf(0), 2);
    model_.setNeedle("door");
    EXPECT_EQ(model_.rowOf(0), -1);
    EXPECT_EQ(model_.rowOf(2), 0);
}

TEST_F(EventModelTest, NewWordsShowAtOnce)
{
    addThree();
    model_.setNeedle("warning");
    EXPECT_EQ(model_.rowCount(), 1);
    EventWords italian = kWords;
    italian.types = {"", "Informazione", "Avviso", "Errore"};
    model_.setWords(italian);
    EXPECT_EQ(model_.rowCount(), 0);
    model_.setNeedle("avv");
    EXPECT_EQ(model_.text(0, EventColumn::Type), "Avviso");
}

} // namespace
