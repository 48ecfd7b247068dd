#pragma once

#include "session/Forward.h"

#include <QWidget>

class QKeyEvent;
class QProgressBar;

namespace widgets {
class ElidedLabel;
}

namespace structure {

class FilterField;
class ListBusView;
class Structure;

// The children of the selected node: the path above, the list lvwBus below, and the progress of long jobs.
class frmListBus : public QWidget
{
    Q_OBJECT

public:
    frmListBus(Structure& structure, session::Session& session, const session::Texts& texts,
               QWidget* parent = nullptr);

    // Stores the columns' widths, as the window goes.
    void keepColumnWidths();

    void showProgress(bool visible);
    void setProgress(int percent);
    // What the job is at, in words; they go with its end.
    void tellStep(const QString& words);

    ListBusView& view() const { return *lvwBus_; }

    // Opens the filter over the list, or goes to it.
    void showFilter();

signals:
    void menuWanted(const QPoint& globalPosition); // the popup mnuBus
    void commandWanted(const QString& command);

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void listen();
    void showEmptyText();
    void restoreColumnWidths();
    // Of the node whose children the list shows; -1 for the item "Root" alone.
    int shownLevel() const;

    Structure& structure_;
    session::Session& session_;
    const session::Texts& texts_;
    widgets::ElidedLabel* lblPath_;
    FilterField* txtFilter_;
    ListBusView* lvwBus_;
    widgets::ElidedLabel* lblUpdate_;
    QProgressBar* prgUpdate_;
};

} // namespace structure
