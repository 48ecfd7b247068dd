#pragma once

#include "history/CompareModel.h"
#include "platform/Forward.h"
#include "session/Forward.h"
#include "structure/LatestJob.h"

#include <QDialog>
#include <functional>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QTreeView;

namespace session {
class Printing;
}

namespace history {

// "Compare": an element beside the catalogue's defaults, beside another one, or beside itself in another
// file. Nothing is changed by it.
class frmCompare : public QDialog
{
    Q_OBJECT

public:
    struct Surroundings
    {
        session::Session& session;
        const session::Texts& texts;
        platform::Operator& op;
        session::Printing& printing;
        // Shows a parameter in the main window; false when it isn't there any more.
        std::function<bool(const QString& key)> show;
        // What the element is called.
        std::function<QString(const QString& key)> pathOf;
        std::function<std::vector<SideValue>(const QString& file)> readTrace;
    };

    explicit frmCompare(const Surroundings& with);

    void open(const QString& key);

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void layOut();
    void listen();
    void offer();
    void choose(int entry);
    std::optional<QString> askFile(CompareWith::Kind kind);
    void refresh();
    void showComparison(const Comparison& comparison);
    void showRows(const QString& selected);
    void showCommands();
    void take();
    void save();
    void print();
    void relabel();

    Surroundings with_;
    CompareModel model_;
    QString key_;
    std::vector<Comparable> elements_;
    CompareWith chosen_;
    int entry_ = 0; // of cbxWith
    QLabel *lblElement_, *lblWith_;
    QComboBox* cbxWith_;
    QCheckBox* chkAll_;
    QTreeView* lvwCompare_;
    QLabel* lblCount_;
    QPushButton *cmdShow_, *cmdPrint_, *cmdSave_, *cmdClose_;
    structure::LatestJob<Comparison> job_;
};

} // namespace history
