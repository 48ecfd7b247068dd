#include "session/Commands.h"
#include "session/Session.h"
#include "session/Texts.h"

#include <QSet>
#include <gtest/gtest.h>

namespace {

using session::MenuEntry;

class MenuLetters : public testing::TestWithParam<const char*>
{
protected:
    QString captionOf(const MenuEntry& entry) const
    {
        if (!entry.ownText.isEmpty())
            return texts_.own(entry.ownText);
        return entry.text == 0 ? entry.caption : texts_(entry.text);
    }
    // Each entry of a menu has a letter that no other has, and so in the menus below it.
    void check(const QString& menu, const std::vector<MenuEntry>& entries) const
    {
        QSet<QChar> taken;
        for (const MenuEntry& entry : entries) {
            if (entry.isSeparator())
                continue;
            const QString caption = captionOf(entry);
            const QChar letter = caption.section('&', 1).left(1).toUpper().at(0);
            EXPECT_FALSE(taken.contains(letter)) << qPrintable(menu + ": " + caption);
            taken << letter;
            check(entry.name, entry.entries);
        }
    }

    const session::LanguageSettings language_ = session::LanguageSettings::fromIdentifier(GetParam());
    const session::Texts texts_{language_};
};

TEST_P(MenuLetters, NoTwoEntriesOfAMenuShareOne)
{
    for (const session::Place place : {session::Place::Tree, session::Place::List}) {
        check("bar", session::menuBar(place));
        check("mnuBus", session::popupBus(place));
    }
    check("mnuTlb", session::popupToolbar());
}

INSTANTIATE_TEST_SUITE_P(Translated, MenuLetters, testing::Values("IT_Italiano_1000", "RU_Russian_6000"));

} // namespace
