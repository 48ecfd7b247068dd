#include "instrument/MemoryFile.h"

#include "instrument/LineText.h"
#include "instrument/LoadError.h"

#include <QSaveFile>

namespace instrument {

namespace {

constexpr qsizetype kBytesInLine = 16;

QString linesOf(const QByteArray& bytes)
{
    QString lines;
    for (qsizetype at = 0; at < bytes.size(); at += kBytesInLine)
        lines += QStringLiteral("  ") +
                 QString::fromLatin1(bytes.mid(at, kBytesInLine).toHex(' ').toUpper()) + QLatin1Char('\n');
    return lines;
}

QString textOf(const Bank& bank)
{
    const QString writeCommand =
        bank.writeCommand ? QString::number(*bank.writeCommand) : QStringLiteral("-");
    return QStringLiteral("bank %1 %2 %3 %4 :\n")
               .arg(bank.readCommand)
               .arg(writeCommand)
               .arg(bank.startAddress)
               .arg(bank.bytes.size()) +
           linesOf(bank.bytes);
}

QString textOf(const Memory& memory)
{
    QString text;
    for (const Bank& bank : memory.banks())
        text += textOf(bank);
    for (const auto& [writeCommand, bytes] : memory.eeproms())
        text += QStringLiteral("eeprom %1 :\n").arg(writeCommand) + linesOf(bytes);
    return text;
}

QString textOf(const Plant& plant)
{
    QString text = QStringLiteral("[plant %1]\n").arg(plant.idGrp);
    if (!plant.phone.isEmpty())
        text += QStringLiteral("phone %1\n").arg(QString::fromLatin1(plant.phone));
    for (const ScheduledCall& call : plant.calls)
        text += QStringLiteral("call %1 : ").arg(call.afterSeconds) + textFromReport(call.report) +
                QLatin1Char('\n');
    for (const auto& [address, memory] : plant.instruments)
        text += QStringLiteral("\n[instrument %1]\n").arg(QString::fromLatin1(address)) + textOf(memory);
    return text;
}

} // namespace

QString textFromPlants(const Plants& plants)
{
    QString text;
    for (const Plant& plant : plants)
        text += (text.isEmpty() ? QString() : QStringLiteral("\n")) + textOf(plant);
    return text;
}

void saveMemoryFile(const Plants& plants, const QString& path)
{
    QSaveFile file(path);
    const QByteArray text = textFromPlants(plants).toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.flush() ||
        !file.commit())
        throw LoadError(path, 0, file.errorString());
}

} // namespace instrument
