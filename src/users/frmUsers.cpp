#include "users/frmUsers.h"

#include "platform/Guard.h"
#include "platform/widgets/DesktopOperator.h"
#include "platform/widgets/Icons.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"
#include "users/UserEditor.h"
#include "users/UserFields.h"
#include "values/KeyFilter.h"
#include "widgets/FormLanguage.h"
#include "widgets/TextField.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QSignalBlocker>
#include <QStatusBar>
#include <QToolBar>

namespace users {

using platform::icon;
using widgets::tagged;
using widgets::TextField;

namespace {

constexpr QSize kLargeIcons(32, 32);
constexpr QSize kSmallIcons(16, 16);
constexpr int kLongField = 360;
constexpr int kShortField = 170;

// The words of each text: label and tip of the field.
struct FieldWords
{
    const char* column;
    const char* label;
    int text;
    int tip;
};
constexpr FieldWords kWords[] = {
    {"IDUser", "lblIDUser", 57, 58}, {"Name", "lblUser", 59, 60}, {"Password", "lblPwd", 66, 67},
    {"Phone", "lblPhone", 6, 62},    {"Fax", "lblFax", 7, 64},    {"MobilePhone", "lblMobilePhone", 61, 63},
    {"EMail", "lblEMail", 8, 65},
};

} // namespace

frmUsers::frmUsers(const Surroundings& with)
    : session_(with.session), texts_(with.texts), editor_(with.editor), runCommand_(with.runCommand)
{
    setObjectName("frmUsers");
    setWindowTitle(session_.AppTitle + QStringLiteral("\\Anagrafica Operatori"));
    setProperty(widgets::kTag, "46");
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);

    auto* body = new QVBoxLayout;
    body->setContentsMargins(16, 12, 16, 12);
    body->setSpacing(10);
    body->addWidget(makeFields());
    body->addWidget(makeRights());
    body->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->setMenuBar(makeMenus());
    layout->addWidget(makeToolbar());
    layout->addLayout(body, 1);
    layout->addWidget(makeStatusBar());

    connect(&editor_, &UserEditor::filled, this, &frmUsers::showRecord);
    connect(&editor_, &UserEditor::focusWanted, this,
            [this](const QString& control) { findChild<QWidget*>(control)->setFocus(Qt::OtherFocusReason); });
    connect(qApp, &QApplication::focusChanged, this, &frmUsers::showInfo);
    editor_.Load();
    showIcons();
    widgets::Set_Language(*this, session_, texts_, with.op);
    fields_["IDUser"]->setFocus(Qt::OtherFocusReason);
}

// The focus still wanders while the fields go.
frmUsers::~frmUsers()
{
    disconnect(qApp, nullptr, this, nullptr);
}

// Menus and toolbar
// --------------------------------------------------------------------------------------------------

QMenuBar* frmUsers::makeMenus()
{
    auto* bar = new QMenuBar(this);
    QMenu* file = addMenu(*bar, "mnuFile", 80);
    addCommand(*file, "mnuPrint", 81, "print", &UserEditor::PrintItem);
    addCommand(*file, "mnuList", 82, "log-info", &UserEditor::Print_List_Items);
    file->addSeparator();
    connect(addEntry(*file, "mnuExit", 83, "exit"), &QAction::triggered, this, &QWidget::close);

    QMenu* modify = addMenu(*bar, "mnuModify", 84);
    addEdit(*modify, "mnuCut", 85, "cut", [](QLineEdit& field) { field.cut(); });
    addEdit(*modify, "mnuCopy", 86, "copy", [](QLineEdit& field) { field.copy(); });
    addEdit(*modify, "mnuPaste", 87, "paste", [](QLineEdit& field) { field.paste(); });

    QMenu* record = addMenu(*bar, "mnuRecord", 88);
    addCommand(*record, "mnuNew", 89, "new", &UserEditor::New_Item);
    addCommand(*record, "mnuSave", 90, "save", &UserEditor::Save_Item);
    addCommand(*record, "mnuDelete", 91, "delete", &UserEditor::Delete_Item);
    addCommand(*record, "mnuRefresh", 228, "refresh", &UserEditor::Refresh_Item);
    record->addSeparator();
    addCommand(*record, "mnuFirst", 92, "first", &UserEditor::First_Item);
    addCommand(*record, "mnuBack", 93, "previous", &UserEditor::Prev_Item);
    addCommand(*record, "mnuNext", 94, "next", &UserEditor::Next_Item);
    addCommand(*record, "mnuLast", 95, "last", &UserEditor::Last_Item);
    entries_["mnuSave"]->setShortcut(QKeySequence::Save);
    entries_["mnuRefresh"]->setShortcut(Qt::Key_F5);

    QMenu* view = addMenu(*bar, "mnuView", 126);
    addIcons(*view, "mnuTlbLargeIcons", 96, "TlbLargeIcons");
    addIcons(*view, "mnuTlbSmallIcons", 97, "TlbSmallIcons");
    return bar;
}

QMenu* frmUsers::addMenu(QMenuBar& bar, const char* name, int text)
{
    return tagged(bar.addMenu(QStringLiteral("-")), name, QString::number(text));
}

QAction* frmUsers::addEntry(QMenu& menu, const char* name, int text, const QString& picture)
{
    QAction* entry = tagged(menu.addAction(QString()), name, QString::number(text));
    if (!picture.isEmpty())
        entry->setIcon(icon(picture));
    entries_[name] = entry;
    return entry;
}

void frmUsers::addCommand(QMenu& menu, const char* name, int text, const QString& picture, Command command)
{
    connect(addEntry(menu, name, text, picture), &QAction::triggered, &editor_, command);
}

void frmUsers::addEdit(QMenu& menu, const char* name, int text, const QString& picture,
                       std::function<void(QLineEdit&)> edit)
{
    connect(addEntry(menu, name, text, picture), &QAction::triggered, this, [this, edit = std::move(edit)] {
        if (QLineEdit* field = activeField())
            edit(*field);
    });
}

// The main window's own command: its toolbar follows as well.
void frmUsers::addIcons(QMenu& menu, const char* name, int text, const QString& command)
{
    QAction* entry = addEntry(menu, name, text);
    entry->setCheckable(true);
    connect(entry, &QAction::triggered, this, [this, command] {
        runCommand_(command);
        showIcons();
    });
}

void frmUsers::showIcons()
{
    const bool large = session_.ToolbarSet.Icons != 0;
    tlbMain_->setIconSize(large ? kLargeIcons : kSmallIcons);
    tlbMain_->setMinimumWidth(tlbMain_->sizeHint().width()); // no button hides behind the toolbar's end
    entries_["mnuTlbLargeIcons"]->setChecked(large);
    entries_["mnuTlbSmallIcons"]->setChecked(!large);
}

QToolBar* frmUsers::makeToolbar()
{
    tlbMain_ = new QToolBar(this);
    tlbMain_->setObjectName("tlbMain");
    addButton("New", "new", 47, "mnuNew");
    addButton("Save", "save", 48, "mnuSave");
    addButton("Delete", "delete", 49, "mnuDelete");
    addButton("Refresh", "refresh", 234, "mnuRefresh");
    addButton("List", "log-info", 51, "mnuList");
    addButton("Print", "print", 50, "mnuPrint");
    tlbMain_->addSeparator();
    addButton("First", "first", 52, "mnuFirst");
    addButton("Back", "previous", 53, "mnuBack");
    addButton("Next", "next", 54, "mnuNext");
    addButton("Last", "last", 55, "mnuLast");
    tlbMain_->addSeparator();
    addButton("Exit", "exit", 56, "mnuExit");
    return tlbMain_;
}

// Each button is the same as its menu entry.
void frmUsers::addButton(const char* key, const QString& picture, int text, const char* entry)
{
    auto* button = tagged(new QAction(icon(picture), QString(), tlbMain_), key, QString::number(text));
    tlbMain_->addAction(button);
    connect(button, &QAction::triggered, entries_[entry], &QAction::trigger);
}

// The record
// -----------------------------------------------------------------------------------------------------------

QWidget* frmUsers::makeFields()
{
    auto* fields = new QWidget(this);
    auto* grid = new QGridLayout(fields);
    grid->setContentsMargins({});
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(7);
    grid->setColumnStretch(1, 1);
    int row = 0;
    for (const TextOfUser& text : kTexts) {
        const FieldWords& words = kWords[row];
        auto* field = new TextField(
            text.control, text.limit,
            text.capitals ? TextField::Filter(values::filterTextKey) : TextField::Filter(), fields);
        tagged(field, text.control, QString::number(words.tip));
        // A long one ends where the frame of the rights does, whose words are longer in some languages.
        const bool isLong = text.limit > 20;
        if (isLong)
            field->setMinimumWidth(kLongField);
        else
            field->setFixedWidth(kShortField);
        connect(
            field, &TextField::changed, this,
            [this, column = QString(text.column)](const QString& typed) { editor_.setText(column, typed); });
        auto* label = tagged(new QLabel("-", fields), words.label, QString::number(words.text));
        label->setBuddy(field);
        grid->addWidget(label, row, 0);
        grid->addWidget(field, row, 1, isLong ? Qt::Alignment() : Qt::AlignLeft);
        fields_[text.column] = field;
        ++row;
    }
    TextField* number = fields_["IDUser"];
    connect(number, &TextField::entered, this, [this] { editor_.enterIDUser(); });
    // Behind the focus event: the list may come up, and what the focus went to has its own event first.
    connect(
        number, &TextField::left, this,
        [this] {
            if (isVisible())
                editor_.txtIDUser_LostFocus();
        },
        Qt::QueuedConnection);

    lbxState_ = tagged(new QListWidget(fields), "lbxState", "69");
    lbxState_->addItems({"-", "-"});
    lbxState_->setFixedSize(kShortField, lbxState_->sizeHintForRow(0) * 2 + 2 * lbxState_->frameWidth());
    lbxState_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lbxState_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(lbxState_, &QListWidget::currentRowChanged, this, [this](int line) { editor_.setState(line); });
    auto* label = tagged(new QLabel("-", fields), "lblState", "68");
    label->setBuddy(lbxState_);
    grid->addWidget(label, row, 0, Qt::AlignTop);
    grid->addWidget(lbxState_, row, 1, Qt::AlignLeft);
    return fields;
}

QWidget* frmUsers::makeRights()
{
    auto* rights = new QGroupBox(this);
    rights->setObjectName("fraRights");
    auto* grid = new QGridLayout(rights);
    int place = 0;
    for (const RightOfUser& right : kRights) {
        auto* check = tagged(new QCheckBox("-", rights), right.control, QString::number(-right.text));
        connect(check, &QCheckBox::toggled, this,
                [this, column = QString(right.column)](bool given) { editor_.setRight(column, given); });
        checks_[right.column] = check;
        grid->addWidget(check, place / 3, place % 3);
        ++place;
    }
    return rights;
}

QStatusBar* frmUsers::makeStatusBar()
{
    auto* bar = new QStatusBar(this);
    bar->setObjectName("staUser");
    bar->setSizeGripEnabled(false);
    info_ = tagged(new QLabel(bar), "Info", "207");
    bar->addWidget(info_, 1);
    return bar;
}

void frmUsers::showRecord()
{
    for (const TextOfUser& text : kTexts) {
        TextField& field = *fields_[text.column];
        field.showText(editor_.text(text.column));
        // The record may come up when the focus is there already.
        if (field.hasFocus()) {
            field.remember(field.text());
            field.selectAll();
        }
    }
    for (const RightOfUser& right : kRights) {
        const QSignalBlocker blocker(checks_[right.column]);
        checks_[right.column]->setChecked(editor_.right(right.column));
    }
    const QSignalBlocker blocker(lbxState_);
    lbxState_->setCurrentRow(editor_.state());
    showControls();
}

// Of the administrator only the password may be changed; the number is there for searching.
void frmUsers::showControls()
{
    const bool enabled = editor_.controlsEnabled();
    for (const char* column : {"Phone", "Fax", "MobilePhone", "EMail"})
        fields_[column]->setEnabled(enabled);
    fields_["Name"]->setReadOnly(!enabled);
    lbxState_->setEnabled(enabled);
    for (QCheckBox* check : std::as_const(checks_))
        check->setEnabled(enabled);
}

// How much the field under the hands holds.
void frmUsers::showInfo()
{
    const QLineEdit* field = activeField();
    platform::guarded("Module/Set_Language", [&] {
        info_->setText(field ? QStringLiteral("%1 %2 %3")
                                   .arg(texts_(session::rows::kAtMost))
                                   .arg(field->maxLength())
                                   .arg(texts_(session::rows::kCharacters))
                             : QString());
    });
}

QLineEdit* frmUsers::activeField() const
{
    return qobject_cast<QLineEdit*>(focusWidget());
}

// The window
// -----------------------------------------------------------------------------------------------------------

void frmUsers::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    platform::guarded("Module/Set_Language", [this] {
        lbxState_->item(kEnabled)->setText(texts_(98));
        lbxState_->item(kDisabled)->setText(texts_(99));
    });
    showInfo();
}

// Exit, the window's button and Escape: what was changed is asked for first.
void frmUsers::closeEvent(QCloseEvent* event)
{
    const bool byProgram = property(platform::kClosedByProgram).toBool();
    if (!byProgram && !editor_.Exit())
        event->ignore();
    else
        QDialog::closeEvent(event);
}

// Escape puts texts back; it closes nothing here.
void frmUsers::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Escape)
        QDialog::keyPressEvent(event);
}

} // namespace users
