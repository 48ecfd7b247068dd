#include "widgets/NarrowField.h"

#include "platform/widgets/Icons.h"

#include <QKeyEvent>

namespace widgets {

namespace {

constexpr int kPauseMilliseconds = 150;
constexpr int kMostCharacters = 255;

} // namespace

NarrowField::NarrowField(QWidget* parent) : QLineEdit(parent)
{
    setObjectName("txtNarrow");
    setClearButtonEnabled(true);
    addAction(platform::icon("filter"), LeadingPosition);
    setMaxLength(kMostCharacters);
    due_.setSingleShot(true);
    due_.setInterval(kPauseMilliseconds);
    connect(this, &QLineEdit::textChanged, &due_, qOverload<>(&QTimer::start));
    connect(&due_, &QTimer::timeout, this, &NarrowField::narrowed);
}

void NarrowField::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && !text().isEmpty())
        clear();
    else if (event->key() == Qt::Key_Down)
        emit listWanted();
    else
        QLineEdit::keyPressEvent(event);
}

} // namespace widgets
