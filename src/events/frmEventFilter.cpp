#include "events/frmEventFilter.h"

#include "platform/Guard.h"
#include "platform/widgets/Icons.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "widgets/FormLanguage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTimeEdit>

namespace events {

using platform::guarded;
using widgets::tagged;

namespace {

constexpr int kMostCharacters = 50;

} // namespace

frmEventFilter::frmEventFilter(const session::Session& session, const session::Texts& texts,
                               platform::Operator& op, EventViewer& viewer)
    : session_(session), texts_(texts), editor_(viewer)
{
    setObjectName("frmEventFilter");
    setProperty(widgets::kTag, "211");
    setWindowTitle(session_.AppTitle + QStringLiteral("\\Filtro Eventi"));
    setWindowIcon(platform::icon("filter"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    layOut();
    listen();
    guarded("frmEventFilter.Load", [this] { load(); });
    widgets::Set_Language(*this, session, texts, op);
}

void frmEventFilter::layOut()
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 14);
    layout->setSpacing(12);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(makeTypes());
    layout->addWidget(makeConditions());
    lblHint_ = new QLabel(this);
    lblHint_->setObjectName("lblHint");
    QSizePolicy keep = lblHint_->sizePolicy();
    keep.setRetainSizeWhenHidden(true);
    lblHint_->setSizePolicy(keep);
    layout->addWidget(lblHint_);
    layout->addWidget(makeButtons());
}

QWidget* frmEventFilter::makeTypes()
{
    auto* frame = tagged(new QGroupBox("-", this), "fraType", "212");
    auto* line = new QHBoxLayout(frame);
    const auto add = [&](const char* name, const char* tag, const char* picture) {
        auto* box = tagged(new QCheckBox("-", frame), name, tag);
        box->setIcon(platform::icon(picture));
        line->addWidget(box);
        return box;
    };
    line->setSpacing(20);
    chkInfo_ = add("chkInfo", "213", "log-info");
    chkWarning_ = add("chkWarning", "214", "log-warning");
    chkError_ = add("chkError", "215", "log-error");
    line->addStretch();
    return frame;
}

QWidget* frmEventFilter::makeConditions()
{
    auto* conditions = new QWidget(this);
    auto* grid = new QGridLayout(conditions);
    grid->setContentsMargins({});
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(8);
    const auto addLabel = [&](const char* name, const char* tag, QWidget* buddy) {
        auto* label = tagged(new QLabel("-", conditions), name, tag);
        label->setBuddy(buddy);
        grid->addWidget(label, grid->rowCount(), 0);
    };
    const auto addField = [&](const char* name, const char* tag, QWidget* field) {
        addLabel(name, tag, field);
        grid->addWidget(field, grid->rowCount() - 1, 1, 1, 3);
    };
    const auto addSide = [&](const char* name, const char* tag, const Side& side) {
        addLabel(name, tag, side.mode);
        const int row = grid->rowCount() - 1;
        grid->addWidget(side.mode, row, 1);
        grid->addWidget(side.date, row, 2);
        grid->addWidget(side.time, row, 3);
    };
    cbxSource_ = new QComboBox(conditions);
    cbxSource_->setObjectName("cbxSource");
    addField("lblSource", "216", cbxSource_);
    addField("lblEquipment", "288", txtEquipment_ = makeText("txtEquipment"));
    addField("lblInstrument", "289", txtInstrument_ = makeText("txtInstrument"));
    addSide("lblFrom", "217", from_ = makeSide("From"));
    addSide("lblTo", "218", to_ = makeSide("To"));
    return conditions;
}

QLineEdit* frmEventFilter::makeText(const QString& name)
{
    auto* field = new QLineEdit(this);
    field->setObjectName(name);
    field->setMaxLength(kMostCharacters);
    field->setMinimumWidth(field->fontMetrics().averageCharWidth() * kMostCharacters);
    return field;
}

frmEventFilter::Side frmEventFilter::makeSide(const QString& name)
{
    const Side side{new QComboBox(this), new QDateEdit(this), new QTimeEdit(this)};
    side.mode->setObjectName("cbx" + name);
    side.date->setObjectName("dtp" + name + "Date");
    side.date->setDisplayFormat("dd/MM/yyyy");
    side.date->setMinimumDate(QDate(1, 1, 1));
    side.date->setCalendarPopup(true);
    side.time->setObjectName("dtp" + name + "Time");
    side.time->setDisplayFormat("HH:mm:ss");
    return side;
}

QWidget* frmEventFilter::makeButtons()
{
    auto* buttons = new QWidget(this);
    auto* line = new QHBoxLayout(buttons);
    line->setContentsMargins({});
    const auto add = [&](const char* name, const char* tag) {
        auto* button = tagged(new QPushButton("-", buttons), name, tag);
        line->addWidget(button);
        return button;
    };
    cmdReset_ = add("cmdReset", "-219");
    line->addStretch();
    cmdOK_ = add("cmdOK", "13");
    cmdOK_->setDefault(true);
    cmdCancel_ = add("cmdCancel", "14");
    cmdApply_ = add("cmdApply", "15");
    return buttons;
}

void frmEventFilter::listen()
{
    for (QCheckBox* box : {chkInfo_, chkWarning_, chkError_})
        connect(box, &QCheckBox::toggled, this, &frmEventFilter::collect);
    for (QComboBox* box : {cbxSource_, from_.mode, to_.mode})
        connect(box, &QComboBox::currentIndexChanged, this, &frmEventFilter::collect);
    for (QLineEdit* field : {txtEquipment_, txtInstrument_})
        connect(field, &QLineEdit::textChanged, this, &frmEventFilter::collect);
    for (const Side& side : {from_, to_}) {
        connect(side.date, &QDateEdit::dateChanged, this, &frmEventFilter::collect);
        connect(side.time, &QTimeEdit::timeChanged, this, &frmEventFilter::collect);
    }
    connect(&editor_, &FilterEditor::shown, this, &frmEventFilter::showControls);
    connect(cmdReset_, &QPushButton::clicked, &editor_, &FilterEditor::cmdReset);
    connect(cmdCancel_, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdApply_, &QPushButton::clicked, this, [this] {
        editor_.cmdApply();
        chkInfo_->setFocus();
    });
    connect(cmdOK_, &QPushButton::clicked, this, [this] {
        editor_.cmdOK();
        accept();
    });
}

void frmEventFilter::load()
{
    fill(*cbxSource_, {224, 225, 226});
    fill(*from_.mode, {221, 223});
    fill(*to_.mode, {222, 223});
    editor_.load();
}

void frmEventFilter::fill(QComboBox& box, const QList<int>& texts)
{
    const QScopedValueRollback showing(showing_, true);
    box.clear();
    for (const int text : texts)
        box.addItem(texts_(text));
}

void frmEventFilter::collect()
{
    if (showing_)
        return;
    editor_.change({chkInfo_->isChecked(),
                    chkWarning_->isChecked(),
                    chkError_->isChecked(),
                    cbxSource_->currentIndex(),
                    txtEquipment_->text(),
                    txtInstrument_->text(),
                    from_.mode->currentIndex(),
                    to_.mode->currentIndex(),
                    {from_.date->date(), from_.time->time(), Qt::UTC},
                    {to_.date->date(), to_.time->time(), Qt::UTC}});
}

void frmEventFilter::showControls()
{
    const QScopedValueRollback showing(showing_, true);
    const FilterControls& controls = editor_.controls();
    chkInfo_->setChecked(controls.chkInfo);
    chkWarning_->setChecked(controls.chkWarning);
    chkError_->setChecked(controls.chkError);
    cbxSource_->setCurrentIndex(controls.cbxSource);
    for (const auto& [field, text] : {std::pair(txtEquipment_, controls.txtEquipment),
                                      std::pair(txtInstrument_, controls.txtInstrument)}) {
        // Setting a text moves the cursor, even when it is the same.
        if (field->text() != text)
            field->setText(text);
    }
    showSide(from_, controls.cbxFrom, controls.from);
    showSide(to_, controls.cbxTo, controls.to);
    cmdApply_->setEnabled(editor_.applyEnabled());
    lblHint_->setVisible(editor_.isEmptySpan());
}

void frmEventFilter::showSide(const Side& side, int mode, const QDateTime& when)
{
    side.mode->setCurrentIndex(mode);
    side.date->setDate(when.date());
    side.time->setTime(when.time());
    side.date->setEnabled(mode == 1);
    side.time->setEnabled(mode == 1);
}

void frmEventFilter::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    lblHint_->setText(texts_.own("viewer.filter.never"));
    guarded("Module/Set_Language", [this] {
        for (const auto& [side, text] : {std::pair(from_, 217), std::pair(to_, 218)}) {
            side.date->setAccessibleName(texts_(text));
            side.time->setAccessibleName(texts_(text));
        }
    });
}

} // namespace events
