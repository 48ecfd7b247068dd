#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"
#include "widgets/Forward.h"

#include <QDialog>
#include <QHash>

class QCheckBox;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QPushButton;

namespace property {

class PropertyModel;

// The property dialog: shows what the model holds and hands the operator's gestures to it.
class frmProperty : public QDialog
{
    Q_OBJECT

public:
    frmProperty(const session::Session& session, const session::Texts& texts, platform::Operator& op,
                PropertyModel& model);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makeProperties(const session::Texts& texts);
    QWidget* makeDisabled();
    QWidget* makeValues();
    QWidget* makeButtons();
    QLabel* addLabel(const char* name, QWidget* parent);
    QLabel* addCaption(const char* name, const char* tag, QWidget* parent);
    QPushButton* addButton(const char* name, const char* tag, QHBoxLayout& layout);
    widgets::FieldEdit* addField(const QString& name, QWidget* parent);
    void addNumber(int row, QWidget* parent, QHBoxLayout& layout);

    void showControls();
    void showEntries();
    void showDetails();
    QLabel* addDetail(const char* name, QWidget* parent);
    void showDetail(QLabel* label, const QString& text);
    void moveOn();
    void leave(QWidget* field);
    void check(QWidget* field, const QString& saved, int sent);
    void focusOn(const QString& name);
    void goTo(QWidget* field);

    const session::Texts& texts_;
    PropertyModel& model_;
    QHash<QString, QString> left_; // what Escape puts back into a field that was left, until it is accepted
    QLabel *lblTitle_, *lblPath_, *lblUnit_, *lblStandard_, *lblWholeAddress_, *lblWarning_, *lblDisabledWhy_;
    QHash<QString, QWidget*> widgets_; // by control name
    QList<widgets::FieldEdit*> fields_;
    QList<widgets::SpinButtons*> spins_; // updVal1 to updVal3
    QComboBox* cbxValEnum_ = nullptr;
    QCheckBox* chkDisabled_ = nullptr;
    QPushButton *cmdOK_ = nullptr, *cmdCancel_ = nullptr, *cmdApply_ = nullptr, *cmdCopy_ = nullptr;
    int sent_ = 0;           // how often the logic has sent the focus somewhere
    bool returning_ = false; // the focus goes back to a field whose content was refused
};

} // namespace property
