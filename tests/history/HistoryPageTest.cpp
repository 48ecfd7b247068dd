// What the window shows of the notes.
#include "history/HistoryPage.h"

#include "history/HistoryFixture.h"
#include "history/NoteFile.h"
#include "support/OrdinaryUser.h"

#include <QFile>

using namespace support;
using history::HistoryModel;
using history::HistoryPage;
using history::NewNote;
using history::NoteFile;
using values::ValueCause;

namespace {

class HistoryPageTest : public HistoryFixture
{
};

TEST_F(HistoryPageTest, TheNewestFirstAsTheListShowsIt)
{
    edit("P0101", "5");
    edit("P0201", "0");
    edit("P0101", "NULL", 0, ValueCause::Read);
    const HistoryPage page = read(request("2_1_1"));
    EXPECT_EQ(told(page), QStringList({"EN T1: 5.0 °C > --", "EN MOD: On > Off", "EN T1: 12.3 °C > 5.0 °C"}));
    EXPECT_EQ(page.failure, "");
    EXPECT_FALSE(page.more);
    const history::ShownNote& first = page.notes.back();
    EXPECT_EQ(first.key, "4_1_1_G01_P0101");
    EXPECT_EQ(first.place, "GRP1\\INST11\\Measures");
    EXPECT_EQ(first.oldValue, "12.3");
    EXPECT_EQ(first.newValue, "5");
    EXPECT_EQ(first.oldState, 0);
    EXPECT_EQ(first.newState, 1);
    EXPECT_EQ(first.operatorName, "TECHNICIAN");
    EXPECT_EQ(first.cause, ValueCause::Edited);
    EXPECT_EQ(page.notes.front().newValue, std::nullopt);
    EXPECT_EQ(page.notes.front().time - first.time, 120'000);
}

// As on a disk that somebody hands over.
TEST_F(HistoryPageTest, InAFolderThatNobodyMayWriteItCanBeLookedAt)
{
    edit("P0101", "5");
    database.Disconnect_Database();
    for (const QString& path : {file(""), file("Data"), plantFile(), history::historyFileOf(plantFile())})
        ASSERT_TRUE(QFile::setPermissions(path, QFile::Permissions(0x5555)));
    const support::OrdinaryUser nobody;
    const HistoryPage page = read(request("2_1_1"));
    EXPECT_EQ(page.failure, "");
    EXPECT_EQ(told(page), QStringList{"EN T1: 12.3 °C > 5.0 °C"});
}

TEST_F(HistoryPageTest, OfAnElementWhatLiesBelowIt)
{
    edit("P0101", "5");
    edit("P0201", "0");
    edit("P1101", "6", 1, ValueCause::Edited, "1_2");
    edit("P1101", "7", 1, ValueCause::Edited, "2_1");
    EXPECT_EQ(read(request("Root")).notes.size(), 4u);
    EXPECT_EQ(read(request("1_1")).notes.size(), 3u);
    EXPECT_EQ(read(request("2_1_1")).notes.size(), 2u);
    EXPECT_EQ(told(read(request("3_1_1_G02"))), QStringList{"EN MOD: On > Off"});
    EXPECT_EQ(told(read(request("4_1_1_G01_P0101"))), QStringList{"EN T1: 12.3 °C > 5.0 °C"});
    EXPECT_EQ(told(read(request("4_2_1_G11_p1101"))), QStringList{"EN SET: 4.5 °C > 7.0 °C"});
    EXPECT_EQ(read(request("4_1_1_G01_P0102")).notes.size(), 0u);
}

TEST_F(HistoryPageTest, OnlyTheLastOperationOrOnlyFailedChecks)
{
    edit("P0101", "5");
    edit("P0201", "0", 0, ValueCause::CheckedError);
    edit("P1101", "6", 1, ValueCause::Edited, "2_1");
    auto last = request("1_1");
    last.lastOperation = true;
    EXPECT_EQ(told(read(last)), QStringList{"EN MOD: On > Off"});
    auto failed = request("Root");
    failed.failedChecks = true;
    EXPECT_EQ(told(read(failed)), QStringList{"EN MOD: On > Off"});
    failed.lastOperation = true;
    EXPECT_EQ(told(read(failed)), QStringList());
}

TEST_F(HistoryPageTest, WhatAnOperationMadeDifferent)
{
    qint64 operation = 0;
    QObject::connect(&recorder, &history::Recorder::operationNoted,
                     [&](qint64 number, ValueCause, int) { operation = number; });
    {
        const values::Causing job(session.cnDatabase, ValueCause::Read);
        edit("P0101", "5", 0, ValueCause::Read);
        edit("P0201", "1", 0, ValueCause::Read); // only its mark
    }
    auto changed = request("1_1");
    changed.operation = operation;
    EXPECT_EQ(told(read(changed)), QStringList{"EN T1: 12.3 °C > 5.0 °C"});
    edit("P0101", "6");
    EXPECT_EQ(told(read(changed)), QStringList{"EN T1: 12.3 °C > 5.0 °C"});
}

TEST_F(HistoryPageTest, ANumberThatNoChoiceHasIsToldAsItIs)
{
    edit("P0201", "77");
    EXPECT_EQ(told(read(request("1_1"))), QStringList{"EN MOD: On > 77"});
}

TEST_F(HistoryPageTest, WithoutNotesItIsEmpty)
{
    const HistoryPage page = read(request("4_1_1_G02_P0201"));
    EXPECT_TRUE(page.notes.empty());
    EXPECT_EQ(page.failure, "");
    EXPECT_EQ(page.kind, values::Kind::Enum);
    EXPECT_EQ(page.choices.at(1), "On");
    EXPECT_EQ(read(request("2_1_1")).kind, values::Kind::Other);
}

TEST_F(HistoryPageTest, WhatIsGoneBearsItsIds)
{
    {
        NoteFile file(history::historyFileOf(plantFile()));
        NewNote note;
        note.operation = 77; // nobody knows whose
        note.IDGrp = 9;
        note.IDInst = 8;
        note.IDPar = "P9999";
        note.IDParGrp = "G99";
        note.newValue = "1'2";
        note.newState = 0;
        file.add(note);
    }
    const HistoryPage page = read(request("Root"));
    ASSERT_EQ(page.notes.size(), 1u);
    EXPECT_EQ(page.notes[0].place, "#9\\#8\\G99");
    EXPECT_EQ(told(page), QStringList{"P9999:  > 1'2"});
    EXPECT_EQ(page.notes[0].oldState, std::nullopt);
    EXPECT_EQ(page.notes[0].operatorName, "");
}

TEST_F(HistoryPageTest, ADamagedFileTellsWhy)
{
    QFile damaged(history::historyFileOf(plantFile()));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write(QByteArray(5000, 'x'));
    damaged.close();
    EXPECT_TRUE(read(request("Root")).failure.contains("Plant.history"));
}

TEST_F(HistoryPageTest, NoMoreThanSoMany)
{
    {
        NoteFile file(history::historyFileOf(plantFile()));
        file.begin();
        for (int i = 0; i <= HistoryPage::kMostNotes; ++i) {
            NewNote note;
            note.IDGrp = note.IDInst = 1;
            note.IDPar = "P0101";
            const QByteArray value = QByteArray::number(i);
            note.newValue = value;
            note.newState = 0;
            file.add(note);
        }
        file.commit();
    }
    const HistoryPage page = read(request("2_1_1"));
    EXPECT_EQ(int(page.notes.size()), HistoryPage::kMostNotes);
    EXPECT_TRUE(page.more);
    EXPECT_EQ(page.notes.back().newValue, "1");
}

class HistoryTable : public HistoryFixture
{
protected:
    void load(const QString& key) { model.setNotes(read(request(key)).notes); }
    QStringList row(int row) const
    {
        QStringList cells;
        for (int column = 0; column < HistoryModel::kColumns; ++column)
            cells << model.index(row, column).data().toString();
        return cells;
    }

    HistoryModel model{texts};
};

TEST_F(HistoryTable, ShowsANoteInWords)
{
    const QString time = clock.now().toString("dd/MM/yyyy HH:mm:ss");
    edit("P0101", "5");
    load("Root");
    ASSERT_EQ(model.rowCount(), 1);
    EXPECT_EQ(row(0), QStringList({time, "GRP1\\INST11\\Measures", "EN T1", "12.3 °C", "5.0 °C",
                                   "equal to the instrument → to be written", "Edited", "TECHNICIAN"}));
    edit("P0101", "6");
    load("Root");
    EXPECT_EQ(row(0)[HistoryModel::Mark], "to be written");
    edit("P0101", "6", 2);
    load("Root");
    EXPECT_EQ(row(0)[HistoryModel::Mark], "to be written → added");
}

TEST_F(HistoryTable, EachCauseHasItsWord)
{
    QStringList words;
    for (int cause = 0; cause <= int(ValueCause::Deleted) + 1; ++cause)
        words << history::causeWords(ValueCause(cause), texts);
    EXPECT_EQ(
        words.join('|'),
        "Unknown|Read from the instrument|Edited|Property copy|Pasted|Imported|Synchronised|Reset|Written, "
        "check OK|Written, check Error!|Mark cleared by a write|New instrument|Deleted|Unknown");
}

TEST_F(HistoryTable, IsNarrowedByAnyColumn)
{
    edit("P0101", "5");
    edit("P0201", "0");
    load("Root");
    model.setFilter("en mod");
    EXPECT_EQ(model.rowCount(), 1);
    EXPECT_EQ(model.noteAt(0)->parameter, "EN MOD");
    EXPECT_EQ(model.count(), 2);
    load("Root");
    EXPECT_EQ(model.rowCount(), 1) << "a new page stays narrowed";
    model.setFilter("technician");
    EXPECT_EQ(model.rowCount(), 2);
    model.setFilter("no such");
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(model.noteAt(0), nullptr);
    model.setFilter({});
    EXPECT_EQ(model.rowCount(), 2);
    EXPECT_EQ(model.noteAt(-1), nullptr);
    EXPECT_EQ(model.noteAt(2), nullptr);
}

TEST_F(HistoryTable, AsACommaSeparatedFile)
{
    const QString time = clock.now().toString("yyyy-MM-dd HH:mm:ss");
    session.cnDatabase.Execute("UPDATE tbGroupsUser SET Name = 'A, \"B\"' WHERE IDGrp = 1;");
    edit("P0101", "5");
    load("Root");
    const QList<QByteArray> lines = model.lines();
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines[0], "Time,Where,Parameter,Before,After,Mark,Cause,Operator\r\n");
    EXPECT_EQ(lines[1], (time + ",\"A, \"\"B\"\"\\INST11\\Measures\",EN T1,12.3 °C,5.0 °C,"
                                "equal to the instrument → to be written,Edited,TECHNICIAN\r\n")
                            .toUtf8());
}

} // namespace
