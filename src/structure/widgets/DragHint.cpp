#include "structure/widgets/DragHint.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>

namespace structure {

namespace {

constexpr QPoint kBeside(14, 18); // from the pointer's tip
constexpr int kIconSize = 16;

} // namespace

DragHint::DragHint(QWidget* parent)
    : QFrame(parent, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput),
      picture_(new QLabel(this)), words_(new QLabel(this))
{
    setObjectName("dragHint");
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFrameShape(QFrame::Box);
    words_->setTextFormat(Qt::PlainText);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 3, 8, 3);
    layout->addWidget(picture_);
    layout->addWidget(words_);
}

void DragHint::tell(const QIcon& icon, const QString& words, const QPoint& globalPosition)
{
    picture_->setPixmap(icon.pixmap(QSize(kIconSize, kIconSize), devicePixelRatio()));
    words_->setText(words);
    adjustSize();
    goTo(globalPosition);
    show();
}

void DragHint::goTo(const QPoint& globalPosition)
{
    move(globalPosition + kBeside);
}

} // namespace structure
