#include "session/Texts.h"

#include "platform/RuntimeError.h"
#include "session/Session.h"

#include <QtGlobal>

// The resources lie in a static library: they must be asked for by name, from outside every namespace.
static void initializeTexts()
{
    Q_INIT_RESOURCE(texts);
}

namespace session {

namespace {

QString fileOfBase(const QString& base)
{
    static const std::map<int, QString> kFiles{
        {1000, QStringLiteral("IT")},
        {2000, QStringLiteral("EN")},
        {6000, QStringLiteral("RU")},
    };
    const auto file = kFiles.find(base.toInt());
    if (file == kFiles.end())
        platform::fail(platform::errors::kOutOfRange,
                       QStringLiteral("No texts have the base '%1'.").arg(base));
    return file->second;
}

} // namespace

Texts::Texts(const LanguageSettings& language) : language_(language)
{
    initializeTexts();
}

QString Texts::operator()(int offset) const
{
    return block(QStringLiteral(":/texts/%1.txt").arg(fileOfBase(language_.Base)))[QString::number(offset)];
}

QString Texts::common(int id) const
{
    return block(QStringLiteral(":/texts/common.txt"))[QString::number(id)];
}

QString Texts::own(const QString& key) const
{
    return block(QStringLiteral(":/own_texts/%1.txt").arg(fileOfBase(language_.Base)))[key];
}

const TextBlock& Texts::block(const QString& file) const
{
    auto found = blocks_.find(file);
    if (found == blocks_.end())
        found = blocks_.emplace(file, TextBlock::fromFile(file)).first;
    return found->second;
}

} // namespace session
