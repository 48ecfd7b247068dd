#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"
#include "widgets/Forward.h"

#include <QDialog>
#include <QHash>
#include <functional>

class QAction;
class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QMenuBar;
class QStatusBar;
class QToolBar;

namespace users {

class UserEditor;

// The operators of the company, one record at a time.
class frmUsers : public QDialog
{
    Q_OBJECT

public:
    struct Surroundings
    {
        const session::Session& session;
        const session::Texts& texts;
        platform::Operator& op;
        UserEditor& editor;
        // Runs a command of the main window: the size of the toolbars' icons.
        std::function<void(const QString& command)> runCommand;
    };

    explicit frmUsers(const Surroundings& with);
    ~frmUsers() override;

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    using Command = void (UserEditor::*)();

    QMenuBar* makeMenus();
    QMenu* addMenu(QMenuBar& bar, const char* name, int text);
    QAction* addEntry(QMenu& menu, const char* name, int text, const QString& picture = {});
    void addCommand(QMenu& menu, const char* name, int text, const QString& picture, Command command);
    void addEdit(QMenu& menu, const char* name, int text, const QString& picture,
                 std::function<void(QLineEdit&)> edit);
    void addIcons(QMenu& menu, const char* name, int text, const QString& command);
    QToolBar* makeToolbar();
    void addButton(const char* key, const QString& picture, int text, const char* entry);
    QWidget* makeFields();
    QWidget* makeRights();
    QStatusBar* makeStatusBar();

    void showRecord();
    void showControls();
    void showIcons();
    void showInfo();
    QLineEdit* activeField() const;

    const session::Session& session_;
    const session::Texts& texts_;
    UserEditor& editor_;
    std::function<void(const QString& command)> runCommand_;
    QToolBar* tlbMain_ = nullptr;
    QHash<QString, QAction*> entries_;           // of the menus, by name
    QHash<QString, widgets::TextField*> fields_; // by column
    QHash<QString, QCheckBox*> checks_;          // by column
    QListWidget* lbxState_ = nullptr;
    QLabel* info_ = nullptr;
};

} // namespace users
