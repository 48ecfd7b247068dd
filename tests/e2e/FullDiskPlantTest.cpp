// A real file system that becomes full at every step in turn of what changes the plant: the operator is told,
// the file holds each element whole or not at all, and the tree shows what the file holds.
#include "e2e/SmallFileSystem.h"
#include "structure/PlantClipboard.h"
#include "structure/PlantFixture.h"
#include "structure/PlantStates.h"

#include <iostream>
#include <set>

using namespace support;
using platform::answers::kYes;

namespace {

constexpr qint64 kStep = 24 << 10;
constexpr int kInstruments = 300; // of the group that is worked on
constexpr int kParameters = 14;   // of an instrument

class FullDiskPlant : private SmallFileSystem, public plant::PlantFixture
{
protected:
    static void SetUpTestSuite() { AnyCompany(); }

    FullDiskPlant()
    {
        runOnPlant(QStringLiteral(R"(
            BEGIN;
            DELETE FROM tbParametersUser; DELETE FROM tbInstrumentsUser; DELETE FROM tbGroupsUser;
            INSERT INTO tbGroupsUser VALUES (1, 'MANY', NULL, NULL), (2, 'OTHERS', NULL, NULL);
            INSERT INTO tbInstrumentsUser WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1)
              SELECT 1, i, 'KT100', 'INST' || i, NULL, '11' FROM n;
            INSERT INTO tbParametersUser
              SELECT 1, IDInst, tbParam.mID, tbParam.mKeyParGroup, hex(zeroblob(20)), 1
              FROM tbInstrumentsUser, tbParam, tbParamGroup
              WHERE tbParam.mKeyParGroup = tbParamGroup.mID AND tbParamGroup.mKeyInst = 1;
            COMMIT; VACUUM;)")
                       .arg(kInstruments));
        connectPlant();
    }

    // Does the work on the same company again and again, with a little more room each time, until it succeeds
    // three times running. Returns how many times it failed.
    void sweep(const std::function<void()>& work, const std::function<void(bool well)>& check)
    {
        if (!isMounted())
            GTEST_SKIP() << "only the administrator can make a file system";
        QFile company(plantFile());
        ASSERT_TRUE(company.open(QIODevice::ReadOnly));
        const QByteArray before = company.readAll();
        company.close();
        int failed = 0, succeeded = 0;
        for (qint64 left = 0; succeeded < 3; left += kStep) {
            SCOPED_TRACE(left);
            ASSERT_LT(left, 4 << 20) << "it never succeeds";
            database.Disconnect_Database();
            ASSERT_TRUE(company.open(QIODevice::WriteOnly));
            company.write(before);
            company.close();
            ASSERT_TRUE(connectPlant());
            leave(left);
            work();
            makeRoom();
            op.unexpected.clear();
            const auto reported = failures.take();
            for (const auto& failure : reported)
                EXPECT_EQ(failure.number, platform::errors::kDiskFull) << failure.description.toStdString();
            const bool well = reported.empty();
            succeeded = well ? succeeded + 1 : 0;
            failed += !well;
            EXPECT_EQ(op.pointer, platform::Pointer::Default);
            EXPECT_FALSE(session.cnDatabase.inTransaction());
            const QStringList shown = treeKeys();
            ASSERT_TRUE(connectPlant());
            EXPECT_EQ(shown, treeKeys()) << "the tree shows what the file holds";
            EXPECT_EQ(rows("PRAGMA integrity_check"), QStringList{"ok"});
            EXPECT_EQ(rows("PRAGMA foreign_key_check"), QStringList());
            check(well);
        }
        EXPECT_GT(failed, 2);
        std::cout << failed << " full disks\n";
    }

    void paste(bool cut)
    {
        structure.clickNode("1_1");
        cut ? clipboard.Cut_Node() : clipboard.Copy_Node();
        structure.clickNode("Root");
        op.expect(texts(cut ? 507 : 508), kYes);
        clipboard.Paste_Item();
    }
    // How many instruments stand in the group, every one with all its parameters.
    int instrumentsOf(int group)
    {
        const int instruments = count("tbInstrumentsUser", QStringLiteral("IDGrp = %1").arg(group));
        EXPECT_EQ(count("tbParametersUser", QStringLiteral("IDGrp = %1").arg(group)),
                  instruments * kParameters);
        EXPECT_EQ(count("tbGroupsUser", QStringLiteral("IDGrp = %1").arg(group)), instruments > 0);
        return instruments;
    }

    structure::PlantClipboard clipboard{{session, texts, op, structure, editor}};
    structure::PlantStates states{session, texts, op, structure};
};

TEST_F(FullDiskPlant, Duplicate)
{
    sweep([this] { paste(false); },
          [this](bool well) {
              EXPECT_EQ(instrumentsOf(1), kInstruments);
              EXPECT_EQ(instrumentsOf(3), well ? kInstruments : 0);
          });
}

TEST_F(FullDiskPlant, Move)
{
    std::set<QString> ends;
    sweep([this] { paste(true); },
          [&](bool well) {
              const int old = instrumentsOf(1), moved = instrumentsOf(3);
              ends.insert(QStringLiteral("%1 %2").arg(old).arg(moved));
              EXPECT_EQ(old, well ? 0 : kInstruments);
              EXPECT_TRUE(moved == 0 || moved == kInstruments);
              EXPECT_EQ(old + moved > 0, true) << "it is nowhere";
              const QString last = op.boxes.back().text;
              EXPECT_EQ(last, well ? texts(509) : moved > 0 ? texts.own("move.both") : texts(507));
          });
    EXPECT_GE(ends.size(), 2u);
}

TEST_F(FullDiskPlant, Delete)
{
    sweep(
        [this] {
            const bool erased = editor.Erase_Item("1_1");
            EXPECT_EQ(erased, failures.failures().empty());
        },
        [this](bool well) { EXPECT_EQ(instrumentsOf(1), well ? 0 : kInstruments); });
}

TEST_F(FullDiskPlant, Synchronise)
{
    runOnPlant("DELETE FROM tbParametersUser WHERE IDPar IN ('P0101', 'P0204', 'P0302');"
               "DELETE FROM tbParametersUser WHERE IDParGrp = 'G03'; VACUUM;");
    const int lacking = count("tbParametersUser") / kInstruments;
    sweep([this] { states.Synchronize_Item("Root"); },
          [&](bool well) {
              EXPECT_EQ(count("tbParametersUser"), (well ? kParameters : lacking) * kInstruments);
              EXPECT_EQ(count("tbParametersUser", "State = 2"),
                        well ? (kParameters - lacking) * kInstruments : 0);
          });
}

TEST_F(FullDiskPlant, Reset)
{
    sweep([this] { structure::Restore_Item(session, op, "Root"); },
          [this](bool well) {
              EXPECT_EQ(count("tbParametersUser", "State = 1"), well ? 0 : kInstruments * kParameters);
          });
}

} // namespace
