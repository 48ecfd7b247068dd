#pragma once

#include "widgets/Forward.h"

#include <QTreeView>
#include <optional>
#include <vector>

class QLabel;

namespace events {

class EventModel;

// The list of events with its check boxes and the types' pictures.
class EventView : public QTreeView
{
    Q_OBJECT

public:
    explicit EventView(EventModel& model, QWidget* parent = nullptr);

    // What stands in the middle of an empty list.
    void setEmptyText(const QString& text);
    // The selected rows, from the first to the last.
    std::vector<int> selectedRows() const;

    void keyboardSearch(const QString& search) override;

signals:
    void taken(int row); // Enter or double click

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void showArrow();
    void toggleChecks();
    void keepPlace();
    void placeEmptyText();

    EventModel& model_;
    widgets::SortHeader* header_;
    QLabel* empty_;
    std::optional<quint32> current_; // the event that was the current one before the rows changed
};

} // namespace events
