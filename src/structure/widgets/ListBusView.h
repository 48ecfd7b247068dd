#pragma once

#include "widgets/Forward.h"

#include <QStackedWidget>

class QAbstractItemView;
class QKeyEvent;
class QLabel;
class QListView;
class QTreeView;

namespace structure {

class ListModel;

// One list in four views: large icons, small icons, list, report. They share model and selection, so that a
// change of view changes nothing else.
class ListBusView : public QStackedWidget
{
    Q_OBJECT

public:
    explicit ListBusView(ListModel& model, QWidget* parent = nullptr);

    // 0 large icons, 1 small icons, 2 list, 3 report.
    void setView(int view);
    int view() const { return view_; }
    // Selects without telling; "" selects nothing.
    void select(const QString& key);
    QString selectedKey() const;

    // Widths of the three columns in points; one below 1 stays at its default.
    void setColumnWidth(int column, int points);
    int columnWidth(int column) const;
    // The views that show the list, one of them at a time.
    QList<QAbstractItemView*> views() const;
    // What stands in the middle of an empty list.
    void setEmptyText(const QString& text);

signals:
    void itemPressed(const QString& key); // by mouse, or reached by an arrow key
    void itemOpened(const QString& key);  // double click
    void insertPressed();
    void deletePressed();
    void enterPressed();
    void parentPressed(); // Backspace
    void columnClicked(int column);
    void menuWanted(const QPoint& globalPosition);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QAbstractItemView* current() const;
    void prepare(QAbstractItemView* view);
    bool keyPressed(QKeyEvent* event);
    bool pressCurrent();
    void showArrow();
    void showEmptyText();

    ListModel& model_;
    QTreeView* report_;
    widgets::SortHeader* header_;
    QListView* icons_;
    QLabel* empty_;
    int view_ = 0;
    bool selecting_ = false;
    bool keyGesture_ = false;
};

} // namespace structure
