#include "property/PropertyFixture.h"

using property::NamedControl;

namespace {

class EnableDisableTest : public support::PropertyFixture
{
protected:
    QStringList captions() const
    {
        QStringList shown;
        for (const property::Control* label : {&controls().lblVal1, &controls().lblVal2, &controls().lblVal3})
            shown << (label->visible ? label->text : QString());
        return shown;
    }

    // Of the fields shown, those that may be edited.
    QStringList editable() const
    {
        QStringList names;
        for (const NamedControl& named : property::namedControls()) {
            const property::Control& control = controls().*named.control;
            const QString name = named.name;
            if ((name.startsWith("txt") || name.startsWith("cbx")) && control.visible && control.enabled)
                names << name;
        }
        return names;
    }
};

QStringList names(const char* text)
{
    return QString(text).split(' ', Qt::SkipEmptyParts);
}

struct LevelRow
{
    const char* key;
    const char* visible;
    QStringList captions;
    const char* editable; // with the right
};

const LevelRow kLevels[] = {
    {"Root", "lblVal1 lblVal2", {"Total Groups: 2", "Total Instruments: 3", ""}, ""},
    {"1_1",
     "lblVal1 lblVal2 lblVal3 txtValStr1 txtValStr2 txtValStr3",
     {"Name:", "Description:", "Phone:"},
     "txtValStr1 txtValStr2 txtValStr3"},
    {"2_1_1",
     "lblVal1 lblVal2 lblVal3 txtValStr1 txtValStr2 txtVal3 lblRange3 fraProperties lblValDescription",
     {"Name:", "Description:", "Address:"},
     "txtValStr1 txtValStr2 txtVal3"},
    {"3_1_1_G02", "lblVal1 lblVal2", {"Total Parameters: 4", "Parameters Modified: 1", ""}, ""},
};

TEST_F(EnableDisableTest, LevelsByRight)
{
    for (const LevelRow& row : kLevels) {
        for (const char* right : {"True", "False", "-1", "0", ""}) {
            setRight("Modify", right);
            open(row.key);
            EXPECT_EQ(visible(), names(row.visible)) << row.key;
            EXPECT_EQ(captions(), row.captions) << row.key;
            const bool may = session::rightOf(right);
            EXPECT_EQ(editable(), may ? names(row.editable) : QStringList()) << row.key << right;
        }
    }
}

struct KindRow
{
    const char* key;
    const char* fields; // besides what every parameter shows
    QStringList captions;
    const char* editable;
};

const KindRow kKinds[] = {
    {"4_1_1_G02_P0204", "txtValStr1 lblRange2", {"Value:", "", ""}, "txtValStr1"},
    {"4_1_1_G02_P0201", "cbxValEnum", {"Value:", "", ""}, "cbxValEnum"},
    {"4_1_2_G11_P1101", "txtVal1 lblRange1", {"Value:", "", ""}, "txtVal1"},
    {"4_1_1_G03_P0301",
     "txtVal1 txtVal2 txtVal3 lblRange1 lblRange2 lblRange3",
     {"Hour:", "Minute:", "Seconds:"},
     "txtVal1"},
    {"4_1_1_G03_P0302",
     "txtVal1 txtVal2 txtVal3 lblRange1 lblRange2 lblRange3",
     {"Hour:", "Minute:", "Seconds:"},
     "txtVal1 txtVal2"},
    {"4_1_1_G03_P0303",
     "txtVal1 txtVal2 txtVal3 lblRange1 lblRange2 lblRange3",
     {"Hour:", "Minute:", "Seconds:"},
     "txtVal1 txtVal2 txtVal3"},
};

TEST_F(EnableDisableTest, KindsByRightAndCatalogue)
{
    const QStringList everyParameter =
        names("chkDisabled lblDisabled fraProperties lblValDescription lblMemory lblValMemory lblAddress "
              "lblValAddress lblType lblValType lblBytes lblValBytes");
    for (const int mEnable : {-1, 0}) {
        runOnPlant(QStringLiteral("UPDATE tbParam SET mEnable = %1").arg(mEnable));
        ASSERT_TRUE(connectPlant());
        for (const char* right : {"True", "False"}) {
            setRight("Modify", right);
            const bool may = session::rightOf(right);
            for (const KindRow& row : kKinds) {
                open(row.key);
                QStringList expected = everyParameter + names(row.fields);
                for (int i = 0; i < 3; ++i) {
                    if (!row.captions[i].isEmpty())
                        expected << QStringLiteral("lblVal%1").arg(i + 1);
                }
                QStringList shown = visible();
                expected.sort();
                shown.sort();
                EXPECT_EQ(shown, expected) << row.key;
                EXPECT_EQ(captions(), row.captions) << row.key;
                EXPECT_EQ(controls().checked, mEnable == 0) << row.key;
                EXPECT_EQ(editable(), mEnable && may ? names(row.editable) : QStringList())
                    << row.key << right << mEnable;
            }
        }
    }
}

TEST_F(EnableDisableTest, CopyFollowsTheRightAndTheCopyIdAlone)
{
    runOnPlant("UPDATE tbParam SET mEnable = 0 WHERE mID = 'P0202'");
    const struct
    {
        const char* key;
        const char* right;
        bool enabled;
    } rows[] = {
        {"4_1_1_G02_P0201", "True", true},  {"4_1_1_G02_P0201", "False", false},
        {"4_1_1_G02_P0202", "True", true}, // locked by the catalogue
        {"4_1_1_G02_P0204", "True", false}, {"1_1", "True", false},
    };
    for (const auto& row : rows) {
        setRight("Modify", row.right);
        open(row.key);
        EXPECT_EQ(controls().cmdCopy.enabled, row.enabled) << row.key << row.right;
        EXPECT_TRUE(controls().cmdCopy.visible);
    }
}

TEST_F(EnableDisableTest, AnHourAndMinuteShowsLockedSecondsWithTheirCaption)
{
    open("4_1_1_G03_P0302");
    EXPECT_EQ(controls().txtVal3.text, "0");
    EXPECT_TRUE(controls().txtVal3.visible);
    EXPECT_FALSE(controls().txtVal3.enabled);
    EXPECT_EQ(controls().lblVal3.text, "Seconds:");
}

TEST_F(EnableDisableTest, CaptionsFollowTheLanguage)
{
    setLanguage("RU_Russian_6000");
    open("1_1");
    EXPECT_EQ(controls().lblVal1.text, texts(155));
    EXPECT_NE(controls().lblVal1.text, "Name:");
}

TEST_F(EnableDisableTest, AnElementOpenedAfterAnotherKeepsNothingOfIt)
{
    open("4_1_1_G02_P0201");
    open("1_3");
    EXPECT_EQ(model.KeyType(), "");
    EXPECT_TRUE(controls().entries.empty());
    EXPECT_EQ(controls().txtValStr1.text, "O'Hara");
    EXPECT_EQ(controls().lblValMemory.text, "");
}

} // namespace
