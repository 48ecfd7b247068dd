#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

#include <QDialog>

class QLabel;

namespace dialogs {

class Info;

// About: the program, its maker, its support.
class frmInfo : public QDialog
{
    Q_OBJECT

public:
    frmInfo(const session::Session& session, const session::Texts& texts, platform::Operator& op, Info& info);

protected:
    void changeEvent(QEvent* event) override;

private:
    QWidget* makeProgram();
    QWidget* makeCompany();
    QLabel* addLabel(const char* name, QWidget* parent);
    QLabel* addLink(const char* name, QWidget* parent, void (frmInfo::*follow)());
    QLabel* addPicture(const char* name, const char* icon, int size, QWidget* parent);
    void showTexts();
    void mailToMaker();
    void mailToSupport();
    void openWeb();

    Info& info_;
};

// The machine's facts, for the technical support: a text that can be copied.
class frmSystemInfo : public QDialog
{
    Q_OBJECT

public:
    frmSystemInfo(const session::Session& session, const session::Texts& texts, platform::Operator& op,
                  const Info& info);
};

} // namespace dialogs
