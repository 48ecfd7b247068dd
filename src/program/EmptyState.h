#pragma once

#include "session/Forward.h"

#include <QWidget>

class QLabel;
class QPushButton;

namespace program {

// What the main window shows without a company: what is missing, and the two next steps.
class EmptyState : public QWidget
{
    Q_OBJECT

public:
    explicit EmptyState(const session::Texts& texts, QWidget* parent = nullptr);

    void relabel();

signals:
    void commandWanted(const QString& command);

private:
    const session::Texts& texts_;
    QLabel* title_;
    QLabel* hint_;
    QPushButton* open_;
    QPushButton* new_;
};

} // namespace program
