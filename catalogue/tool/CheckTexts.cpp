#include "catalogue/tool/Checks.h"
#include "catalogue/tool/Words.h"

#include <QRegularExpression>
#include <algorithm>

namespace catalogue {

namespace {

constexpr qsizetype kLongestText = 60;
enum Language : size_t
{
    kItalian,
    kEnglish,
    kRussian
};

// A stem that begins a word: "door" in "door alarm", not in "outdoor air".
bool beginsWord(const QString& text, const QString& stem)
{
    for (qsizetype at = 0; (at = text.indexOf(stem, at, Qt::CaseInsensitive)) >= 0; ++at)
        if (at == 0 || !text[at - 1].isLetter())
            return true;
    return false;
}

bool hasAny(const QString& text, const QStringList& stems)
{
    return std::ranges::any_of(stems, [&](const QString& stem) { return beginsWord(text, stem); });
}

// An English text that uses a fixed word has its fixed counterpart in the other languages.
void checkTerms(const Text& text, const Origin& origin, const std::vector<Term>& glossary, Problems& problems)
{
    for (const Term& term : glossary) {
        if (!hasAny(text[kEnglish], term.stems[kEnglish]))
            continue;
        for (const size_t language : {kItalian, kRussian})
            if (!hasAny(text[language], term.stems[language]))
                problems.push_back(
                    {origin, QStringLiteral("\"%1\" is \"%2\" in %3, not \"%4\"")
                                 .arg(term.stems[kEnglish].join('/'), term.stems[language].join('/'),
                                      kLanguages[language], text[language])});
    }
}

// A word that the trade doesn't use, in the language that it belongs to.
void checkAvoided(const Text& text, const Origin& origin, const std::vector<Avoided>& avoided,
                  Problems& problems)
{
    for (const Avoided& word : avoided)
        if (beginsWord(text[word.language], word.stem))
            problems.push_back({origin, QStringLiteral("not \"%1\" in %2 but \"%3\"")
                                            .arg(word.stem, kLanguages[word.language], word.instead)});
}

void checkAlphabets(const QString& text, const Origin& origin, Problems& problems)
{
    for (const QString& word : wordsOfTwoAlphabets(text))
        problems.push_back({origin, QStringLiteral("Latin letters in the Cyrillic word \"%1\"").arg(word)});
}

void checkText(const Text& text, const Origin& origin, const Catalogue& catalogue, Problems& problems)
{
    static const QRegularExpression kCyrillic(QStringLiteral("\\p{Cyrillic}"));
    for (size_t language = 0; language < kLanguages.size(); ++language) {
        const QString& name = kLanguages[language];
        if (text[language].isEmpty())
            problems.push_back({origin, QStringLiteral("no text in %1").arg(name)});
        if (text[language].size() > kLongestText)
            problems.push_back({origin, QStringLiteral("the text in %1 is longer than %2 characters")
                                            .arg(name, QString::number(kLongestText))});
        if (language != kRussian && text[language].contains(kCyrillic))
            problems.push_back({origin, QStringLiteral("Cyrillic letters in the text in %1").arg(name)});
    }
    checkAlphabets(text[kRussian], origin, problems);
    checkTerms(text, origin, catalogue.glossary, problems);
    checkAvoided(text, origin, catalogue.avoided, problems);
}

} // namespace

void checkTexts(const Catalogue& catalogue, Problems& problems)
{
    const auto check = [&](const Text& text, const Origin& origin) {
        checkText(text, origin, catalogue, problems);
    };
    for (const ChoiceSet& set : catalogue.choiceSets)
        for (const Choice& choice : set.choices)
            check(choice.text, choice.origin);
    for (const CopyBlock& block : catalogue.copyBlocks)
        check(block.text, block.origin);
    for (const Type& type : catalogue.types) {
        check(type.text, type.origin);
        for (const Group& group : type.groups)
            check(group.text, group.origin);
    }
    forEachParameter(catalogue, [&](const Type&, const Group&, const Parameter& parameter) {
        check(parameter.text, parameter.origin);
    });
}

} // namespace catalogue
