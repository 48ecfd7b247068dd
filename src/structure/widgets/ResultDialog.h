#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"
#include "structure/ListModel.h"

#include <QDialog>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QStackedWidget;
class QVBoxLayout;

namespace structure {

class ResultView;
class Structure;

// A window beside the main one that lists elements from all over the plant. One that is taken is shown in the
// main window, and this one stays for the next.
class ResultDialog : public QDialog
{
    Q_OBJECT

protected:
    // What the two windows call differently.
    struct Names
    {
        const char* form;
        const char* icon;
        const char* list;
        const char* words;
        const char* title; // own text
    };

    ResultDialog(Structure& structure, session::Session& session, const session::Texts& texts,
                 const Names& names, int columns = 3);

    void showItems(const std::vector<ListItem>& items); // what was selected stays so, or the first is
    void say(const QString& words);
    void take(const QString& key); // "" takes nothing
    virtual void relabel();
    void changeEvent(QEvent* event) override;

    Structure& structure_;
    session::Session& session_;
    const session::Texts& texts_;
    ListModel results_;
    QVBoxLayout* layout_;   // from the top: the pages, the line below
    QStackedWidget* pages_; // the list is one of them
    ResultView* view_;
    QHBoxLayout* commands_; // above the line; empty where there are none
    QHBoxLayout* bottom_;
    QPushButton* cmdShow_;

private:
    void stayClear();

    const char* title_;
    QLabel* words_;
    QPushButton* cmdClose_;
};

} // namespace structure
