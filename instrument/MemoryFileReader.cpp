#include "instrument/MemoryFile.h"

#include "instrument/LineText.h"
#include "instrument/LoadError.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace instrument {

namespace {

const QRegularExpression kBlanks(QStringLiteral("\\s+"));

// Builds plants line by line; whatever it can't take it refuses with the line's number.
class Builder
{
public:
    explicit Builder(const QString& name) : name_(name) {}

    void take(const QString& line, int number)
    {
        line_ = number;
        const QString trimmed = line.trimmed();
        if (trimmed.isEmpty() || trimmed.startsWith(QLatin1Char('#')))
            return;
        if (line.front().isSpace())
            continueRun(trimmed);
        else
            begin(trimmed);
    }

    Plants finish()
    {
        closeRun();
        if (plants_.empty())
            refuse(QStringLiteral("no plant in the file"));
        return std::move(plants_);
    }

private:
    // The bytes that are being gathered, and where they go when they are complete.
    struct Run
    {
        Bank bank;
        std::optional<quint8> eepromCommand;
        int size = 0;
        QByteArray bytes;
        int line = 0;
    };

    void begin(const QString& line)
    {
        closeRun();
        if (line.startsWith(QLatin1Char('['))) {
            beginSection(line);
            return;
        }
        const QString head = line.section(QLatin1Char(':'), 0, 0).trimmed();
        const QString rest = line.section(QLatin1Char(':'), 1).trimmed();
        const QStringList words = head.split(kBlanks);
        if (words.front() == QLatin1String("phone"))
            plant().phone = line.mid(5).trimmed().toLatin1();
        else if (words.front() == QLatin1String("call"))
            addCall(words, rest);
        else if (words.front() == QLatin1String("bank"))
            beginBank(words, rest);
        else if (words.front() == QLatin1String("eeprom"))
            beginEeprom(words, rest);
        else
            refuse(QStringLiteral("\"%1\" is no line of a memory file").arg(words.front()));
    }

    void beginSection(const QString& line)
    {
        const QString inner = line.endsWith(QLatin1Char(']')) ? line.mid(1, line.size() - 2) : QString();
        const QStringList words = inner.split(kBlanks, Qt::SkipEmptyParts);
        if (words.size() != 2)
            refuse(QStringLiteral("a section is \"[plant <number>]\" or \"[instrument <address>]\""));
        if (words[0] == QLatin1String("plant"))
            addPlant(number(words[1], 1, INT_MAX));
        else if (words[0] == QLatin1String("instrument"))
            addInstrument(words[1].toLatin1());
        else
            refuse(QStringLiteral("there is no section \"%1\"").arg(words[0]));
    }

    void addPlant(int idGrp)
    {
        if (std::any_of(plants_.begin(), plants_.end(),
                        [&](const Plant& plant) { return plant.idGrp == idGrp; }))
            refuse(QStringLiteral("plant %1 stands twice").arg(idGrp));
        plants_.push_back({});
        plants_.back().idGrp = idGrp;
        memory_ = nullptr;
    }

    void addInstrument(const QByteArray& address)
    {
        if (address.size() != 2)
            refuse(QStringLiteral("an address has two characters"));
        const auto [entry, isNew] = plant().instruments.try_emplace(address);
        if (!isNew)
            refuse(QStringLiteral("instrument %1 stands twice").arg(QString::fromLatin1(address)));
        memory_ = &entry->second;
    }

    void addCall(const QStringList& words, const QString& text)
    {
        if (words.size() != 2 || text.isEmpty())
            refuse(QStringLiteral("a call is \"call <seconds> : <Plant><Instrument><Alarm>\""));
        plant().calls.push_back({number(words[1], 0, INT_MAX), reportFromText(text)});
    }

    void beginBank(const QStringList& words, const QString& bytes)
    {
        memory();
        if (words.size() != 5)
            refuse(QStringLiteral("a bank is \"bank <read> <write> <start> <size> : <bytes>\""));
        Run run;
        run.bank.readCommand = quint8(number(words[1], 0, 255));
        if (words[2] != QLatin1String("-"))
            run.bank.writeCommand = quint8(number(words[2], 0, 255));
        run.bank.startAddress = number(words[3], 0, 255);
        run.size = number(words[4], 1, 256);
        openRun(run, bytes);
    }

    void beginEeprom(const QStringList& words, const QString& bytes)
    {
        memory();
        if (words.size() != 2)
            refuse(QStringLiteral("an eeprom is \"eeprom <write> : <bytes>\""));
        Run run;
        run.eepromCommand = quint8(number(words[1], 0, 255));
        run.size = Memory::kEepromSize;
        openRun(run, bytes);
    }

    void openRun(Run run, const QString& bytes)
    {
        run.line = line_;
        run_ = std::move(run);
        if (!bytes.isEmpty())
            continueRun(bytes);
    }

    void continueRun(const QString& text)
    {
        if (!run_)
            refuse(QStringLiteral("bytes that belong to no bank"));
        for (const QString& word : text.split(kBlanks)) {
            bool isNumber = false;
            const uint byte = word.toUInt(&isNumber, 16);
            if (!isNumber || word.size() != 2)
                refuse(QStringLiteral("\"%1\" is no byte").arg(word));
            run_->bytes += char(byte);
        }
    }

    // A run is complete when the next line shows it; what is wrong with it is told under its own line.
    void closeRun()
    {
        if (!run_)
            return;
        const Run run = *std::exchange(run_, std::nullopt);
        if (run.bytes.size() != run.size)
            refuse(QStringLiteral("%1 bytes are told and %2 follow").arg(run.size).arg(run.bytes.size()),
                   run.line);
        if (run.eepromCommand) {
            if (memory_->eeproms().contains(*run.eepromCommand))
                refuse(QStringLiteral("eeprom %1 stands twice").arg(*run.eepromCommand), run.line);
            memory_->addEeprom(*run.eepromCommand, run.bytes);
            return;
        }
        Bank bank = run.bank;
        bank.bytes = run.bytes;
        if (const auto reason = memory_->addBank(bank))
            refuse(*reason, run.line);
    }

    Plant& plant()
    {
        if (plants_.empty())
            refuse(QStringLiteral("a \"[plant <number>]\" has to come first"));
        return plants_.back();
    }

    Memory& memory()
    {
        plant();
        if (!memory_)
            refuse(QStringLiteral("an \"[instrument <address>]\" has to come first"));
        return *memory_;
    }

    int number(const QString& word, int low, int high)
    {
        bool isNumber = false;
        const int value = word.toInt(&isNumber);
        if (!isNumber || value < low || value > high)
            refuse(QStringLiteral("\"%1\" is no number from %2 to %3").arg(word).arg(low).arg(high));
        return value;
    }

    [[noreturn]] void refuse(const QString& reason) { refuse(reason, line_); }
    [[noreturn]] void refuse(const QString& reason, int line) { throw LoadError(name_, line, reason); }

    QString name_;
    int line_ = 0;
    Plants plants_;
    Memory* memory_ = nullptr;
    std::optional<Run> run_;
};

} // namespace

Plants plantsFromText(const QString& text, const QString& name)
{
    Builder builder(name);
    int number = 0;
    for (const QString& line : text.split(QLatin1Char('\n')))
        builder.take(line, ++number);
    return builder.finish();
}

Plants loadMemoryFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw LoadError(path, 0, file.errorString());
    return plantsFromText(QString::fromUtf8(file.readAll()), path);
}

} // namespace instrument
