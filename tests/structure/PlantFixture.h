#pragma once

#include "session/Lookup.h"
#include "structure/PlantEditor.h"
#include "support/CompanyFixture.h"

namespace plant {

// A pick-list that nobody opens.
class NoLookup : public session::Lookup
{
public:
    QString ShowZoom(const QString&) override { return {}; }
};

// The small company, worked on by somebody who may modify it. At the end tree, list and database agree.
class PlantFixture : public support::CompanyFixture
{
protected:
    PlantFixture() { connectPlant(); }
    ~PlantFixture() override { expectAgreement(); }

    QStringList rows(const QString& sql) { return support::column(plantFile(), sql); }
    int count(const QString& table, const QString& where = "1")
    {
        return rows("SELECT Count(*) FROM " + table + " WHERE " + where).value(0).toInt();
    }
    // Everything that an element holds, without its number, to compare an original and its copy.
    QStringList parametersOf(const QString& where)
    {
        return rows(
            "SELECT IDPar || '|' || IDParGrp || '|' || quote(Value) || '|' || State FROM tbParametersUser "
            "WHERE " +
            where + " ORDER BY IDInst, IDPar");
    }
    void breakDatabase() { session.cnDatabase.Execute("PRAGMA query_only=ON;"); }
    void mendDatabase() { session.cnDatabase.Execute("PRAGMA query_only=OFF;"); }

    // Keys of a tree's level, in the order of the database's opening.
    QStringList treeKeys()
    {
        QStringList keys;
        collect(structure.tree().indexOf("Root"), keys);
        return keys;
    }
    QStringList listKeys()
    {
        QStringList keys;
        for (int row = 0; row < structure.list().rowCount(); ++row)
            keys << structure.list().keyAt(row);
        return keys;
    }

    NoLookup noLookup;
    structure::PlantEditor editor{{session, texts, op, structure, noLookup, [](const QString&) {}}};

private:
    void collect(const QModelIndex& node, QStringList& keys)
    {
        if (!node.isValid())
            return;
        keys << structure.tree().keyOf(node) + ' ' + structure.tree().captionOf(structure.tree().keyOf(node));
        for (int row = 0; row < structure.tree().rowCount(node); ++row)
            collect(structure.tree().index(row, 0, node), keys);
    }

    // The tree is the one that a new connection shows, and the list that of a reload.
    void expectAgreement()
    {
        if (session.DbName.isEmpty())
            return;
        const QStringList shown = treeKeys();
        const QString node = structure.selectedNode();
        const bool showsChildren = !node.isEmpty() && !structure.list().item("Root");
        const QStringList listed = listKeys();
        ASSERT_TRUE(connectPlant());
        EXPECT_EQ(shown, treeKeys());
        if (!showsChildren)
            return;
        structure.clickNode(node);
        EXPECT_EQ(listed, listKeys());
    }
};

} // namespace plant
