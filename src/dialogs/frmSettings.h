#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"
#include "widgets/Forward.h"

#include <QDialog>
#include <array>
#include <vector>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QPushButton;
class QTabWidget;

namespace dialogs {

class Settings;

// The settings: company, log files, COM port.
class frmSettings : public QDialog
{
    Q_OBJECT

public:
    frmSettings(const session::Session& session, const session::Texts& texts, platform::Operator& op,
                Settings& settings);
    ~frmSettings() override;

protected:
    void changeEvent(QEvent* event) override;

private:
    QWidget* makeCompany();
    QWidget* makeLog();
    QWidget* makePort();
    QWidget* makeButtons();
    QPushButton* addButton(const char* name, int tag, QWidget* parent);
    QLabel* addLabel(const char* name, int tag, QWidget* field, QWidget* parent);
    void fillPortNames(QComboBox& list);

    void showControls();
    void showPortLists();
    void showDevice();
    void leaveDays();

    const session::Texts& texts_;
    Settings& settings_;
    QTabWidget* ssSettings_ = nullptr;
    std::vector<widgets::TextField*> company_; // by session::CompanyField
    QComboBox* imcLanguage_ = nullptr;
    QCheckBox *chkDelLog_ = nullptr, *chkDelLogErr_ = nullptr, *chkDelLogApp_ = nullptr;
    widgets::TextField* txtQtyDays_ = nullptr;
    widgets::SpinButtons* updQtyDays_ = nullptr;
    QLabel* lblQtyDays_ = nullptr;
    QPushButton *cmdDelLog_ = nullptr, *cmdOK_ = nullptr, *cmdCancel_ = nullptr, *cmdApply_ = nullptr;
    std::array<QComboBox*, 6> port_{}; // in the order of the record
    QLabel* lblDevice_ = nullptr;
    bool returning_ = false; // the focus goes back to the days, which were refused
};

} // namespace dialogs
