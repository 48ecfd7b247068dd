#include "property/frmProperty.h"

#include "property/PropertyModel.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "widgets/FieldEdit.h"
#include "widgets/FormLanguage.h"
#include "widgets/PlainToolTip.h"
#include "widgets/SpinButtons.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScopedValueRollback>

namespace property {

namespace {

constexpr int kRows = 3;
constexpr int kNumberWidth = 110;
constexpr int kDialogWidth = 440;

} // namespace

frmProperty::frmProperty(const session::Session& session, const session::Texts& texts, platform::Operator& op,
                         PropertyModel& model)
    : texts_(texts), model_(model)
{
    setWindowTitle(session.AppTitle + QStringLiteral("\\Proprietà"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    lblTitle_ = addDetail("lblTitle", this);
    QFont heading = lblTitle_->font();
    heading.setBold(true);
    heading.setPointSizeF(heading.pointSizeF() * 1.2);
    lblTitle_->setFont(heading);
    lblTitle_->setWordWrap(true);
    lblTitle_->setMinimumWidth(kDialogWidth);
    lblPath_ = addDetail("lblPath", this);
    lblPath_->setWordWrap(true);
    auto* lblIDPar = addLabel("lblIDPar", this);
    lblIDPar->setForegroundRole(QPalette::PlaceholderText);
    auto* identity = new QHBoxLayout;
    identity->addWidget(lblPath_, 1);
    identity->addWidget(lblIDPar, 0, Qt::AlignTop);
    lblWarning_ = addDetail("lblWarning", this);
    lblWarning_->setWordWrap(true);
    lblWarning_->setMargin(6);
    lblWarning_->setStyleSheet(
        QStringLiteral("#lblWarning { background: #FFF1D2; border: 1px solid #F2A33A; }"));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 14);
    layout->setSpacing(10);
    layout->addWidget(lblTitle_);
    layout->addLayout(identity);
    layout->addWidget(makeProperties(texts));
    layout->addWidget(makeDisabled());
    layout->addWidget(makeValues());
    layout->addWidget(lblWarning_);
    layout->addWidget(makeButtons());
    // What is hidden takes no room: the window is as high as what it shows.
    layout->setSizeConstraint(QLayout::SetFixedSize);

    model_.load();
    showControls();
    widgets::Set_Language(*this, session, texts, op);
    connect(&model_, &PropertyModel::changed, this, &frmProperty::showControls);
    connect(&model_, &PropertyModel::focusWanted, this, &frmProperty::focusOn);
    for (QWidget* first :
         std::initializer_list<QWidget*>{widgets_["txtValStr1"], widgets_["txtVal1"], cbxValEnum_, cmdOK_}) {
        if (first->isVisibleTo(this) && first->isEnabled()) {
            first->setFocus(Qt::OtherFocusReason);
            break;
        }
    }
}

// The catalogue's details
// ------------------------------------------------------------------------------------------

QWidget* frmProperty::makeProperties(const session::Texts& texts)
{
    auto* fraProperties = widgets::tagged(new QGroupBox(QStringLiteral("-"), this), "fraProperties", "146");
    widgets_["fraProperties"] = fraProperties;
    auto* grid = new QGridLayout(fraProperties);
    grid->setHorizontalSpacing(12);
    auto* lblValDescription = addLabel("lblValDescription", fraProperties);
    lblValDescription->setWordWrap(true);
    lblValDescription->setMinimumWidth(kDialogWidth - 60);
    grid->addWidget(lblValDescription, 0, 0, 1, 4);
    grid->addWidget(addCaption("lblMemory", "148", fraProperties), 1, 0);
    grid->addWidget(addLabel("lblValMemory", fraProperties), 1, 1);
    grid->addWidget(addCaption("lblAddress", "2", fraProperties), 1, 2);
    grid->addWidget(addLabel("lblValAddress", fraProperties), 1, 3);
    grid->addWidget(addCaption("lblType", "149", fraProperties), 2, 0);
    grid->addWidget(addLabel("lblValType", fraProperties), 2, 1);
    QLabel* lblBytes = addCaption("lblBytes", "", fraProperties);
    lblBytes->setText(texts.own("property.bytes"));
    grid->addWidget(lblBytes, 2, 2);
    grid->addWidget(addLabel("lblValBytes", fraProperties), 2, 3);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    return fraProperties;
}

QWidget* frmProperty::makeDisabled()
{
    auto* line = new QWidget(this);
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins({});
    chkDisabled_ = widgets::tagged(new QCheckBox(line), "chkDisabled", "");
    widgets_["chkDisabled"] = chkDisabled_;
    layout->addWidget(chkDisabled_);
    layout->addWidget(addCaption("lblDisabled", "150", line));
    lblDisabledWhy_ = addDetail("lblDisabledWhy", line);
    layout->addWidget(lblDisabledWhy_, 1);
    layout->addStretch();
    connect(chkDisabled_, &QCheckBox::clicked, this, [this](bool checked) { model_.clickDisabled(checked); });
    return line;
}

// The value
// --------------------------------------------------------------------------------------------------------

QWidget* frmProperty::makeValues()
{
    auto* fraVal = widgets::tagged(new QGroupBox(this), "fraVal", "");
    widgets_["fraVal"] = fraVal;
    fraVal->setMinimumWidth(kDialogWidth);
    auto* grid = new QGridLayout(fraVal);
    grid->setHorizontalSpacing(12);
    grid->setColumnStretch(1, 1);
    for (int row = 0; row < kRows; ++row) {
        const QString number = QString::number(row + 1);
        auto* cell = new QHBoxLayout;
        cell->setSpacing(6);
        cell->addWidget(addField("txtValStr" + number, fraVal), 1);
        if (row == 0) {
            cbxValEnum_ = widgets::tagged(new QComboBox(fraVal), "cbxValEnum", "");
            cbxValEnum_->installEventFilter(this);
            QPalette colours = cbxValEnum_->palette();
            for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
                colours.setColor(group, QPalette::Button, colours.color(group, QPalette::Base));
            cbxValEnum_->setPalette(colours);
            widgets_["cbxValEnum"] = cbxValEnum_;
            connect(cbxValEnum_, &QComboBox::activated, this, [this](int index) { model_.pickEntry(index); });
            cell->addWidget(cbxValEnum_, 1);
        }
        addNumber(row, fraVal, *cell);
        grid->addWidget(addLabel(qPrintable("lblVal" + number), fraVal), row, 0);
        grid->addLayout(cell, row, 1);
    }
    lblStandard_ = addDetail("lblStandard", fraVal);
    lblStandard_->setForegroundRole(QPalette::PlaceholderText);
    grid->addWidget(lblStandard_, kRows, 1);
    return fraVal;
}

void frmProperty::addNumber(int row, QWidget* parent, QHBoxLayout& layout)
{
    const QString number = QString::number(row + 1);
    widgets::FieldEdit* field = addField("txtVal" + number, parent);
    field->setFixedWidth(kNumberWidth);
    field->setAlignment(Qt::AlignRight);
    auto* spin = new widgets::SpinButtons("updVal" + number, parent);
    spin->setFixedHeight(field->sizeHint().height());
    spins_ << spin;
    const auto step = [this, field](int steps) {
        field->setFocus(Qt::OtherFocusReason);
        model_.spin(field->objectName(), steps);
        field->selectAll();
    };
    connect(spin, &widgets::SpinButtons::stepped, this, step);
    connect(field, &widgets::FieldEdit::stepped, this, step);
    auto* pair = new QHBoxLayout;
    pair->setSpacing(0);
    pair->addWidget(field);
    pair->addWidget(spin);
    layout.addLayout(pair);
    QLabel* range = addLabel(qPrintable("lblRange" + number), parent);
    range->setForegroundRole(QPalette::PlaceholderText);
    if (row == 0) {
        lblUnit_ = addDetail("lblUnit", parent);
        layout.addWidget(lblUnit_);
    }
    layout.addWidget(range);
    if (row == kRows - 1) {
        lblWholeAddress_ = addDetail("lblWholeAddress", parent);
        layout.addWidget(lblWholeAddress_);
    }
    layout.addStretch();
}

QWidget* frmProperty::makeButtons()
{
    auto* line = new QWidget(this);
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 4, 0, 0);
    cmdCopy_ = addButton("cmdCopy", "282", *layout);
    layout->addStretch();
    cmdOK_ = addButton("cmdOK", "13", *layout);
    cmdCancel_ = addButton("cmdCancel", "14", *layout);
    cmdApply_ = addButton("cmdApply", "15", *layout);
    cmdOK_->setDefault(true);
    connect(cmdOK_, &QPushButton::clicked, this, [this] {
        if (model_.cmdOK_Click())
            accept();
    });
    connect(cmdCancel_, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdApply_, &QPushButton::clicked, this, [this] { model_.cmdApply_Click(); });
    connect(cmdCopy_, &QPushButton::clicked, this, [this] { model_.cmdCopy_Click(); });
    setTabOrder(cmdApply_, cmdCopy_);
    return line;
}

// Words of this build's own, beside the controls.
QLabel* frmProperty::addDetail(const char* name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->hide();
    return label;
}

QLabel* frmProperty::addLabel(const char* name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    widgets_[name] = label;
    return label;
}

QLabel* frmProperty::addCaption(const char* name, const char* tag, QWidget* parent)
{
    auto* label = widgets::tagged(new QLabel(QStringLiteral("-"), parent), name, tag);
    widgets_[name] = label;
    return label;
}

QPushButton* frmProperty::addButton(const char* name, const char* tag, QHBoxLayout& layout)
{
    auto* button = widgets::tagged(new QPushButton(QStringLiteral("-"), this), name, tag);
    widgets_[name] = button;
    layout.addWidget(button);
    return button;
}

widgets::FieldEdit* frmProperty::addField(const QString& name, QWidget* parent)
{
    auto* field = new widgets::FieldEdit(
        {[this, name](const QString& text) { model_.change(name, text); },
         [this, name] { model_.enterField(name); }, [this, name] { return model_.restore(name); },
         [this, name](const QString& typed) { return model_.keyPress(name, typed); }},
        name, parent);
    widgets_[name] = field;
    fields_ << field;
    connect(field, &widgets::FieldEdit::left, this, [this, field] { leave(field); });
    return field;
}

// Model and window
// -------------------------------------------------------------------------------------------------

void frmProperty::showControls()
{
    const Controls& controls = model_.controls();
    for (const NamedControl& named : namedControls()) {
        const Control& control = controls.*named.control;
        QWidget* widget = widgets_[named.name];
        widget->setVisible(control.visible);
        widget->setEnabled(control.enabled);
        if (auto* field = qobject_cast<widgets::FieldEdit*>(widget)) {
            field->showText(control.text, control.limit);
        } else if (auto* label = qobject_cast<QLabel*>(widget);
                   label && !label->property(widgets::kTag).isValid()) {
            label->setText(control.text);
            label->setToolTip(widgets::plainToolTip(control.toolTip));
        }
    }
    for (int row = 0; row < kRows; ++row) {
        const Control& field = controls.*numberFields()[row].text;
        spins_[row]->setVisible(field.visible);
        spins_[row]->setEnabled(field.enabled);
    }
    showDetails();
    showEntries();
    cbxValEnum_->setCurrentIndex(controls.listIndex);
    chkDisabled_->setChecked(controls.checked);
}

void frmProperty::showDetails()
{
    const Details details = model_.details();
    showDetail(lblTitle_, details.title);
    showDetail(lblPath_, QString(details.path).replace('\\', QStringLiteral(" \u203a ")));
    showDetail(lblUnit_, details.unit);
    showDetail(lblStandard_,
               details.standard.isEmpty() ? QString() : texts_.own("property.default").arg(details.standard));
    showDetail(lblWholeAddress_, details.wholeAddress.isEmpty()
                                     ? QString()
                                     : texts_.own("property.address.whole").arg(details.wholeAddress));
    showDetail(lblWarning_, details.warning);
    const Controls& controls = model_.controls();
    showDetail(lblDisabledWhy_, controls.chkDisabled.visible && !model_.Enable()
                                    ? texts_.own("property.disabled")
                                    : QString());
    // The limits in words stand in the place of the short form.
    if (!details.limits.isEmpty())
        static_cast<QLabel*>(widgets_["lblRange1"])->setText(details.limits);
}

void frmProperty::showDetail(QLabel* label, const QString& text)
{
    label->setText(text);
    label->setVisible(!text.isEmpty());
}

void frmProperty::showEntries()
{
    if (cbxValEnum_->count() == int(model_.controls().entries.size()))
        return;
    cbxValEnum_->clear();
    for (const EnumEntry& entry : model_.controls().entries)
        cbxValEnum_->addItem(entry.text, entry.value);
}

// A field is checked when the focus has arrived elsewhere, so that a box doesn't open inside a focus event.
// The way out by Cancel is always free.
void frmProperty::leave(QWidget* field)
{
    if (returning_)
        return;
    left_[field->objectName()] = model_.SavedText();
    QMetaObject::invokeMethod(
        this, [this, field, saved = model_.SavedText(), sent = sent_] { check(field, saved, sent); },
        Qt::QueuedConnection);
}

void frmProperty::check(QWidget* field, const QString& saved, int sent)
{
    if (sent != sent_ || !isVisible() || focusWidget() == field || focusWidget() == cmdCancel_)
        return;
    const QPointer<frmProperty> alive(this); // the window may go while the box stands
    if (model_.validate(field->objectName()) || !alive) {
        if (alive)
            left_.remove(field->objectName());
        return;
    }
    // While another window is active, the event of the focus comes later: it finds the field entered.
    for (widgets::FieldEdit* each : fields_)
        each->setEntered(each == field);
    goTo(field);
    model_.keepSavedText(saved);
}

// The logic sends the focus to a field: what was left before has been checked.
void frmProperty::focusOn(const QString& name)
{
    ++sent_;
    goTo(widgets_[name]);
    // It was left with what is refused now: Escape still puts back what stood there before.
    if (const auto left = left_.constFind(name); left != left_.constEnd()) {
        for (widgets::FieldEdit* each : fields_)
            each->setEntered(each->objectName() == name);
        model_.keepSavedText(*left);
    }
}

// Enter goes through the fields; on the last one it is OK.
void frmProperty::moveOn()
{
    bool behind = false;
    for (widgets::FieldEdit* field : fields_) {
        if (behind && field->isVisible() && field->isEnabled()) {
            field->setFocus(Qt::TabFocusReason);
            return;
        }
        behind = behind || field == focusWidget();
    }
    cmdOK_->click();
}

void frmProperty::goTo(QWidget* field)
{
    const QScopedValueRollback<bool> returning(returning_, true);
    field->setFocus(Qt::OtherFocusReason);
    if (auto* edit = qobject_cast<widgets::FieldEdit*>(field))
        edit->selectAll();
}

void frmProperty::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && qobject_cast<widgets::FieldEdit*>(focusWidget()))
        moveOn();
    else
        QDialog::keyPressEvent(event);
}

bool frmProperty::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == cbxValEnum_ && event->type() == QEvent::FocusIn)
        model_.enterField(cbxValEnum_->objectName());
    if (watched == cbxValEnum_ && event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            leave(cbxValEnum_);
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace property
