#pragma once

#include <QItemSelectionModel>

namespace structure {

// A view of which one item is selected until another one is: Ctrl doesn't take the mark from an item that
// every command still acts on.
template <class View>
class OneSelected : public View
{
public:
    using View::View;

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override
    {
        const QItemSelectionModel::SelectionFlags command = View::selectionCommand(index, event);
        const bool unmarks = command & (QItemSelectionModel::Deselect | QItemSelectionModel::Toggle);
        return unmarks ? QItemSelectionModel::SelectionFlags(QItemSelectionModel::NoUpdate) : command;
    }
};

} // namespace structure
