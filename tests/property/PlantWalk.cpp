#include "property/PlantWalk.h"
#include "support/ReplayedHistory.h"

namespace walk {

PlantWalk::PlantWalk()
{
    runOnPlant("DELETE FROM tbParametersUser; DELETE FROM tbInstrumentsUser; DELETE FROM tbGroupsUser;"
               "UPDATE tbParam SET mIDCopy = NULL;");
    // Two families: measures in three blocks, the last of them shorter, and the times.
    const std::pair<const char*, const char*> places[] = {
        {"P0101", "MS.01.01"}, {"P0102", "MS.01.02"}, {"P0103", "MS.02.01"}, {"P0104", "MS.02.02"},
        {"P0105", "MS.03.01"}, {"P0301", "TM.01.01"}, {"P0302", "TM.02.01"}, {"P0303", "TM.03.01"}};
    for (const auto& [IDPar, IDCopy] : places)
        runOnPlant(QStringLiteral("UPDATE tbParam SET mIDCopy = '%1' WHERE mID = '%2';"
                                  "INSERT INTO tbParamCopyLanguage VALUES ('%1', 'EN', 'Block')")
                       .arg(IDCopy, IDPar));
    EXPECT_TRUE(connectPlant());
    session.cnDatabase.Execute("PRAGMA synchronous=OFF;");
    readCatalogue();
    structure.clickNode("Root");
    op.onModal = [this](const QString& form) { inside(form); };
}

void PlantWalk::walk(unsigned seed, int steps)
{
    random.seed(seed);
    for (int step = 0; step < steps && !HasFailure(); ++step) {
        SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(step));
        takeStep();
        compare();
    }
    EXPECT_EQ(rows("PRAGMA integrity_check", "integrity_check"), QStringList{"ok"});
    expectHistory();
}

void PlantWalk::expectHistory()
{
    EXPECT_EQ(recorder.failure(), "");
    support::PlantValues played;
    support::replayHistory(plantFile(), played);
    EXPECT_EQ(played, support::valuesOf(plantFile()));
    const QString history = history::historyFileOf(plantFile());
    EXPECT_EQ(support::column(history, "SELECT Count(*) FROM tbNote WHERE Cause = 0"), QStringList{"0"});
}

void PlantWalk::expectEveryCause() const
{
    EXPECT_EQ(support::column(history::historyFileOf(plantFile()),
                              "SELECT DISTINCT Cause FROM tbNote ORDER BY Cause"),
              QStringList({"2", "3", "4", "5", "6", "7", "11", "12"}));
}

QStringList PlantWalk::rows(const QString& sql, const QString& field)
{
    platform::Recordset records;
    QStringList texts;
    for (records.Open(sql, session.cnDatabase); !records.Eof(); records.MoveNext())
        texts << records.text(field);
    texts.sort();
    return texts;
}

void PlantWalk::readCatalogue()
{
    platform::Recordset row;
    row.Open("SELECT tbInstrument.mTag AS Type, tbParam.*, tbParamType.mTag AS KeyType, "
             "tbParamLanguage.mDesc AS Des FROM tbInstrument, tbParamGroup, tbParam, tbParamType, "
             "tbParamLanguage WHERE tbInstrument.mID = tbParamGroup.mKeyInst AND "
             "tbParamGroup.mID = tbParam.mKeyParGroup AND tbParam.mKeyType = tbParamType.mID AND "
             "tbParam.mID = tbParamLanguage.mID AND tbParamLanguage.mKeyLang = 'EN' ORDER BY tbParam.mID",
             session.cnDatabase);
    for (; !row.Eof(); row.MoveNext())
        catalogue[row.text("Type")].push_back({row.text("mKeyParGroup"), row.text("mID"), row.text("Des"),
                                               row.text("KeyType"), row.text("mDP"), row.text("mIDCopy"),
                                               row.optionalText("mUnit"), row.optionalText("mDftValue")});
    row.Close();
    row.Open("SELECT tbInstrument.mTag AS Type, tbParamGroup.mID, mDesc FROM tbInstrument, tbParamGroup, "
             "tbParamGroupLanguage WHERE tbInstrument.mID = mKeyInst AND tbParamGroup.mID = "
             "tbParamGroupLanguage.mID AND mKeyLang = 'EN'",
             session.cnDatabase);
    for (; !row.Eof(); row.MoveNext()) {
        typeGroups[row.text("Type")].insert(row.text("mID"));
        groupCaptions[row.text("mID")] = row.text("mDesc");
    }
    row.Close();
    row.Open("SELECT mKeyParam, mValue, mDesc FROM tbParamEnum INNER JOIN tbParamEnumLanguage ON "
             "tbParamEnum.mID = tbParamEnumLanguage.mID WHERE mKeyLang = 'EN'",
             session.cnDatabase);
    for (; !row.Eof(); row.MoveNext())
        choices[row.text("mKeyParam")][row.text("mValue")] = row.text("mDesc");
}

} // namespace walk
