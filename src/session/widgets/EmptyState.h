#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace session {

class Texts;

// What the main window shows without a company: what is missing, and the two next steps.
class EmptyState : public QWidget
{
    Q_OBJECT

public:
    explicit EmptyState(const Texts& texts, QWidget* parent = nullptr);

    void relabel();

signals:
    void commandWanted(const QString& command);

private:
    const Texts& texts_;
    QLabel* title_;
    QLabel* hint_;
    QPushButton* open_;
    QPushButton* new_;
};

} // namespace session
