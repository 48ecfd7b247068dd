#include "structure/ParamGroupNodes.h"

#include "session/Session.h"
#include "structure/PlantFixture.h"

#include <QProcess>
#include <SQLiteCpp/SQLiteCpp.h>

namespace {

// The statement of the tree as it would be put plainly.
QString plainStatement(const QString& condition, const QString& language)
{
    return QStringLiteral(
               "SELECT tbParametersUser.IDGrp, tbParametersUser.IDInst, tbParametersUser.IDParGrp, "
               "tbParamGroupLanguage.mDesc AS Name FROM tbParametersUser INNER JOIN tbParamGroupLanguage ON "
               "tbParametersUser.IDParGrp = tbParamGroupLanguage.mID WHERE (%1(tbParamGroupLanguage.mKeyLang "
               "= "
               "'%2')) GROUP BY tbParametersUser.IDGrp, tbParametersUser.IDInst, tbParametersUser.IDParGrp, "
               "tbParamGroupLanguage.mDesc ORDER BY tbParametersUser.IDGrp, tbParametersUser.IDInst, "
               "tbParametersUser.IDParGrp;")
        .arg(condition, language);
}

QStringList rowsOf(const QString& file, const QString& sql)
{
    SQLite::Database company(file.toStdString());
    SQLite::Statement row(company, sql.toStdString());
    QStringList rows;
    while (row.executeStep()) {
        QStringList fields;
        for (int column = 0; column < row.getColumnCount(); ++column)
            fields << QString::fromStdString(row.getColumn(column).getString());
        rows << fields.join('|');
    }
    return rows;
}

TEST(ParamGroupNodesTest, TheStatementGivesTheRowsAndTheOrderOfThePlainOneOnALargeCompany)
{
    const QTemporaryDir folder;
    const QString company = folder.filePath("Large.mdb");
    ASSERT_EQ(QProcess::execute(CALIDORA_GENERATE_COMPANY, {CALIDORA_SCHEMA, company, "60"}), 0);
    const std::pair<structure::KeyParts, const char*> places[] = {
        {{}, ""},
        {{"1", "7", {}, {}, {}}, "(tbParametersUser.IDGrp = 7) AND "},
        {{"2", "7", "3", {}, {}}, "(tbParametersUser.IDGrp = 7) AND (tbParametersUser.IDInst = 3) AND "}};
    qsizetype expected = 60 * 10 * 8;
    for (const auto& [below, condition] : places) {
        const QStringList rows = rowsOf(company, structure::paramGroupsStatement(below, "EN"));
        EXPECT_EQ(rows.size(), expected);
        EXPECT_EQ(rows, rowsOf(company, plainStatement(condition, "EN")));
        expected = expected == 80 ? 8 : 80;
    }
}

class ParamGroupNodesOfPlant : public plant::PlantFixture
{
};

TEST_F(ParamGroupNodesOfPlant, AGroupWithoutADescriptionInTheLanguageIsLeftOut)
{
    runOnPlant("DELETE FROM tbParamGroupLanguage WHERE mID = 'G02' AND mKeyLang = 'IT';");
    for (const QString language : {"EN", "IT", "RU", "O'FR"}) {
        const QString quoted = QString(language).replace("'", "''");
        EXPECT_EQ(rowsOf(plantFile(), structure::paramGroupsStatement({}, language)),
                  rowsOf(plantFile(), plainStatement("", quoted)))
            << language.toStdString();
    }
}

TEST_F(ParamGroupNodesOfPlant, WhatTheTreeLacksIsAddedAndCounted)
{
    const structure::KeyParts all;
    EXPECT_EQ(structure::addParamGroupNodes(session, structure, all), 0);
    structure.Remove_Node_TreeBus("3_1_1_G01");
    structure.Remove_Node_TreeBus("3_1_2_G11");
    EXPECT_EQ(structure::addParamGroupNodes(session, structure, {"1", "2", {}, {}, {}}), 0);
    EXPECT_EQ(structure::addParamGroupNodes(session, structure, {"2", "1", "2", {}, {}}), 1);
    EXPECT_EQ(structure::addParamGroupNodes(session, structure, all), 1);
    EXPECT_EQ(structure.tree().keyOf(structure.tree().index(0, 0, structure.tree().indexOf("2_1_1"))),
              "3_1_1_G01");
    structure.Remove_Node_TreeBus("2_1_1");
    EXPECT_EQ(structure::addParamGroupNodes(session, structure, all), 0) << "nothing stands above them";
    ASSERT_TRUE(connectPlant());
}

} // namespace
