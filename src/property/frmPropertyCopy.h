#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

#include <QDialog>
#include <functional>

class QAction;
class QMenu;
class QMenuBar;
class QLabel;
class QProgressBar;
class QToolBar;
class QTreeView;

namespace property {

class PropertyCopy;

// The list of blocks to copy to, with its commands as menu and toolbar.
class frmPropertyCopy : public QDialog
{
    Q_OBJECT

public:
    struct Surroundings
    {
        const session::Session& session;
        const session::Texts& texts;
        platform::Operator& op;
        // Runs a command of the main window: the look of all toolbars is one setting.
        std::function<void(const QString& command)> runCommand;
        PropertyCopy& copy;
    };

    explicit frmPropertyCopy(const Surroundings& surroundings);
    ~frmPropertyCopy() override;

protected:
    void changeEvent(QEvent* event) override;

private:
    QMenuBar* makeMenus();
    QToolBar* makeToolbar();
    QTreeView* makeList();
    QAction* addEntry(QMenu& menu, const char* name, const char* tag);
    void addButton(const char* key, const char* icon, const char* tag, QAction* entry);
    void showWords();
    void showProgress(int done, int total);
    void chooseIcons(const QString& command);
    void ResetIcon();

    const session::Session& session_;
    const session::Texts& texts_;
    std::function<void(const QString& command)> runCommand_;
    PropertyCopy& copy_;
    QLabel *lblSource_, *lblWritten_;
    QAction *mnuCheck_, *mnuUncheck_, *mnuCopy_, *mnuExit_;
    QToolBar* tlbMain_;
    QTreeView* lvwItems_;
    QProgressBar* prgLoad_;
};

} // namespace property
