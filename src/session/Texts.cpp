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

const QString kEnglish = QStringLiteral("EN");

// The file that holds a language's block; "" when there is none.
QString fileOfBase(const QString& base)
{
    static const std::map<int, QString> kFiles{
        {1000, QStringLiteral("IT")},
        {2000, kEnglish},
        {6000, QStringLiteral("RU")},
    };
    const auto file = kFiles.find(base.toInt());
    return file == kFiles.end() ? QString() : file->second;
}

} // namespace

Texts::Texts(const LanguageSettings& language) : language_(language)
{
    initializeTexts();
}

QString Texts::operator()(int offset) const
{
    const QString file = fileOfBase(language_.Base);
    if (file.isEmpty())
        platform::fail(platform::errors::kOutOfRange,
                       QStringLiteral("No texts have the base '%1'.").arg(language_.Base));
    return block(QStringLiteral(":/texts/%1.txt").arg(file))[QString::number(offset)];
}

bool Texts::hasBlock() const
{
    return !fileOfBase(language_.Base).isEmpty();
}

QString Texts::common(int id) const
{
    return block(QStringLiteral(":/texts/common.txt"))[QString::number(id)];
}

QString Texts::own(const QString& key) const
{
    const QString file = fileOfBase(language_.Base);
    return block(QStringLiteral(":/own_texts/%1.txt").arg(file.isEmpty() ? kEnglish : file))[key];
}

const TextBlock& Texts::block(const QString& file) const
{
    auto found = blocks_.find(file);
    if (found == blocks_.end())
        found = blocks_.emplace(file, TextBlock::fromFile(file)).first;
    return found->second;
}

} // namespace session
