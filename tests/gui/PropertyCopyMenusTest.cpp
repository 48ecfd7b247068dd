// The copy window's commands, each by menu and by toolbar, in its words and pictures.
#include "gui/GuiFixture.h"

#include <QAction>
#include <QHeaderView>
#include <QProgressBar>
#include <QPushButton>
#include <QToolBar>

namespace {

class PropertyCopyMenus : public gui::GuiFixture
{
protected:
    void copyIds(const char* second, const char* third)
    {
        runOnPlant(
            QString("UPDATE tbParam SET mIDCopy = 'CP.01.01' WHERE mID = 'P1101';"
                    "UPDATE tbParam SET mIDCopy = '%1' WHERE mID = 'P1102';"
                    "UPDATE tbParam SET mIDCopy = '%2' WHERE mID = 'P1103';"
                    "INSERT INTO tbParamCopyLanguage VALUES ('%1', 'EN', 'Second'), ('%2', 'EN', 'Third');")
                .arg(second, third));
    }
    void openCopy(const std::function<void(QDialog&)>& work)
    {
        start();
        clickNode("3_1_2_G11");
        clickItem("4_1_2_G11_P1101");
        inside("frmProperty", [&, work](QDialog& dialog) {
            inside("frmPropertyCopy", work);
            QTest::mouseClick(dialog.findChild<QPushButton*>("cmdCopy"), Qt::LeftButton);
        });
        QTest::keyClick(shownList(), Qt::Key_Return);
        EXPECT_EQ(played, 2);
    }
    static QAction* action(QDialog& dialog, const char* name) { return dialog.findChild<QAction*>(name); }
    static QTreeView* items(QDialog& dialog) { return dialog.findChild<QTreeView*>("lvwItems"); }
    static int checked(QDialog& dialog)
    {
        int count = 0;
        for (int row = 0; row < items(dialog)->model()->rowCount(); ++row)
            count += items(dialog)->model()->index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked;
        return count;
    }
};

TEST_F(PropertyCopyMenus, EachCommandIsInTheMenuAndOnTheToolbar)
{
    copyIds("CP.02.01", "CP.03.01");
    openCopy([&](QDialog& dialog) {
        for (const auto& [check, uncheck] :
             {std::pair{"mnuCheck", "mnuUncheck"}, std::pair{"Check", "Uncheck"}}) {
            action(dialog, check)->trigger();
            EXPECT_EQ(checked(dialog), 2) << check;
            action(dialog, uncheck)->trigger();
            EXPECT_EQ(checked(dialog), 0) << uncheck;
        }
        const std::pair<const char*, int> texts[] = {{"mnuExit", 83},           {"mnuCheck", 230},
                                                     {"mnuUncheck", 231},       {"mnuCopy", 120},
                                                     {"mnuTlbLargeIcons", 131}, {"mnuTlbSmallIcons", 132}};
        for (const auto& [name, text] : texts)
            EXPECT_EQ(action(dialog, name)->text(), this->texts(text)) << name;
        for (const char* button : {"Check", "Uncheck", "Copy", "Exit"}) {
            EXPECT_FALSE(action(dialog, button)->icon().isNull()) << button;
            EXPECT_NE(action(dialog, button)->toolTip(), "") << button;
        }
        EXPECT_EQ(items(dialog)->model()->headerData(0, Qt::Horizontal).toString(), "ID");
        EXPECT_EQ(items(dialog)->currentIndex().row(), 0);
        EXPECT_FALSE(items(dialog)->rootIsDecorated());
        EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
        action(dialog, "mnuExit")->trigger();
        EXPECT_FALSE(dialog.isVisible());
    });
}

TEST_F(PropertyCopyMenus, AFamilyOfOneBlockIsAnEmptyList)
{
    copyIds("XX.02.01", "YY.03.01");
    openCopy([&](QDialog& dialog) {
        EXPECT_EQ(items(dialog)->model()->rowCount(), 0);
        EXPECT_FALSE(items(dialog)->currentIndex().isValid());
        desktop.script.expect(texts(532));
        action(dialog, "Copy")->trigger();
    });
}

TEST_F(PropertyCopyMenus, TheBarIsShownWhileItWorksAndGoesByRows)
{
    copyIds("CP.02.01", "CP.03.01");
    openCopy([&](QDialog& dialog) {
        auto* prgLoad = dialog.findChild<QProgressBar*>("prgLoad");
        EXPECT_FALSE(prgLoad->isVisible());
        std::vector<int> values;
        QObject::connect(prgLoad, &QProgressBar::valueChanged, &dialog,
                         [&](int value) { values.push_back(value); });
        action(dialog, "Check")->trigger();
        desktop.script.expect(texts(533) + "\r\n" + texts(534), platform::answers::kYes);
        action(dialog, "Copy")->trigger();
        EXPECT_EQ(prgLoad->maximum(), 1);
        EXPECT_EQ(prgLoad->value(), 1);
        EXPECT_FALSE(values.empty());
        EXPECT_FALSE(prgLoad->isVisible());
    });
}

TEST_F(PropertyCopyMenus, TheToolbarBeginsWithTheSizeOfTheSetting)
{
    copyIds("CP.02.01", "CP.03.01");
    session.ToolbarSet.Icons = 0;
    openCopy([&](QDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QToolBar*>("tlbMain")->iconSize(), QSize(16, 16));
        EXPECT_GT(items(dialog)->header()->sectionSize(0), 60);
    });
    EXPECT_EQ(desktop.form("frmPropertyCopy"), nullptr);
}

TEST_F(PropertyCopyMenus, ItNamesItsSourceAndTellsWhatItWrote)
{
    copyIds("CP.02.01", "CP.03.01");
    runOnPlant("INSERT INTO tbParamCopyLanguage VALUES ('CP.01.01', 'EN', 'First compressor');");
    openCopy([&](QDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QLabel*>("lblSource")->text(), "Copied from: 01 First compressor");
        EXPECT_FALSE(dialog.findChild<QLabel*>("lblWritten")->isVisible());
        action(dialog, "mnuCheck")->trigger();
        desktop.script.expect(texts(533) + "\r\n" + texts(534), platform::answers::kYes);
        action(dialog, "mnuCopy")->trigger();
        EXPECT_EQ(dialog.findChild<QLabel*>("lblWritten")->text(), "Values written: 2");
        EXPECT_TRUE(dialog.findChild<QLabel*>("lblWritten")->isVisible());
        nothingIsClipped(dialog);
        picture(dialog, "property-copy");
    });
}

} // namespace
