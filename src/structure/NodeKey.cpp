#include "structure/NodeKey.h"

#include "platform/RuntimeError.h"

#include <QStringBuilder>
#include <limits>

namespace structure {

namespace {

constexpr QChar kJoint = u'_';

} // namespace

int Extract_Level(const QString& key)
{
    if (key == kRootKey)
        return kRoot;
    const qsizetype end = key.indexOf(kJoint);
    bool numeric = false;
    const int level = end < 0 ? 0 : QStringView(key).left(end).toInt(&numeric);
    if (!numeric || level < std::numeric_limits<qint16>::min() || level > std::numeric_limits<qint16>::max())
        platform::fail(platform::errors::kInvalidCall, QStringLiteral("'%1' is not a key.").arg(key));
    return level;
}

KeyParts Extract_Key(const QString& key)
{
    if (key == kRootKey)
        return {QStringLiteral("0"), {}, {}, {}, {}};
    KeyParts parts;
    qsizetype begin = 0;
    for (QString* part : {&parts.Level, &parts.IDGrp, &parts.IDInst, &parts.IDParGrp}) {
        const qsizetype end = key.indexOf(kJoint, begin);
        if (end < 0) {
            *part = key.mid(begin);
            return parts;
        }
        *part = key.mid(begin, end - begin);
        begin = end + 1;
    }
    parts.IDPar = key.mid(begin);
    return parts;
}

QString Compose_Key(int level, const QString& IDGrp, const QString& IDInst, const QString& IDParGrp)
{
    switch (level) {
    case kRoot:
    case kGroup:
        return kRootKey;
    case kInstrument:
        return u"1_" % IDGrp;
    case kParamGroup:
        return u"2_" % IDGrp % kJoint % IDInst;
    case kParameter:
        return u"3_" % IDGrp % kJoint % IDInst % kJoint % IDParGrp;
    default:
        return {};
    }
}

} // namespace structure
