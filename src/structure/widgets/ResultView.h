#pragma once

#include "widgets/Forward.h"

#include <QTreeView>

namespace structure {

class ListModel;

// A list of elements from all over the plant: name, value, path. A header click sorts; Enter or a double
// click takes an element.
class ResultView : public QTreeView
{
    Q_OBJECT

public:
    explicit ResultView(ListModel& model, QWidget* parent = nullptr);

    QString selectedKey() const;
    // Selects the element, or the first one when it isn't there.
    void select(const QString& key);

signals:
    void taken(const QString& key);

private:
    ListModel& model_;
    widgets::SortHeader* header_;
};

} // namespace structure
