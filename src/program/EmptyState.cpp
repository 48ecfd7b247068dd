#include "program/EmptyState.h"

#include "platform/widgets/Icons.h"
#include "session/Texts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace program {

using namespace session;

EmptyState::EmptyState(const Texts& texts, QWidget* parent)
    : QWidget(parent), texts_(texts), title_(new QLabel(this)), hint_(new QLabel(this)),
      open_(new QPushButton(platform::icon("open-db"), {}, this)),
      new_(new QPushButton(platform::icon("new-db"), {}, this))
{
    setObjectName("emptyState");
    open_->setObjectName("emptyOpen");
    new_->setObjectName("emptyNew");
    open_->setDefault(true);
    setFocusProxy(open_);
    for (QPushButton* button : {open_, new_}) {
        button->setIconSize({24, 24});
        button->setMinimumSize(190, 40);
    }
    auto* picture = new QLabel(this);
    picture->setPixmap(platform::icon("calidora").pixmap(QSize(96, 96), devicePixelRatio()));
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    title_->setFont(large);
    hint_->setForegroundRole(QPalette::PlaceholderText);
    hint_->setWordWrap(true);
    hint_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    hint_->setFixedWidth(460);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(open_);
    buttons->addSpacing(8);
    buttons->addWidget(new_);
    buttons->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addStretch(2);
    layout->addWidget(picture, 0, Qt::AlignHCenter);
    layout->addSpacing(12);
    layout->addWidget(title_, 0, Qt::AlignHCenter);
    layout->addWidget(hint_, 0, Qt::AlignHCenter);
    layout->addSpacing(16);
    layout->addLayout(buttons);
    layout->addStretch(3);

    connect(open_, &QPushButton::clicked, this, [this] { emit commandWanted("OpenDb"); });
    connect(new_, &QPushButton::clicked, this, [this] { emit commandWanted("NewDb"); });
}

void EmptyState::relabel()
{
    title_->setText(texts_.own("empty.title"));
    hint_->setText(texts_.own("empty.hint"));
    hint_->setMinimumHeight(hint_->heightForWidth(hint_->width()));
    open_->setText(texts_.own("empty.open"));
    new_->setText(texts_.own("empty.new"));
}

} // namespace program
