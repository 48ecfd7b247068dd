#include "structure/Mark.h"

#include "platform/Words.h"
#include "structure/Image.h"

#include <QStringList>

namespace structure {

namespace {

constexpr std::pair<Mark, const char*> kWords[] = {
    {kHoldsChanges, "mark.changes"}, {kHoldsUnconfirmed, "mark.unconfirmed"}, {kReadOnly, "mark.readonly"}};

} // namespace

QString wordsOf(int marks, int image)
{
    QStringList words;
    if (image == int(Image::ParameterChanged))
        words << platform::inWords("mark.changed");
    else if (image == int(Image::ParameterAdded))
        words << platform::inWords("mark.added");
    for (const auto& [mark, name] : kWords) {
        if (marks & mark)
            words << platform::inWords(name);
    }
    return words.join(u'\n');
}

} // namespace structure
