#include "dialogs/frmSettings.h"

#include "dialogs/Settings.h"
#include "platform/Guard.h"
#include "platform/widgets/Icons.h"
#include "session/Texts.h"
#include "values/KeyFilter.h"
#include "widgets/FormLanguage.h"
#include "widgets/SpinButtons.h"
#include "widgets/TextField.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QStandardItemModel>
#include <QTabWidget>
#include <QTreeView>

namespace dialogs {

using platform::guarded;
using platform::icon;
using widgets::tagged;
using widgets::TextField;

namespace {

constexpr int kDaysLimit = 3;
constexpr int kDaysWidth = 60;
constexpr QSize kFlag(24, 24);

struct Label
{
    const char* name;
    int text;
};
constexpr Label kCompanyLabels[] = {
    {"lblCompany", 1}, {"lblAddress", 2}, {"lblPostcode", 3}, {"lblLocality", 4}, {"lblCountry", 5},
    {"lblPhone", 6},   {"lblFax", 7},     {"lblEMail", 8},    {"lblWEB", 9},      {"lblVATNumber", 10},
};
constexpr Label kPortLabels[] = {
    {"lblPort", 250},   {"lblSpeed", 251},   {"lblDataBit", 252},
    {"lblParity", 253}, {"lblStopBit", 254}, {"lblFlowCtrl", 255},
};

} // namespace

frmSettings::frmSettings(const session::Session& session, const session::Texts& texts, platform::Operator& op,
                         Settings& settings)
    : texts_(texts), settings_(settings)
{
    setObjectName("frmSettings");
    setWindowTitle(session.AppTitle + QStringLiteral("\\Impostazioni"));
    setProperty(widgets::kTag, "31");
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    settings_.Load();

    ssSettings_ = tagged(new QTabWidget(this), "ssSettings", "28");
    for (QWidget* page : {makeCompany(), makeLog(), makePort()})
        ssSettings_->addTab(page, QStringLiteral("-"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(14, 12, 14, 14);
    layout->setSpacing(12);
    layout->addWidget(ssSettings_);
    layout->addWidget(makeButtons());
    layout->setSizeConstraint(QLayout::SetFixedSize);

    connect(&settings_, &Settings::changed, this, &frmSettings::showControls);
    widgets::Set_Language(*this, session, texts, op);
    showControls();
    (settings_.companyEnabled() ? static_cast<QWidget*>(company_.front()) : imcLanguage_)
        ->setFocus(Qt::OtherFocusReason);
}

frmSettings::~frmSettings()
{
    settings_.Unload();
}

// The tabs
// -----------------------------------------------------------------------------------------------------------

QWidget* frmSettings::makeCompany()
{
    auto* page = new QWidget(ssSettings_);
    auto* grid = new QGridLayout(page);
    grid->setContentsMargins(14, 14, 14, 14);
    grid->setHorizontalSpacing(12);
    int row = 0;
    for (const CompanyText& text : companyTexts()) {
        auto* field = new TextField(
            text.control, text.limit,
            text.capitals ? TextField::Filter(values::filterTextKey) : TextField::Filter(), page);
        field->setFixedWidth(text.limit > 30 ? 380 : 190);
        field->showText(settings_.companyText(row));
        field->setEnabled(settings_.companyEnabled());
        connect(field, &TextField::changed, this,
                [this, row](const QString& typed) { settings_.setCompanyText(row, typed); });
        grid->addWidget(addLabel(kCompanyLabels[row].name, kCompanyLabels[row].text, field, page), row, 0);
        grid->addWidget(field, row, 1, Qt::AlignLeft);
        company_.push_back(field);
        ++row;
    }
    imcLanguage_ = tagged(new QComboBox(page), "imcLanguage", "");
    imcLanguage_->setIconSize(kFlag);
    imcLanguage_->setMinimumWidth(190);
    for (const session::LanguageSettings& offered : settings_.languages())
        imcLanguage_->addItem(icon("flag-" + offered.Code.toLower()), offered.Name, offered.ID);
    imcLanguage_->setCurrentIndex(settings_.language());
    connect(imcLanguage_, &QComboBox::currentIndexChanged, this,
            [this](int index) { settings_.setLanguage(index); });
    grid->addWidget(addLabel("lblLanguage", 11, imcLanguage_, page), row, 0);
    grid->addWidget(imcLanguage_, row, 1, Qt::AlignLeft);
    grid->setColumnStretch(1, 1);
    return page;
}

QWidget* frmSettings::makeLog()
{
    auto* page = new QWidget(ssSettings_);
    auto* frame = tagged(new QGroupBox(QStringLiteral("-"), page), "fraLog", "16");
    const auto check = [&](const char* name, int tag, bool checked, void (Settings::*click)(bool)) {
        auto* box = tagged(new QCheckBox(QStringLiteral("-"), frame), name, QString::number(tag));
        box->setChecked(checked);
        connect(box, &QCheckBox::toggled, &settings_, click);
        return box;
    };
    chkDelLog_ = check("chkDelLog", 17, settings_.DelLog(), &Settings::chkDelLog_Click);
    chkDelLogErr_ = check("chkDelLogErr", -18, settings_.DelLogErr(), &Settings::chkDelLogErr_Click);
    chkDelLogApp_ = check("chkDelLogApp", -20, settings_.DelLogApp(), &Settings::chkDelLogApp_Click);
    txtQtyDays_ = new TextField(
        "txtQtyDays", kDaysLimit, [this](const QString& typed) { return settings_.filterDays(typed); },
        frame);
    txtQtyDays_->setProperty(widgets::kTag, "23");
    txtQtyDays_->setAlignment(Qt::AlignRight);
    txtQtyDays_->setFixedWidth(kDaysWidth);
    txtQtyDays_->showText(settings_.QtyDays());
    connect(txtQtyDays_, &TextField::changed, &settings_, &Settings::setQtyDays);
    connect(txtQtyDays_, &TextField::left, this, &frmSettings::leaveDays, Qt::QueuedConnection);
    updQtyDays_ = new widgets::SpinButtons("updQtyDays", frame);
    updQtyDays_->setFixedHeight(txtQtyDays_->sizeHint().height());
    const auto step = [this](int steps) {
        txtQtyDays_->setFocus(Qt::OtherFocusReason);
        settings_.updQtyDays_Change(steps);
        txtQtyDays_->showText(settings_.QtyDays());
        txtQtyDays_->selectAll();
    };
    connect(updQtyDays_, &widgets::SpinButtons::stepped, this, step);
    connect(txtQtyDays_, &TextField::stepped, this, step);
    lblQtyDays_ = addLabel("lblQtyDays", 22, txtQtyDays_, frame);
    cmdDelLog_ = addButton("cmdDelLog", -24, frame);
    auto* cmdDelAllLog = addButton("cmdDelAllLog", -26, frame);
    connect(cmdDelLog_, &QPushButton::clicked, this, [this] { settings_.cmdDelLog_Click(); });
    connect(cmdDelAllLog, &QPushButton::clicked, this, [this] { settings_.cmdDelAllLog_Click(); });

    auto* days = new QHBoxLayout;
    days->addWidget(lblQtyDays_);
    days->addSpacing(6);
    auto* pair = new QHBoxLayout;
    pair->setSpacing(0);
    pair->addWidget(txtQtyDays_);
    pair->addWidget(updQtyDays_);
    days->addLayout(pair);
    days->addStretch();
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdDelLog_);
    buttons->addWidget(cmdDelAllLog);
    buttons->addStretch();
    auto* inside = new QVBoxLayout(frame);
    inside->setSpacing(10);
    for (QCheckBox* box : {chkDelLog_, chkDelLogErr_, chkDelLogApp_})
        inside->addWidget(box);
    inside->addLayout(days);
    inside->addSpacing(6);
    inside->addLayout(buttons);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(14, 14, 14, 14);
    layout->addWidget(frame);
    layout->addStretch();
    return page;
}

QWidget* frmSettings::makePort()
{
    auto* page = new QWidget(ssSettings_);
    auto* fraCOM = tagged(new QGroupBox(QStringLiteral("-"), page), "fraCOM", "265");
    auto* grid = new QGridLayout(fraCOM);
    grid->setHorizontalSpacing(12);
    for (int list = 0; list < int(port_.size()); ++list) {
        auto* box = tagged(new QComboBox(fraCOM), portLists()[std::size_t(list)].control, "");
        box->setMinimumWidth(140);
        port_[std::size_t(list)] = box;
        connect(box, &QComboBox::activated, this, [this, list](int index) {
            settings_.setPortIndex(list, index);
            showDevice();
        });
        grid->addWidget(addLabel(kPortLabels[list].name, kPortLabels[list].text, box, fraCOM), list, 0);
        grid->addWidget(box, list, 1, Qt::AlignLeft);
    }
    fillPortNames(*port_[0]);
    lblDevice_ = new QLabel(fraCOM);
    lblDevice_->setObjectName("lblDevice");
    lblDevice_->setTextFormat(Qt::PlainText);
    lblDevice_->setForegroundRole(QPalette::PlaceholderText);
    lblDevice_->setMinimumWidth(240);
    grid->addWidget(lblDevice_, 0, 2);
    grid->setColumnStretch(2, 1);

    auto* cmdReset = addButton("cmdReset", -219, fraCOM);
    auto* cmdTest = addButton("cmdTest", -266, fraCOM);
    connect(cmdReset, &QPushButton::clicked, this, [this] {
        settings_.cmdReset_Click();
        showPortLists();
    });
    connect(cmdTest, &QPushButton::clicked, this, [this] {
        settings_.cmdTest_Click();
        showDevice();
    });
    auto* buttons = new QHBoxLayout;
    buttons->setContentsMargins(0, 6, 0, 0);
    buttons->setSpacing(8);
    buttons->addWidget(cmdReset);
    buttons->addWidget(cmdTest);
    buttons->addStretch();
    grid->addLayout(buttons, int(port_.size()), 1, 1, 2);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(14, 14, 14, 14);
    layout->addWidget(fraCOM);
    layout->addStretch();
    return page;
}

// Beside each name the device behind it, and a picture of whether it is there now.
void frmSettings::fillPortNames(QComboBox& list)
{
    auto* names = new QStandardItemModel(&list);
    for (const PortChoice& port : settings_.ports()) {
        auto* device = new QStandardItem(icon(port.present ? "check" : "port-closed"), port.device);
        names->appendRow({new QStandardItem(port.name), device});
    }
    auto* view = new QTreeView(&list);
    view->setRootIsDecorated(false);
    view->setHeaderHidden(true);
    view->setAllColumnsShowFocus(true);
    list.setModel(names);
    list.setView(view);
    list.setMaxVisibleItems(16);
    view->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    view->setMinimumWidth(280);
}

QWidget* frmSettings::makeButtons()
{
    auto* buttons = new QWidget(this);
    cmdOK_ = addButton("cmdOK", 13, buttons);
    cmdCancel_ = addButton("cmdCancel", 14, buttons);
    cmdApply_ = addButton("cmdApply", 15, buttons);
    cmdOK_->setDefault(true);
    auto* line = new QHBoxLayout(buttons);
    line->setContentsMargins({});
    line->addStretch();
    for (QPushButton* button : {cmdOK_, cmdCancel_, cmdApply_})
        line->addWidget(button);
    connect(cmdOK_, &QPushButton::clicked, this, [this] {
        if (settings_.cmdOK_Click())
            accept();
    });
    connect(cmdCancel_, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdApply_, &QPushButton::clicked, this, [this] {
        QWidget* former = focusWidget();
        if (settings_.cmdApply_Click())
            (former && former->isEnabled() ? former : cmdOK_)->setFocus(Qt::OtherFocusReason);
    });
    return buttons;
}

QPushButton* frmSettings::addButton(const char* name, int tag, QWidget* parent)
{
    auto* button = tagged(new QPushButton(QStringLiteral("-"), parent), name, QString::number(tag));
    button->setAutoDefault(false);
    return button;
}

QLabel* frmSettings::addLabel(const char* name, int tag, QWidget* field, QWidget* parent)
{
    auto* label = tagged(new QLabel(QStringLiteral("-"), parent), name, QString::number(tag));
    label->setBuddy(field);
    return label;
}

// What is shown
// --------------------------------------------------------------------------------------------------

void frmSettings::showControls()
{
    for (QWidget* detail :
         std::initializer_list<QWidget*>{chkDelLogErr_, chkDelLogApp_, txtQtyDays_, updQtyDays_, lblQtyDays_})
        detail->setEnabled(settings_.logDetailsEnabled());
    cmdDelLog_->setEnabled(settings_.cmdDelLogEnabled());
    cmdApply_->setEnabled(settings_.Changed());
}

void frmSettings::showPortLists()
{
    for (int list = 0; list < int(port_.size()); ++list)
        port_[std::size_t(list)]->setCurrentIndex(settings_.portIndex(list));
    showDevice();
}

void frmSettings::showDevice()
{
    const int index = settings_.portIndex(0);
    const std::vector<PortChoice> ports = settings_.ports();
    if (index < 0 || index >= int(ports.size())) {
        lblDevice_->clear();
        return;
    }
    const PortChoice& port = ports[std::size_t(index)];
    lblDevice_->setText(
        texts_.own(port.present ? "settings.device" : "settings.device.absent").arg(port.device));
}

// The days are tested when the focus has arrived elsewhere. The way out by Cancel is always free.
void frmSettings::leaveDays()
{
    if (returning_ || !isVisible() || focusWidget() == txtQtyDays_ || focusWidget() == cmdCancel_ ||
        focusWidget() == cmdOK_ || focusWidget() == cmdApply_ || settings_.txtQtyDays_Validate())
        return;
    const QScopedValueRollback<bool> returning(returning_, true);
    const QString before = txtQtyDays_->remembered();
    ssSettings_->setCurrentWidget(chkDelLog_->parentWidget()->parentWidget());
    txtQtyDays_->setFocus(Qt::OtherFocusReason);
    txtQtyDays_->remember(before);
}

void frmSettings::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    guarded("Module/Set_Language", [this] {
        for (int list = 1; list < int(port_.size()); ++list) {
            port_[std::size_t(list)]->clear();
            port_[std::size_t(list)]->addItems(settings_.portEntries(list));
        }
        showPortLists();
    });
}

} // namespace dialogs
