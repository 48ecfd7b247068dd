#pragma once

#include "session/TextBlock.h"

#include <map>

namespace session {

struct LanguageSettings;

// The catalogue of every text that the operator sees, fetched by number: the language's base plus an offset
// that is the same in all languages. It follows the session's language at each fetch.
class Texts
{
public:
    // `language` is the session's own record; the blocks are read from the program's resources at first use.
    explicit Texts(const LanguageSettings& language);

    // Text `offset` in the current language. An offset or a base without a row fails.
    QString operator()(int offset) const;
    // A row below 1000, which is the same in every language: the language list, the maker's data.
    QString common(int id) const;
    // Whether the current language has a block at all.
    bool hasBlock() const;
    // A text that this build adds, by name ("progress.item"); in English where the language has no block.
    QString own(const QString& key) const;

private:
    const TextBlock& block(const QString& file) const;

    const LanguageSettings& language_;
    mutable std::map<QString, TextBlock> blocks_;
};

} // namespace session
