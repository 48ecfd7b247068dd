#include "instrument/LineText.h"

namespace instrument {

namespace {

// Codes for the letters from U+0410 to U+044F, capitals first.
constexpr quint8 kInstrumentCodes[] = {
    65,  160, 66,  161, 224, 69,  163, 164, 165, 166, 75,  167, 77,  72,  79,  168, //
    80,  67,  84,  169, 170, 88,  225, 171, 172, 226, 173, 174, 98,  175, 176, 177, //
    97,  178, 179, 180, 227, 101, 182, 183, 184, 185, 186, 187, 188, 189, 111, 190, //
    112, 99,  191, 121, 228, 120, 229, 192, 193, 230, 194, 195, 196, 197, 198, 199};

constexpr char16_t kFirstLetter = u'\u0410';
constexpr char16_t kLastLetter = u'\u044F';
constexpr char16_t kCapitalYo = u'\u0401';
constexpr char16_t kSmallYo = u'\u0451';

template <class CodeOfLetter>
QByteArray encoded(const QString& text, quint8 capitalYo, quint8 smallYo, CodeOfLetter codeOfLetter)
{
    QByteArray bytes;
    for (const QChar character : text) {
        const char16_t code = character.unicode();
        if (code == kCapitalYo)
            bytes += char(capitalYo);
        else if (code == kSmallYo)
            bytes += char(smallYo);
        else if (code >= kFirstLetter && code <= kLastLetter)
            bytes += char(codeOfLetter(code - kFirstLetter));
        else
            bytes += code < 0x100 ? char(code) : '?';
    }
    return bytes;
}

QByteArray blockFromText(const QString& text)
{
    QByteArray block;
    for (qsizetype i = 0; i < text.size(); ++i) {
        bool isByte = false;
        const int byte = text.mid(i, 2) == QLatin1String("\\x") ? text.mid(i + 2, 2).toInt(&isByte, 16) : 0;
        if (isByte) {
            block += char(byte);
            i += 3;
        } else {
            block += screenCharacters(text.mid(i, 1));
        }
    }
    return block;
}

QString textFromBlock(const QByteArray& block)
{
    QString text;
    for (qsizetype i = 0; i < block.size(); ++i) {
        const char byte = block[i];
        // A blank at either end would be lost when the line is read again.
        const bool innerBlank = byte == ' ' && i > 0 && i < block.size() - 1;
        const bool plain = byte > ' ' && byte <= '~' && byte != '\\' && byte != '|';
        if (plain || innerBlank)
            text += QLatin1Char(byte);
        else
            text += QStringLiteral("\\x%1").arg(quint8(byte), 2, 16, QLatin1Char('0'));
    }
    return text;
}

QByteArray endOfReport(const QByteArray& firstBlock)
{
    const qsizetype open = firstBlock.indexOf('<');
    const qsizetype close = firstBlock.indexOf('>', open);
    return open < 0 || close < 0 ? QByteArray() : firstBlock.mid(open, close - open + 1) + "<End of report>";
}

} // namespace

QByteArray instrumentCharacters(const QString& text)
{
    return encoded(text, 162, 181, [](int letter) { return kInstrumentCodes[letter]; });
}

QByteArray screenCharacters(const QString& text)
{
    return encoded(text, 168, 184, [](int letter) { return quint8(192 + letter); });
}

AlarmReport reportFromText(const QString& text)
{
    const qsizetype bar = text.indexOf(QLatin1Char('|'));
    AlarmReport report;
    report.firstBlock = blockFromText(text.left(bar).trimmed());
    report.secondBlock =
        bar < 0 ? endOfReport(report.firstBlock) : blockFromText(text.mid(bar + 1).trimmed());
    return report;
}

QString textFromReport(const AlarmReport& report)
{
    return (textFromBlock(report.firstBlock) + QStringLiteral(" | ") + textFromBlock(report.secondBlock))
        .trimmed();
}

} // namespace instrument
