#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

#include <QList>
#include <QString>

class QWidget;

namespace widgets {

// The dynamic property in which a control holds its text's offset, as a text: "" leaves the control alone, N
// is its caption (or its tool tip, when it has none), -N is caption N and tool tip N + 1. Actions of menus
// and of tlbMain, and the panels of a status bar, hold it too.
inline constexpr char kTag[] = "Tag";
// The name of an action's caption among the own texts, for one that has no offset.
inline constexpr char kOwnText[] = "OwnText";
// The character set number that the machine's locale gives a control.
inline constexpr char kCharset[] = "Charset";

// Pulls every text of a form in, in the session's language. Windows inside the form that are forms of their
// own
// ("frm...") are left to their own call. What a form composes itself, it renews on the QEvent::LanguageChange
// that this sends at the end. True when everything was found; a failure leaves the rest in its former
// language.
bool Set_Language(QWidget& form, const session::Session& session, const session::Texts& texts,
                  platform::Operator& op);

// Takes another language and re-labels every form of the list.
void SetLanguage_AllForms(const QString& identifier, const QList<QWidget*>& forms, session::Session& session,
                          const session::Texts& texts, platform::Operator& op);

// Names a control and gives it its Tag.
template <class Object>
Object* tagged(Object* object, const QString& name, const QString& tag)
{
    object->setObjectName(name);
    object->setProperty(kTag, tag);
    return object;
}

} // namespace widgets
