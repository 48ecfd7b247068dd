#pragma once

#include "dialogs/Manual.h"
#include "platform/Forward.h"
#include "session/Forward.h"

#include <QDialog>

class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QToolButton;

namespace dialogs {

class ManualPage;

// The manual: chapters and what a search found on the left, the page on the right. It needs no network.
class frmManual : public QDialog
{
    Q_OBJECT

public:
    frmManual(const session::Session& session, const session::Texts& texts, platform::Operator& op);

    void showChapter(const QString& chapter);

protected:
    void changeEvent(QEvent* event) override;

private:
    void layOut();
    void listen();
    void relabel();
    void fillChapters();
    void search(const QString& words);
    void open(const QListWidgetItem* item);
    void follow();

    const session::Session& session_;
    const session::Texts& texts_;
    Manual manual_;
    QToolButton* cmdBack_;
    QToolButton* cmdForward_;
    QLineEdit* txtFind_;
    QListWidget* lvwChapters_;
    ManualPage* txtPage_;
};

} // namespace dialogs
