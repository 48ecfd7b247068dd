#include "widgets/SpinButtons.h"

#include <QToolButton>
#include <QVBoxLayout>

namespace widgets {

SpinButtons::SpinButtons(const QString& name, QWidget* parent) : QWidget(parent)
{
    setObjectName(name);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(makeArrow(QStringLiteral("up"), Qt::UpArrow, 1));
    layout->addWidget(makeArrow(QStringLiteral("down"), Qt::DownArrow, -1));
}

// The field keeps the focus: stepping is no leaving.
QWidget* SpinButtons::makeArrow(const QString& name, Qt::ArrowType arrow, int steps)
{
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setArrowType(arrow);
    button->setAutoRepeat(true);
    button->setAccessibleName(steps > 0 ? QStringLiteral("+") : QStringLiteral("-"));
    button->setFocusPolicy(Qt::NoFocus);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    button->setFixedWidth(20);
    button->setMinimumHeight(10);
    connect(button, &QToolButton::clicked, this, [this, steps] { emit stepped(steps); });
    return button;
}

} // namespace widgets
