#include "bus/frmTrace.h"

#include "bus/widgets/TraceView.h"
#include "platform/Guard.h"
#include "platform/widgets/Icons.h"
#include "session/SaveLines.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "widgets/FormLanguage.h"
#include "widgets/NarrowField.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

namespace bus {

frmTrace::frmTrace(session::Session& session, const session::Texts& texts, platform::Operator& op,
                   const LineTrace& trace)
    : session_(session), texts_(texts), operator_(op), model_(trace, session, texts),
      txtNarrow_(new widgets::NarrowField(this)), lvwTrace_(new TraceView(model_, this)),
      lblCount_(new QLabel(this)), chkPause_(new QCheckBox(this)),
      cmdSave_(new QPushButton(platform::icon("save"), {}, this)), cmdClose_(new QPushButton(this))
{
    setObjectName("frmTrace");
    setWindowIcon(platform::icon("line-trace"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    layOut();
    connect(txtNarrow_, &widgets::NarrowField::listWanted, lvwTrace_, qOverload<>(&QWidget::setFocus));
    connect(txtNarrow_, &widgets::NarrowField::narrowed, this, [this] {
        model_.setFilter(txtNarrow_->text());
        lvwTrace_->scrollToBottom();
        showCount();
    });
    connect(chkPause_, &QCheckBox::toggled, this, [this](bool paused) {
        lvwTrace_->keepingTheEnd([&] { model_.setPaused(paused); });
        showCount();
    });
    connect(cmdSave_, &QPushButton::clicked, this, &frmTrace::save);
    connect(cmdClose_, &QPushButton::clicked, this, &QDialog::reject);
    connect(&trace, &LineTrace::recorded, this, &frmTrace::followSoon);
    widgets::Set_Language(*this, session, texts, op);
    lvwTrace_->scrollToBottom();
}

void frmTrace::layOut()
{
    lvwTrace_->setObjectName("lvwTrace");
    lblCount_->setObjectName("lblCount");
    lblCount_->setWordWrap(true);
    chkPause_->setObjectName("chkPause");
    cmdSave_->setObjectName("cmdSave");
    cmdClose_->setObjectName("cmdClose");
    for (QPushButton* button : {cmdSave_, cmdClose_})
        button->setAutoDefault(false);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(lblCount_, 1);
    bottom->addWidget(chkPause_);
    bottom->addSpacing(10);
    bottom->addWidget(cmdSave_);
    bottom->addWidget(cmdClose_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(14, 14, 14, 12);
    layout->setSpacing(10);
    layout->addWidget(txtNarrow_);
    layout->addWidget(lvwTrace_, 1);
    layout->addLayout(bottom);
    resize(980, 520);
}

// Many events in a row are one look: what the line does is done first.
void frmTrace::followSoon()
{
    if (std::exchange(following_, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            following_ = false;
            lvwTrace_->keepingTheEnd([this] { model_.follow(); });
            showCount();
        },
        Qt::QueuedConnection);
}

void frmTrace::showCount()
{
    const int count = model_.rowCount();
    const char* words = model_.isPaused()           ? "trace.paused"
                        : model_.filter().isEmpty() ? "trace.count"
                                                    : "trace.narrowed";
    const bool nothing = count == 0 && !model_.isPaused() && model_.filter().isEmpty();
    lblCount_->setText(nothing ? texts_.own("trace.empty") : texts_.own(words).arg(count));
    cmdSave_->setEnabled(count > 0);
}

void frmTrace::save()
{
    platform::guarded("frmTrace/Save_Trace", [this] {
        session::saveLines(session_, texts_, operator_, texts_.own("trace.file"), model_.lines());
    });
}

void frmTrace::relabel()
{
    setWindowTitle(session_.AppTitle + '\\' + texts_.own("trace.title"));
    txtNarrow_->setPlaceholderText(texts_.own("trace.filter"));
    txtNarrow_->setAccessibleName(texts_.own("trace.filter"));
    lvwTrace_->setAccessibleName(texts_.own("trace.list"));
    chkPause_->setText(texts_.own("trace.pause"));
    cmdSave_->setText(texts_.own("trace.save"));
    cmdClose_->setText(texts_.own("find.close"));
    model_.relabel();
    showCount();
}

void frmTrace::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        relabel();
}

} // namespace bus
