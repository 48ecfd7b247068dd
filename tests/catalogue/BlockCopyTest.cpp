// The copy window on the blocks that the published catalogue repeats, in every instrument of the demo
// company.
#include "tests/catalogue/Published.h"

#include "property/PropertyFixture.h"

namespace catalogue {
namespace {

using testing::published;

class BlockCopyTest : public support::PropertyFixture
{
protected:
    BlockCopyTest()
    {
        writeCompany(published().demo, published().catalogue, published().model, demoFile());
        EXPECT_TRUE(connectTo("Demo.mdb") && logIn("1", "1234"));
        session.cnDatabase.Execute("PRAGMA synchronous=OFF;");
    }

    QString demoFile() const { return file("Data/Demo.mdb"); }
    QStringList ask(const QString& sql) const { return support::column(demoFile(), sql); }

    // One instrument of each type that has such blocks: "IDGrp_IDInst".
    QStringList instruments() const
    {
        return ask("SELECT Min(u.IDGrp || '_' || u.IDInst) FROM tbInstrumentsUser u, tbParametersUser p, "
                   "tbParam c WHERE u.IDGrp = p.IDGrp AND u.IDInst = p.IDInst AND p.IDPar = c.mID AND "
                   "c.mIDCopy IS NOT NULL GROUP BY u.IDItem");
    }
    static QString conditionOf(const QString& instrument)
    {
        return QString("IDGrp = %1 AND IDInst = %2")
            .arg(instrument.section('_', 0, 0), instrument.section('_', 1));
    }
    static QString rowsOf(const QString& instrument, const QString& columns, const QString& condition)
    {
        return QString("SELECT %1 FROM tbParametersUser, tbParam WHERE IDPar = mID AND %2 AND %3 ORDER BY "
                       "mIDCopy, IDPar")
            .arg(columns, conditionOf(instrument), condition);
    }
    // The families of an instrument's blocks, those with one block alone among them.
    QStringList families(const QString& instrument) const
    {
        return ask(rowsOf(instrument, "DISTINCT substr(mIDCopy, 1, 2)", "mIDCopy IS NOT NULL"));
    }
    QStringList blocks(const QString& instrument, const QString& family) const
    {
        return ask(rowsOf(instrument, "DISTINCT substr(mIDCopy, 4, 2)", "mIDCopy LIKE '" + family + "%'"));
    }
    // "place value state" of all parameters of a block.
    QStringList block(const QString& instrument, const QString& family, const QString& number) const
    {
        return ask(rowsOf(instrument, "substr(mIDCopy, 6) || ' ' || IfNull(Value, 'NULL') || ' ' || State",
                          QString("mIDCopy LIKE '%1_%2%'").arg(family, number)));
    }
    // Opens the copy on the first parameter of a family.
    void openCopy(const QString& instrument, const QString& family)
    {
        open(ask(rowsOf(instrument, "'4_" + instrument + "_' || IDParGrp || '_' || IDPar",
                        "mIDCopy LIKE '" + family + "%'"))
                 .value(0));
        EXPECT_TRUE(controls().cmdCopy.enabled);
        copy.load();
    }
};

TEST_F(BlockCopyTest, OffersEveryOtherBlockUnderANameOfItsOwnInEveryLanguage)
{
    int families = 0;
    for (const char* language : {"EN_English_2000", "IT_Italiano_1000", "RU_Russian_6000"}) {
        setLanguage(language);
        for (const QString& instrument : instruments()) {
            for (const QString& family : this->families(instrument)) {
                SCOPED_TRACE((QString(language) + ' ' + instrument + ' ' + family).toStdString());
                openCopy(instrument, family);
                QStringList offered, names;
                for (int row = 0; row < copy.rowCount(); ++row) {
                    offered << copy.index(row, 0).data().toString();
                    names << copy.index(row, 1).data().toString();
                }
                EXPECT_EQ(offered, blocks(instrument, family).mid(1));
                EXPECT_FALSE(names.contains(QString()));
                EXPECT_EQ(names.removeDuplicates(), 0);
                ++families;
            }
        }
    }
    EXPECT_GT(families, 20);
}

TEST_F(BlockCopyTest, CopiesEachPlaceOfTheBlockAndNothingElse)
{
    int copied = 0;
    for (const QString& instrument : instruments()) {
        for (const QString& family : families(instrument)) {
            SCOPED_TRACE((instrument + ' ' + family).toStdString());
            const QStringList numbers = blocks(instrument, family);
            if (numbers.size() == 1)
                continue;
            const QString others = "(mIDCopy IS NULL OR mIDCopy NOT LIKE '" + family + "%')";
            const QString dump =
                rowsOf(instrument, "IDPar || ' ' || IfNull(Value, 'NULL') || ' ' || State", others);
            const QStringList untouched = ask(dump);
            openCopy(instrument, family);
            copy.Check_List();
            if (numbers.size() > 2)
                op.expect(texts(533) + "\r\n" + texts(534), platform::answers::kYes);
            copy.Copy_Value();

            // The source keeps its states, its twins are marked.
            QStringList expected;
            for (const QString& place : block(instrument, family, numbers[0]))
                expected << place.chopped(1) + '1';
            for (const QString& number : numbers.mid(1)) {
                EXPECT_EQ(block(instrument, family, number), expected) << number.toStdString();
                ++copied;
            }
            EXPECT_EQ(ask(dump), untouched);
        }
    }
    EXPECT_GT(copied, 30);
    EXPECT_EQ(ask("PRAGMA integrity_check"), QStringList{"ok"});
}

} // namespace
} // namespace catalogue
