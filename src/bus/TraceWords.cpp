#include "bus/TraceWords.h"

#include "bus/Frames.h"
#include "platform/CodePage.h"
#include "session/Texts.h"

#include <algorithm>

namespace bus {

namespace {

using session::Texts;

constexpr QChar kNoText(0x00B7);

QString ascii(const QByteArray& bytes)
{
    QString text;
    for (const char byte : bytes)
        text += byte >= ' ' && byte <= '~' ? QLatin1Char(byte) : kNoText;
    return text;
}

// The words are told in trace.*: address %1, memory address %2, length %3, checksum %4.
QString inWords(const QString& words, const QByteArray& address, const QByteArray& rest, bool right,
                const Texts& texts)
{
    return words.arg(ascii(address), hexOf(rest.mid(1, 1)), QString::number(uchar(rest[2])),
                     texts.own(right ? "trace.sum.right" : "trace.sum.wrong"));
}

bool sumIsRight(const QByteArray& frame)
{
    return Calculate_CheckSum(frame.chopped(1)) == frame.back();
}

QString request(const TraceEvent& event, const QString& words, const Texts& texts)
{
    const QByteArray& frame = event.bytes;
    if (frame.size() < kReadRequestSize)
        return texts.own("trace.short");
    // The end of a read is fixed, whatever the address; a write's data begin behind the usual two characters.
    const qsizetype address =
        kindOf(event) == TraceKind::Write ? kAddressSize : frame.size() - (kReadRequestSize - kAddressSize);
    return inWords(words, frame.left(address), frame.mid(address), sumIsRight(frame), texts);
}

bool isEeprom(const TraceEvent& event)
{
    return event.code == ActionCode::WritingEeprom || event.code == ActionCode::MergingEeprom;
}

bool isOnCable(const TraceEvent& event)
{
    return event.code == ActionCode::SimulatorRaising || event.code == ActionCode::SimulatorClosing ||
           (event.sent && event.bytes == "CONNECT");
}

QString dialogue(const TraceEvent& event, const Texts& texts)
{
    if (event.sent && event.bytes == "\r")
        return texts.own("trace.end");
    const QString word = ascii(event.bytes);
    if (event.sent)
        return texts.own(isOnCable(event) ? "trace.cable.said" : "trace.modem.command").arg(word);
    if (event.code == ActionCode::Idle)
        return texts.own(event.bytes.contains("ATD") ? "trace.call.cable" : "trace.call.modem");
    return texts.own(isOnCable(event) ? "trace.cable.heard" : "trace.modem.reply").arg(word);
}

QString answer(const TraceEvent& event, const Texts& texts)
{
    if (event.code == ActionCode::Polling)
        return texts.own("trace.poll.answer");
    if (event.code == ActionCode::WritingRam || event.code == ActionCode::WritingEeprom)
        return texts.own("trace.answer.unread");
    const int came = event.before + int(event.bytes.size());
    if (event.before > event.wanted)
        return texts.own("trace.answer.behind");
    if (came <= event.wanted)
        return texts.own("trace.answer.part").arg(came).arg(event.wanted);
    return texts.own("trace.answer").arg(event.wanted).arg(came - event.wanted);
}

QString alarm(const TraceEvent& event, const Texts& texts)
{
    const bool first = event.code == ActionCode::FirstBlock;
    if (event.sent)
        return texts.own(first ? "trace.call.taken" : "trace.alarm.taken");
    return texts.own("trace.alarm").arg(first ? 1 : 2);
}

} // namespace

QString hexOf(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.toHex(' ').toUpper());
}

QString plainOf(const TraceEvent& event, int codePage)
{
    const TraceKind kind = kindOf(event);
    if (kind != TraceKind::Dialogue && kind != TraceKind::Alarm && kind != TraceKind::Stray)
        return ascii(event.bytes);
    QString text = platform::decode(event.bytes, codePage);
    std::replace_if(
        text.begin(), text.end(), [](QChar character) { return !character.isPrint(); }, kNoText);
    return text;
}

QString meaningOf(const TraceEvent& event, const Texts& texts)
{
    switch (kindOf(event)) {
    case TraceKind::Read:
        return request(event, texts.own("trace.read"), texts);
    case TraceKind::Write:
        return request(event, texts.own(isEeprom(event) ? "trace.write.eeprom" : "trace.write.ram"), texts);
    case TraceKind::Poll:
        return request(event, texts.own("trace.poll"), texts);
    case TraceKind::Answer:
        return answer(event, texts);
    case TraceKind::Alarm:
        return alarm(event, texts);
    case TraceKind::Stray:
        return texts.own("trace.stray");
    case TraceKind::Dialogue:
        break;
    }
    return dialogue(event, texts);
}

} // namespace bus
