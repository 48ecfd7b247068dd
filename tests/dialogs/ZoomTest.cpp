#include "dialogs/Zoom.h"

#include "support/CompanyFixture.h"

#include <QSignalSpy>

using platform::answers::kNo;
using platform::answers::kYes;

namespace {

const char kEndOfList[] = "End of list. Do you want to repeat from the start?";

class ZoomTest : public support::CompanyFixture
{
protected:
    ZoomTest()
    {
        connectPlant();
        zoom.ZoomSet.Caption = "Items";
        zoom.ZoomSet.Connection = session.ConnectionString;
        zoom.ZoomSet.Select = "SELECT mID AS ID, mDesc AS Description FROM tbParamGroupLanguage";
        zoom.ZoomSet.Where = "mKeyLang = 'EN'";
        zoom.ZoomSet.OrderBy = "mID";
        zoom.ZoomSet.KeyField = "mID";
        zoom.ZoomSet.NameField = "mDesc";
        op.onModal = [this](const QString& form) {
            EXPECT_EQ(form, "frmZoom");
            ++opened;
            zoom.Load();
            if (play)
                play();
        };
    }

    // The keys that the list offers for a typed text.
    QStringList offered(const QString& Value)
    {
        QStringList keys;
        play = [&] {
            for (int row = 0; row < zoom.list().rowCount(); ++row)
                keys << zoom.list().keyAt(row);
        };
        zoom.ShowZoom(Value);
        return keys;
    }
    void fill(const QString& Value = "*") { offered(Value); }

    dialogs::Zoom zoom{session, op};
    std::function<void()> play;
    int opened = 0;
};

TEST_F(ZoomTest, OnlyAStarOrAnAtOpensTheList)
{
    for (const char* Value : {"12", "", "*12", "@x", "1*2", "* "}) {
        EXPECT_EQ(zoom.ShowZoom(Value), Value);
        EXPECT_EQ(zoom.ZoomSet.Result, Value);
    }
    EXPECT_EQ(opened, 0);
    for (const char* Value : {"*", "@", "12*", "AB@"})
        zoom.ShowZoom(Value);
    EXPECT_EQ(opened, 4);
}

TEST_F(ZoomTest, TheListOffersWhatThePatternAsksFor)
{
    struct Row
    {
        const char* Value;
        QStringList keys;
    };
    const QStringList all{"G01", "G02", "G03", "G04", "G11", "G12"};
    for (const Row& row :
         {Row{"*", all}, Row{"@", all}, Row{"**", all}, Row{"G1*", {"G11", "G12"}},
          Row{"*2*", {"G02", "G12"}}, Row{"2*", {}}, Row{"ST@", {"G02"}}, Row{"*ing@", {"G04", "G11"}},
          Row{"g0_*", {"G01", "G02", "G03", "G04"}}, Row{"O'Hara*", {}}})
        EXPECT_EQ(offered(row.Value), row.keys) << row.Value;
}

TEST_F(ZoomTest, ARowPickedIsTheResult)
{
    play = [this] { EXPECT_TRUE(zoom.pick(4)); };
    EXPECT_EQ(zoom.ShowZoom("*"), "G11");
    EXPECT_EQ(zoom.ZoomSet.Result, "G11");
}

TEST_F(ZoomTest, ACancelLeavesNothing)
{
    EXPECT_EQ(zoom.ShowZoom("G1*"), "");
    play = [this] {
        EXPECT_FALSE(zoom.pick(-1));
        EXPECT_FALSE(zoom.pick(99));
    };
    EXPECT_EQ(zoom.ShowZoom("G1*"), "");
}

TEST_F(ZoomTest, HeadingsAreTheFieldsAndThePanelCounts)
{
    QSignalSpy progress(&zoom, &dialogs::Zoom::progress);
    fill();
    EXPECT_EQ(zoom.rowsText(), "# 6");
    EXPECT_EQ(zoom.list().headerData(0, Qt::Horizontal, Qt::DisplayRole), "ID");
    EXPECT_EQ(zoom.list().headerData(1, Qt::Horizontal, Qt::DisplayRole), "Description");
    EXPECT_EQ(progress.last()[0], 100);
    EXPECT_EQ(op.pointer, platform::Pointer::Default);
}

TEST_F(ZoomTest, AnEmptyResultLeavesTheListEmpty)
{
    fill("none*");
    EXPECT_EQ(zoom.list().rowCount(), 0);
    EXPECT_EQ(zoom.list().columnCount(), 0);
    EXPECT_EQ(zoom.rowsText(), "");
}

TEST_F(ZoomTest, AnyNumberOfColumnsEvenTwoOfOneName)
{
    zoom.ZoomSet.Select = "SELECT mID, mDesc AS A, NULL AS B, mKeyLang AS A FROM tbParamGroupLanguage";
    fill("G01*");
    ASSERT_EQ(zoom.list().columnCount(), 4);
    EXPECT_EQ(zoom.list().index(0, 1).data(), "Measures");
    EXPECT_EQ(zoom.list().index(0, 2).data(), "") << "NULL is empty";
    EXPECT_EQ(zoom.list().index(0, 3).data(), "EN");
}

TEST_F(ZoomTest, ARefreshShowsWhatTheFileHoldsNow)
{
    fill();
    runOnPlant("DELETE FROM tbParamGroupLanguage WHERE mID = 'G04';");
    zoom.Refresh();
    EXPECT_EQ(zoom.rowsText(), "# 5");
    EXPECT_EQ(zoom.list().keyAt(3), "G11");
}

TEST_F(ZoomTest, ABadQueryIsReportedAndLeavesTheListEmpty)
{
    fill();
    for (const char* Select : {"SELECT nothing FROM tbParamGroupLanguage", "SELEC", ""}) {
        zoom.ZoomSet.Select = Select;
        zoom.Refresh();
        failures.expectOne(platform::errors::kDatabase, "frmZoom/Load_Items");
        EXPECT_EQ(zoom.list().rowCount(), 0);
        EXPECT_EQ(zoom.rowsText(), "");
        EXPECT_EQ(op.pointer, platform::Pointer::Default);
    }
}

TEST_F(ZoomTest, AFileThatIsGoneIsReported)
{
    zoom.ZoomSet.Connection = file("Data/Gone.mdb");
    EXPECT_EQ(zoom.ShowZoom("*"), "");
    failures.expectOne(platform::errors::kFileNotFound, "frmZoom/Load_Items");
}

// Finding
// -----------------------------------------------------------------------------------------------------------

TEST_F(ZoomTest, FindAsksInEnglishInEveryLanguage)
{
    for (const char* language : {"EN_English_2000", "IT_Italiano_1000", "RU_Russian_6000"}) {
        setLanguage(language);
        fill();
        op.type("Service");
        EXPECT_EQ(zoom.Find(-1), 5);
        EXPECT_EQ(op.inputBoxes.back().first, "Input the string to search");
        EXPECT_EQ(op.inputBoxes.back().second, "Calidora Find");
    }
}

TEST_F(ZoomTest, TheSearchBeginsBehindTheSelectedRow)
{
    fill();
    op.type("S"); // Measures, States, Times, Settings, Service
    EXPECT_EQ(zoom.Find(0), 1);
    EXPECT_EQ(zoom.FindAgain(1), 2);
    EXPECT_EQ(zoom.FindAgain(2), 4);
    EXPECT_EQ(zoom.FindAgain(4), 5);
    op.expect(kEndOfList, kYes);
    EXPECT_EQ(zoom.FindAgain(5), 0);
    EXPECT_EQ(op.boxes.back().buttons, platform::Buttons::YesNo);
    EXPECT_EQ(op.inputBoxes.size(), 1u) << "the last text is taken without asking";
}

TEST_F(ZoomTest, ANoAtTheEndSelectsNothing)
{
    fill();
    op.type("Measures");
    op.expect(kEndOfList, kNo);
    EXPECT_EQ(zoom.Find(3), -1);
    EXPECT_EQ(op.boxes.size(), 1u);
}

TEST_F(ZoomTest, TheSelectedRowItselfIsFoundLast)
{
    fill();
    op.type("g04");
    op.expect(kEndOfList, kYes);
    EXPECT_EQ(zoom.Find(3), 3);
}

TEST_F(ZoomTest, AnApostropheIsFound)
{
    runOnPlant("INSERT INTO tbParamGroupLanguage VALUES ('G99', 'EN', 'O''Hara''s')");
    EXPECT_EQ(offered("O'H@"), QStringList{"G99"});
}

class ZoomInLanguage : public ZoomTest, public testing::WithParamInterface<const char*>
{
};

// Its words are English in every language.
TEST_P(ZoomInLanguage, SaysItsThreeLiteralsInEnglish)
{
    setLanguage(GetParam());
    fill();
    op.type("missing");
    op.expect("No item found.");
    EXPECT_EQ(zoom.Find(-1), -1);
    op.expect(kEndOfList, kNo);
    zoom.FindAgain(2);
}

INSTANTIATE_TEST_SUITE_P(Languages, ZoomInLanguage, testing::Values("IT_Italiano_1000", "RU_Russian_6000"));

TEST_F(ZoomTest, NothingFoundIsSaid)
{
    fill();
    op.type("missing");
    op.expect("No item found.");
    EXPECT_EQ(zoom.Find(-1), -1) << "no row was skipped: nobody is asked";
    op.expect(kEndOfList, kYes);
    op.expect("No item found.");
    EXPECT_EQ(zoom.FindAgain(2), -1);
    fill("none*");
    op.type("x");
    op.expect("No item found.");
    EXPECT_EQ(zoom.Find(-1), -1);
}

TEST_F(ZoomTest, ACancelledOrEmptyInputSearchesNothing)
{
    fill();
    op.type(std::nullopt);
    EXPECT_EQ(zoom.Find(-1), -1);
    op.type("");
    EXPECT_EQ(zoom.Find(-1), -1);
    EXPECT_TRUE(op.boxes.empty());
}

TEST_F(ZoomTest, WithoutALastTextFindAgainAsks)
{
    fill();
    op.type("Times");
    EXPECT_EQ(zoom.FindAgain(-1), 2);
    fill(); // the window comes up afresh
    op.type("States");
    EXPECT_EQ(zoom.FindAgain(-1), 1);
}

} // namespace
