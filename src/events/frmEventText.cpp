#include "events/frmEventText.h"

#include "events/EventViewer.h"
#include "platform/widgets/Icons.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "widgets/FormLanguage.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace events {

using widgets::tagged;

namespace {

constexpr QSize kPicture(32, 32);
const char* const kPictures[] = {"", "log-info", "log-warning", "log-error"};

} // namespace

frmEventText::frmEventText(const session::Session& session, const session::Texts& texts,
                           platform::Operator& op, EventViewer& viewer)
    : session_(session), texts_(texts), viewer_(viewer), lblPlace_(new QLabel(this)),
      cmdShow_(new QPushButton(this)), cmdClose_(new QPushButton(this))
{
    setObjectName("frmEventText");
    setWindowIcon(platform::icon("event-viewer"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    layOut();
    connect(cmdClose_, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdShow_, &QPushButton::clicked, this, [this] {
        accept();
        viewer_.leave();
    });
    widgets::Set_Language(*this, session, texts, op);
}

void frmEventText::layOut()
{
    const QStringList& cells = viewer_.shownEvent();
    const auto cell = [&](EventColumn column) { return cells[int(column)]; };

    auto* picture = new QLabel(this);
    picture->setPixmap(platform::icon(kPictures[viewer_.shownType()]).pixmap(kPicture, devicePixelRatio()));
    auto* lblType = makeCell("lblType", cell(EventColumn::Type));
    QFont bold = lblType->font();
    bold.setBold(true);
    lblType->setFont(bold);
    auto* head = new QGridLayout;
    head->setHorizontalSpacing(12);
    head->addWidget(picture, 0, 0, 2, 1);
    head->addWidget(lblType, 0, 1);
    head->addWidget(makeCell("lblDate", cell(EventColumn::Date) + "   " + cell(EventColumn::Source)), 1, 1);
    head->setColumnStretch(1, 1);

    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->addWidget(tagged(new QLabel("-", this), "lblEquipment", "288"), 0, 0);
    grid->addWidget(makeCell("txtEquipment", cell(EventColumn::Equipment)), 0, 1);
    grid->addWidget(tagged(new QLabel("-", this), "lblInstrument", "289"), 1, 0);
    grid->addWidget(makeCell("txtInstrument", cell(EventColumn::Instrument)), 1, 1);
    grid->setColumnStretch(1, 1);

    auto* txtDescription = new QPlainTextEdit(cell(EventColumn::Description), this);
    txtDescription->setObjectName("txtDescription");
    txtDescription->setReadOnly(true);
    txtDescription->setTabChangesFocus(true);

    lblPlace_->setObjectName("lblPlace");
    lblPlace_->setTextFormat(Qt::PlainText);
    lblPlace_->setWordWrap(true);
    cmdShow_->setObjectName("cmdShow");
    cmdShow_->setEnabled(!viewer_.place().isEmpty());
    cmdClose_->setObjectName("cmdClose");
    cmdClose_->setDefault(true);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(lblPlace_, 1);
    bottom->addWidget(cmdShow_);
    bottom->addWidget(cmdClose_);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 14);
    layout->setSpacing(12);
    layout->addLayout(head);
    layout->addLayout(grid);
    layout->addWidget(txtDescription, 1);
    layout->addLayout(bottom);
    resize(520, 320);
    cmdClose_->setFocus();
}

// A text that can be selected and copied.
QLabel* frmEventText::makeCell(const QString& name, const QString& text)
{
    auto* label = new QLabel(text, this);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    return label;
}

void frmEventText::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    setWindowTitle(session_.AppTitle + '\\' + texts_.own("event.title"));
    cmdShow_->setText(texts_.own("find.show"));
    cmdClose_->setText(texts_.own("find.close"));
    const bool named = !viewer_.shownEvent()[int(EventColumn::Equipment)].isEmpty() ||
                       !viewer_.shownEvent()[int(EventColumn::Instrument)].isEmpty();
    if (!viewer_.place().isEmpty())
        lblPlace_->setText(texts_.own("event.place").arg(viewer_.place()));
    else
        lblPlace_->setText(named ? texts_.own("event.gone") : QString());
}

} // namespace events
