#include "database/widgets/ProgressWindow.h"

#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace database {

ProgressWindow::ProgressWindow(const QString& title, QLabel* label, const QString& barName)
    : bar_(new QProgressBar(this))
{
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    setWindowTitle(title);
    bar_->setObjectName(barName);
    bar_->setRange(0, 100);
    bar_->setValue(0);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 16, 20, 20);
    layout->setSpacing(8);
    layout->addWidget(label);
    layout->addWidget(bar_);
    setFixedWidth(340);
}

void ProgressWindow::showProgress(int percent)
{
    bar_->setValue(percent);
    repaint();
}

} // namespace database
