#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

#include <QHash>
#include <QObject>
#include <QString>
#include <functional>

namespace users {

// The list of operators, one record at a time, without its window. It walks rsUsers and writes tbUsers.
class UserEditor : public QObject
{
    Q_OBJECT

public:
    struct Surroundings
    {
        session::Session& session;
        const session::Texts& texts;
        platform::Operator& op;
        session::Lookup& lookup;
        session::Printing& printing;
    };

    explicit UserEditor(const Surroundings& surroundings);

    // The window comes up: an empty new record.
    void Load();

    // What the fields hold, by column.
    const QString& text(const QString& column) const { return texts_.constFind(column).value(); }
    bool right(const QString& column) const { return rights_.value(column); }
    int state() const { return state_; }
    bool NewRecord() const { return newRecord_; }
    bool Changed() const { return changed_; }
    // Whether more than the password may be changed.
    bool controlsEnabled() const { return controlsEnabled_; }

    // The operator's own changes.
    void setText(const QString& column, const QString& text);
    void setRight(const QString& column, bool given);
    void setState(int state);
    // The focus came to the number, and left it.
    void enterIDUser();
    void txtIDUser_LostFocus();

    void New_Item();
    void Save_Item() { Update_Item(); }
    // False when what is typed was refused or could not be stored: it still stands in the fields.
    bool Update_Item();
    void Delete_Item();
    void First_Item();
    void Last_Item();
    void Next_Item();
    void Prev_Item();
    void Refresh_Item();
    // Whether the window may go.
    bool Exit();
    // The record that is shown, and all of them.
    void PrintItem();
    void Print_List_Items();

signals:
    void filled();                            // the fields hold something else than was typed
    void focusWanted(const QString& control); // "txtIDUser"

private:
    void Clean_Controls();
    void FillControls_Item();
    bool Search_Item();
    void EnableDisable_Controls(bool enable);
    bool isAdministrator() const;
    bool standsOnRecord() const;
    bool numberIsFree();
    void store();
    void add();
    void change();
    void readAgain(const QString& IDUser);
    void walk(const char* procedure, const std::function<void(platform::Recordset&)>& move);
    bool isThere(bool anything);
    bool ask(int text);
    void refuse(int text);
    QString lookedUp();

    Surroundings with_;
    QHash<QString, QString> texts_;
    QHash<QString, bool> rights_;
    int state_ = 0;
    bool newRecord_ = true;
    bool changed_ = false;
    bool controlsEnabled_ = true;
    QString recordID_;     // of the record that the fields were filled from
    QString rememberedID_; // in the field when the focus came
};

} // namespace users
