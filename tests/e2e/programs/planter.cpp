// Does one of the works that change the plant of a company, over and over, to be killed in the middle of it.
// Its argument is the work: duplicate, move, delete, synchronise or reset. It tells on its standard output
//
//   company FILE
//   # WORK KEY   it is about to do this with that element
//   = WORK KEY   that was done
//   anything     the work is at another step

#include "structure/PlantClipboard.h"
#include "structure/PlantFixture.h"
#include "structure/PlantStates.h"

#include <QCoreApplication>

#include <map>
#include <unistd.h>

namespace {

using platform::answers::kYes;

constexpr int kFirst = 1, kOthers = 2; // the group that is worked on, and one beside it

// Straight to the pipe: nothing that was told may be lost with the process.
void tell(const QString& line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    if (write(STDOUT_FILENO, bytes.constData(), std::size_t(bytes.size())) < 0)
        _exit(1);
}

QString groupKey(int group)
{
    return QStringLiteral("1_%1").arg(group);
}

class Planter : public plant::PlantFixture
{
public:
    Planter()
    {
        grow();
        connectPlant();
        QObject::connect(&structure, &structure::Structure::updateProgress,
                         [](int percent) { tell(QStringLiteral("at %1").arg(percent)); });
        tell("company " + plantFile());
    }

    void work(const std::string& name)
    {
        const std::map<std::string, void (Planter::*)()> works{{"duplicate", &Planter::duplicate},
                                                               {"move", &Planter::move},
                                                               {"delete", &Planter::erase},
                                                               {"synchronise", &Planter::synchronise},
                                                               {"reset", &Planter::reset}};
        for (;;)
            (this->*works.at(name))();
    }

private:
    void TestBody() override {}

    // 700 instruments of 14 parameters: a work takes many pages of the file.
    void grow()
    {
        runOnPlant(R"(
            BEGIN;
            DELETE FROM tbParametersUser; DELETE FROM tbInstrumentsUser; DELETE FROM tbGroupsUser;
            INSERT INTO tbGroupsUser VALUES (1, 'MANY', NULL, NULL), (2, 'OTHERS', NULL, NULL);
            INSERT INTO tbInstrumentsUser WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 700)
              SELECT 1, i, 'KT100', 'INST' || i, NULL, '11' FROM n;
            INSERT INTO tbParametersUser
              SELECT 1, IDInst, tbParam.mID, tbParam.mKeyParGroup, 'V' || IDInst || '.' || tbParam.mID || hex(zeroblob(20)), 1
              FROM tbInstrumentsUser, tbParam, tbParamGroup
              WHERE tbParam.mKeyParGroup = tbParamGroup.mID AND tbParamGroup.mKeyInst = 1;
            COMMIT;)");
    }

    template <class Work>
    void announced(const QString& what, const Work& doIt)
    {
        tell("# " + what);
        doIt();
        tell("= " + what);
    }
    void paste(const QString& key, bool cut, const QString& target)
    {
        structure.clickNode(key);
        cut ? clipboard.Cut_Node() : clipboard.Copy_Node();
        structure.clickNode(target);
        op.expect(texts(cut ? 507 : 508), kYes);
        op.expect(texts(509));
        clipboard.Paste_Item();
        op.boxes.clear();
    }
    int newestGroup() { return rows("SELECT Max(IDGrp) FROM tbGroupsUser")[0].toInt(); }

    // A group and an instrument of it, which go again.
    void duplicate()
    {
        announced("duplicate 1_1", [this] { paste(groupKey(kFirst), false, structure::kRootKey); });
        announced("duplicate 2_1_7", [this] { paste("2_1_7", false, groupKey(kOthers)); });
        const QString copy = groupKey(newestGroup());
        announced("delete " + copy, [&] { editor.Erase_Item(copy); });
    }
    // The group gets a new number each time, and one of its instruments goes to the other group and back.
    void move()
    {
        const QString group = groupKey(rows("SELECT IDGrp FROM tbGroupsUser WHERE Name = 'MANY'")[0].toInt());
        announced("move " + group, [&] { paste(group, true, structure::kRootKey); });
        const QString moved = groupKey(newestGroup());
        const QString instrument =
            "2" + moved.mid(1) + "_" +
            rows("SELECT Max(IDInst) FROM tbInstrumentsUser WHERE IDGrp = " + moved.mid(2))[0];
        announced("move " + instrument, [&] { paste(instrument, true, groupKey(kOthers)); });
        const QString back = "2_2_" + rows("SELECT Max(IDInst) FROM tbInstrumentsUser WHERE IDGrp = 2")[0];
        announced("move " + back, [&] { paste(back, true, moved); });
    }
    // A copy made for it.
    void erase()
    {
        announced("duplicate 1_1", [this] { paste(groupKey(kFirst), false, structure::kRootKey); });
        const QString copy = groupKey(newestGroup());
        announced("delete 2" + copy.mid(1) + "_5", [&] { editor.Erase_Item("2" + copy.mid(1) + "_5"); });
        announced("delete " + copy, [&] { editor.Erase_Item(copy); });
    }
    // Each instrument lacks a parameter, and another one in its place, each time.
    void synchronise()
    {
        session.cnDatabase.Execute("DELETE FROM tbParametersUser WHERE IDPar IN ('P0101', 'P0204', 'P0302')");
        announced("synchronise Root", [this] { states.Synchronize_Item(structure::kRootKey); });
    }
    void reset()
    {
        session.cnDatabase.Execute("UPDATE tbParametersUser SET State = 1");
        announced("reset Root", [this] { structure::Restore_Item(session, op, structure::kRootKey); });
    }

    structure::PlantClipboard clipboard{{session, texts, op, structure, editor}};
    structure::PlantStates states{session, texts, op, structure};
};

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc == 2)
        Planter().work(argv[1]);
}
