#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"
#include "structure/Forward.h"

#include <QAbstractTableModel>
#include <vector>

namespace property {

class PropertyModel;

// Copies the values of the block of parameters that holds the one being edited to other blocks of its family
// in the same instrument. As a model it is lvwItems: a row a block, with its check mark; the block's number
// and its description.
class PropertyCopy : public QAbstractTableModel
{
    Q_OBJECT

public:
    PropertyCopy(session::Session& session, const session::Texts& texts, platform::Operator& op,
                 structure::Structure& structure, const PropertyModel& property);

    // The window opens and goes.
    void load();
    void unload();

    void Load_Items();
    void Check_List();
    void UnCheck_List();
    void Copy_Value();

    const QString& IDCopy() const { return IDCopy_; }
    int checkedCount() const;
    // The block that is copied from: its number and description.
    QString sourceName() const;
    // Values written by the copies since the window came up.
    int written() const { return written_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    // The captions follow the language.
    void relabel() { emit headerDataChanged(Qt::Horizontal, 0, 1); }

signals:
    void copied();                      // a copy is through
    void progress(int done, int total); // of prgLoad; it hides when both are equal

private:
    struct Block
    {
        QString id; // IDLev2
        QString description;
        bool checked = false;
    };

    QString sourceId() const;
    QString blocksSql() const;
    void checkAll(bool checked);
    bool mayCopy(int blocks);
    void copyCheckedBlocks();
    void keepEqual() const;
    void copyTo(const QString& IDCopy, const QVariant& value);

    session::Session& session_;
    const session::Texts& texts_;
    platform::Operator& operator_;
    structure::Structure& structure_;
    const PropertyModel& property_;
    QString IDCopy_;
    int written_ = 0;
    std::vector<Block> blocks_;
};

} // namespace property
