#pragma once

#include "dialogs/ZoomModel.h"
#include "platform/Forward.h"
#include "session/Forward.h"
#include "session/Lookup.h"

#include <QObject>

namespace dialogs {

// The lookup list without its window: what it shows, how it is searched, what is chosen in it.
class Zoom : public QObject, public session::Lookup
{
    Q_OBJECT

public:
    Zoom(session::Session& session, platform::Operator& op);

    QString ShowZoom(const QString& Value) override;

    ZoomModel& list() { return list_; }
    // The panel "Rows".
    const QString& rowsText() const { return rowsText_; }

    // The window comes up: nothing is chosen yet, the list is filled.
    void Load();
    // Builds the query and fills the list again. A bad query is reported and leaves the list empty.
    void Refresh();
    // The row's key becomes the result; false for no row.
    bool pick(int row);

    // Ask for a text, or take the last one, and look for it behind the selected row (-1 for none). The row
    // that holds it, or -1 when nothing is to be selected.
    int Find(int selectedRow);
    int FindAgain(int selectedRow);

signals:
    void progress(int percent);
    void filled();

private:
    void fillFrom(platform::Recordset& records);
    int search(int selectedRow);

    session::Session& session_;
    platform::Operator& operator_;
    ZoomModel list_;
    QString rowsText_;
    QString sought_;
};

} // namespace dialogs
