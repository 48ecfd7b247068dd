#pragma once

#include "history/HistoryModel.h"
#include "platform/Forward.h"
#include "session/Forward.h"
#include "structure/LatestJob.h"
#include "widgets/Forward.h"

#include <QDialog>
#include <functional>

class QCheckBox;
class QLabel;
class QPushButton;
class QTreeView;

namespace history {

class ValuePlot;

// "Value history": what the values below an element were before, who changed them, and why. It stays beside
// the main window and is read again whenever the operator comes back to it.
class frmHistory : public QDialog
{
    Q_OBJECT

public:
    struct Surroundings
    {
        session::Session& session;
        const session::Texts& texts;
        platform::Operator& op;
        const platform::Clock& clock;
        // Shows a parameter in the main window; false when it isn't there any more.
        std::function<bool(const QString& key)> show;
        // Opens the properties of a parameter with a value in its field.
        std::function<void(const QString& key, const std::optional<QString>& value)> takeOver;
        // What the element is called.
        std::function<QString(const QString& key)> pathOf;
    };

    explicit frmHistory(const Surroundings& with);

    // Shows the history of an element, or what one operation left different below it.
    void open(const QString& key, std::optional<qint64> operation = {});

protected:
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;

private:
    void layOut();
    void listen();
    void refresh();
    void showPage(const HistoryPage& page);
    void showHeading();
    void showCommands();
    void showCount();
    void narrow();
    void save();
    void relabel();
    const ShownNote* current() const;
    bool isOneParameter() const;

    Surroundings with_;
    HistoryModel model_;
    QString key_;
    std::optional<qint64> operation_;
    HistoryPage page_; // without its notes, which are the model's
    QLabel* lblElement_;
    widgets::NarrowField* txtNarrow_;
    QCheckBox *chkLast_, *chkFailed_;
    QTreeView* lvwHistory_;
    ValuePlot* plot_;
    QLabel* lblCount_;
    QPushButton *cmdTakeOver_, *cmdShow_, *cmdSave_, *cmdClose_;
    structure::LatestJob<HistoryPage> job_;
};

} // namespace history
