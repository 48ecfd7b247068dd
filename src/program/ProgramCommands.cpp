// What each command runs.

#include "dialogs/frmManual.h"
#include "history/frmCompare.h"
#include "history/frmHistory.h"
#include "platform/widgets/DesktopOperator.h"
#include "program/Program.h"
#include "program/frmMain.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "structure/frmListBus.h"

#include <QApplication>
#include <QDialog>

namespace program {

void Program::registerCommands()
{
    handlers_.set("NewDb", [this] { database_.New_Database(); });
    handlers_.set("OpenDb", [this] { database_.Open_Database(); });
    handlers_.set("CloseDb", [this] { main_.Close_Database(); });
    handlers_.set("BackupDb", [this] { safekeeping_.Backup_Database(); });
    handlers_.set("RestoreDb", [this] { safekeeping_.Restore_Database(); });
    handlers_.set("UpgradeDb", [this] { upgrade_.Upgrade_Database(); });
    handlers_.set("Users", [this] { with_.op.showFormModal("frmUsers"); });
    handlers_.set("Settings", [this] { settings_.show(); });
    handlers_.set("About", [this] { with_.op.showFormModal("frmInfo"); });
    handlers_.set("Manual", [this] { showManual("frmMain"); });
    handlers_.set("Enter", [this] { main_.LogInOut(); });
    handlers_.set("Exit", [this] { main_.leave(); });

    handlers_.set("Tree", [this] { structure_.Hide_TreeBus(); });
    handlers_.set("Expand", [this] { structure_.ExpandCollapse_TreeBusNodes(1); });
    handlers_.set("Collapse", [this] { structure_.ExpandCollapse_TreeBusNodes(0); });
    handlers_.set("Parent", [this] { structure_.Select_Item_ListBus(); });
    handlers_.set("Refresh", [this] { structure_.Refresh_Item(); });
    handlers_.set("View", [this] { structure_.Set_View_ListBus(-1); });
    const QStringList views{"LargeIcon", "SmallIcon", "List", "Report"};
    for (int view = 0; view < views.size(); ++view)
        handlers_.set(views[view], [this, view] { structure_.Set_View_ListBus(view); });

    handlers_.set("Filter", [this] { mainWindow()->listBus()->showFilter(); });
    handlers_.set("Find", [this] { showBeside("frmFind"); });
    handlers_.set("Pending", [this] { showBeside("frmPending"); });

    handlers_.set("TlbComplete", [this] { commands_.Set_View_Toolbar(-1); });
    handlers_.set("TlbReduced", [this] { commands_.Set_View_Toolbar(0); });
    handlers_.set("TlbLargeIcons", [this] { commands_.Set_Form_Icons(-1); });
    handlers_.set("TlbSmallIcons", [this] { commands_.Set_Form_Icons(0); });

    handlers_.set("New", [this] { editor_.New_Item(); });
    handlers_.set("NewNode", [this] { editor_.New_Item(); });
    handlers_.set("Delete", [this] { editor_.Delete_Item(); });
    handlers_.set("DeleteNode", [this] { editor_.Delete_Node(); });

    handlers_.set("Cut", [this] { clipboard_.Cut_Item(); });
    handlers_.set("CutNode", [this] { clipboard_.Cut_Node(); });
    handlers_.set("Copy", [this] { clipboard_.Copy_Item(); });
    handlers_.set("CopyNode", [this] { clipboard_.Copy_Node(); });
    handlers_.set("Paste", [this] { clipboard_.Paste_Item(); });
    handlers_.set("PasteNode", [this] { clipboard_.Paste_Item(); });
    handlers_.set("Resync", [this] { states_.Resync_Item(); });
    handlers_.set("ResyncNode", [this] { states_.Resync_Node(); });
    handlers_.set("Reset", [this] { states_.Reset_Item(); });
    handlers_.set("ResetNode", [this] { states_.Reset_Node(); });

    handlers_.set("Property", [this] { property_.Property_Item(); });
    handlers_.set("PropertyNode", [this] { property_.Property_Node(); });
    handlers_.set("History", [this] { showHistory(structure_.selectedItem()); });
    handlers_.set("HistoryNode", [this] { showHistory(structure_.selectedNode()); });
    handlers_.set("Compare", [this] { showCompare(structure_.selectedItem()); });
    handlers_.set("CompareNode", [this] { showCompare(structure_.selectedNode()); });
    handlers_.set("ReadWrite", [this] { console_.ReadWrite_Item(); });
    handlers_.set("ReadWriteNode", [this] { console_.ReadWrite_Node(); });
    handlers_.set("Export", [this] { export_.Export_Item(); });
    handlers_.set("Import", [this] { import_.Import_Item(); });
    handlers_.set("Print", [this] { print_.Print_Item(); });
    handlers_.set("Allarms", [this] { acknowledgeAlarms(); });
    handlers_.set("LineTrace", [this] { showOver("frmTrace"); });
    for (int row = 1; with_.texts.common(row) != QLatin1String("End_Language"); ++row)
        handlers_.set(QStringLiteral("Language") + with_.texts.common(row).left(2),
                      [this, row] { chooseLanguage(with_.texts.common(row)); });
    handlers_.set("Port", [this] { reopenPort(); });
    handlers_.set("EventViewer", [this] {
        if (session::rightOf(with_.session.CurrentUser.EventViewer))
            with_.op.showFormModal("frmEventViewer");
    });
}

// A window that stays beside the main one while the operator works in either.
void Program::showBeside(const QString& form)
{
    with_.op.showForm(form);
    with_.op.form(form)->activateWindow();
}

// The same when it is called up inside a dialog: there it takes the keys, and it goes back to the main window
// when the dialog ends.
void Program::showOver(const QString& form)
{
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    QWidget* open = with_.op.form(form);
    if (open && dialog && dialog != open->parentWidget())
        open->setParent(dialog, open->windowFlags());
    showBeside(form);
    if (!dialog)
        return;
    connect(dialog, &QDialog::finished, with_.op.form(form), [this, dialog, form] {
        QWidget* window = with_.op.form(form);
        if (window->parentWidget() != dialog)
            return;
        const bool shown = window->isVisible();
        window->setParent(mainWindow(), window->windowFlags());
        window->setVisible(shown);
    });
}

void Program::showHistory(const QString& key, std::optional<qint64> operation)
{
    if (key.isEmpty())
        return;
    showOver("frmHistory");
    qobject_cast<history::frmHistory*>(with_.op.form("frmHistory"))->open(key, operation);
}

void Program::showCompare(const QString& key)
{
    const int level = key.isEmpty() ? 0 : structure::Extract_Level(key);
    if (level < structure::kGroup || level > structure::kParamGroup)
        return;
    showBeside("frmCompare");
    qobject_cast<history::frmCompare*>(with_.op.form("frmCompare"))->open(key);
}

// The manual at the chapter about a window. Over one that waits for its operator it takes input only as that
// window's own: one that stands elsewhere is made anew there.
void Program::showManual(const QString& window)
{
    const QWidget* waiting = QApplication::activeModalWidget();
    if (const QWidget* open = with_.op.form("frmManual"); open && waiting && open->parentWidget() != waiting)
        with_.op.unloadForm("frmManual");
    showBeside("frmManual");
    const QString chapter = dialogs::Manual::chapterOf(window);
    if (auto* manual = qobject_cast<dialogs::frmManual*>(with_.op.form("frmManual")); !chapter.isEmpty())
        manual->showChapter(chapter);
}

} // namespace program
