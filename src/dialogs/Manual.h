#pragma once

#include "session/Forward.h"

#include <QString>
#include <QStringList>
#include <vector>

namespace dialogs {

// The operator's manual in the session's language: chapters in Markdown, which lie in the program.
class Manual
{
public:
    // A section of a chapter that holds what was looked for.
    struct Hit
    {
        QString chapter;
        QString heading;
        QString excerpt;
    };

    explicit Manual(const session::Session& session);

    // "01-first-start" and so on, in their order; the same in every language.
    QStringList chapters() const;
    QString title(const QString& chapter) const;
    // Where the chapter's text lies; what it refers to lies beside it.
    QString address(const QString& chapter) const;
    // The chapter that tells about a window, by the window's name; "" when none does.
    static QString chapterOf(const QString& window);
    // The sections that hold all of the words, whatever their case; those with them in the heading come
    // first.
    std::vector<Hit> search(const QString& words) const;

private:
    QString folder() const;
    QString text(const QString& chapter) const;

    const session::Session& session_;
};

} // namespace dialogs
