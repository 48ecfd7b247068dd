#pragma once

#include <QDialog>

class QLabel;
class QProgressBar;

namespace database {

// A line of words over a bar: how far a job is that holds the thread. Each step paints itself; nobody closes
// it but the job.
class ProgressWindow : public QDialog
{
    Q_OBJECT

public:
    ProgressWindow(const QString& title, QLabel* label, const QString& barName);

public slots:
    void showProgress(int percent);

private:
    QProgressBar* bar_;
};

} // namespace database
