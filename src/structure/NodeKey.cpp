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

QString groupKey(const QString& IDGrp)
{
    return u"1_" % IDGrp;
}

QString instrumentKey(const QString& IDGrp, const QString& IDInst)
{
    return u"2_" % IDGrp % kJoint % IDInst;
}

QString paramGroupKey(const QString& IDGrp, const QString& IDInst, const QString& IDParGrp)
{
    return u"3_" % IDGrp % kJoint % IDInst % kJoint % IDParGrp;
}

QString parameterKey(const QString& IDGrp, const QString& IDInst, const QString& IDParGrp,
                     const QString& IDPar)
{
    return u"4_" % IDGrp % kJoint % IDInst % kJoint % IDParGrp % kJoint % IDPar;
}

QString Compose_Key(int level, const QString& IDGrp, const QString& IDInst, const QString& IDParGrp)
{
    switch (level) {
    case kRoot:
    case kGroup:
        return kRootKey;
    case kInstrument:
        return groupKey(IDGrp);
    case kParamGroup:
        return instrumentKey(IDGrp, IDInst);
    case kParameter:
        return paramGroupKey(IDGrp, IDInst, IDParGrp);
    default:
        return {};
    }
}

QString parentKey(const QString& key)
{
    const KeyParts ids = Extract_Key(key);
    return Compose_Key(Extract_Level(key), ids.IDGrp, ids.IDInst, ids.IDParGrp);
}

} // namespace structure
