#include "instrument/CompanyFile.h"

#include "instrument/LoadError.h"
#include "instrument/ValueEncoder.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QHash>

namespace instrument {

namespace {

constexpr int kBusyTimeoutMs = 2000;

constexpr auto kBanks = "SELECT DISTINCT t.mTag, m.mID, m.mReadCmd, m.mWriteCmd, m.mStartAddr, m.mSize "
                        "FROM tbInstrument t JOIN tbParamGroup g ON g.mKeyInst = t.mID "
                        "JOIN tbParam p ON p.mKeyParGroup = g.mID JOIN tbInstMem m ON m.mID = p.mMemBank "
                        "ORDER BY t.mTag, m.mID";
constexpr auto kEeproms =
    "SELECT DISTINCT t.mTag, p.mWriteCmd FROM tbInstrument t "
    "JOIN tbParamGroup g ON g.mKeyInst = t.mID JOIN tbParam p ON p.mKeyParGroup = g.mID "
    "ORDER BY t.mTag, p.mWriteCmd";
constexpr auto kGroups = "SELECT IDGrp, Phone FROM tbGroupsUser ORDER BY IDGrp";
constexpr auto kInstruments =
    "SELECT IDGrp, IDInst, IDItem, Address FROM tbInstrumentsUser ORDER BY IDGrp, IDInst";
constexpr auto kValues =
    "SELECT u.IDGrp, u.IDInst, u.IDPar, u.Value, m.mReadCmd, p.mAddr, p.mWriteCmd, p.mWriteAddr, p.mType, "
    "k.mTag, "
    "p.mSize, p.mBitFirst, p.mBitCount, p.mLW, p.mHW, p.mLR, p.mHR, p.mLL, p.mHL "
    "FROM tbParametersUser u JOIN tbParam p ON p.mID = u.IDPar JOIN tbInstMem m ON m.mID = p.mMemBank "
    "JOIN tbParamType k ON k.mID = p.mKeyType ORDER BY u.IDGrp, u.IDInst, u.IDPar";

QString textAt(SQLite::Statement& row, int column)
{
    return QString::fromStdString(row.getColumn(column).getString());
}

// A command of the catalogue is a decimal number text; none, or 0, is no command.
std::optional<quint8> commandAt(SQLite::Statement& row, int column)
{
    const int command = textAt(row, column).toInt();
    if (command < 1 || command > 255)
        return std::nullopt;
    return quint8(command);
}

ValueShape shapeAt(SQLite::Statement& row)
{
    ValueShape shape;
    shape.wireType = textAt(row, 8).toUpper();
    shape.keyType = textAt(row, 9).toUpper();
    shape.size = row.getColumn(10).getInt();
    shape.bitFirst = row.getColumn(11).getInt();
    shape.bitCount = row.getColumn(12).getInt();
    shape.lowCount = row.getColumn(13).getInt();
    shape.highCount = row.getColumn(14).getInt();
    shape.lowValue = row.getColumn(15).getDouble();
    shape.highValue = row.getColumn(16).getDouble();
    return shape;
}

quint32 mixed(const QString& text)
{
    quint32 mix = 2166136261u;
    for (const char byte : text.toUtf8())
        mix = (mix ^ quint8(byte)) * 16777619u;
    return mix;
}

// One or two counts up or down, whichever stays inside the type and the limits; the value itself when neither
// does.
std::optional<EncodedValue> drifted(const ValueShape& shape, const QString& value, double low, double high,
                                    const QString& key)
{
    const std::optional<qint64> counts = countsOf(shape, value);
    if (!counts)
        return std::nullopt;
    const quint32 mix = mixed(key);
    const qint64 step = 1 + (mix >> 8) % 2;
    for (const qint64 offset : {mix % 2 ? step : -step, mix % 2 ? -step : step}) {
        const double near = valueOfCounts(shape, *counts + offset);
        if (near < low || near > high)
            continue;
        if (auto encoded = encodeCounts(shape, *counts + offset))
            return encoded;
    }
    return encodeCounts(shape, *counts);
}

class Loader
{
public:
    Loader(SQLite::Database& company, const CompanyOptions& options) : company_(company), options_(options) {}

    Company load()
    {
        loadTypes();
        loadGroups();
        loadInstruments();
        loadValues();
        return std::move(result_);
    }

private:
    void loadTypes()
    {
        SQLite::Statement banks(company_, kBanks);
        while (banks.executeStep())
            addBank(banks);
        SQLite::Statement eeproms(company_, kEeproms);
        while (eeproms.executeStep())
            if (const auto command = commandAt(eeproms, 1))
                types_[textAt(eeproms, 0).toUpper()].addEeprom(*command);
    }

    void addBank(SQLite::Statement& row)
    {
        const QString type = textAt(row, 0);
        const std::optional<quint8> readCommand = commandAt(row, 2);
        const int start = row.getColumn(4).getInt();
        const int size = row.getColumn(5).getInt();
        if (!readCommand || size < 1) {
            warn(QStringLiteral("type %1: bank %2 has no read command or no size").arg(type, textAt(row, 1)));
            return;
        }
        const Bank bank{*readCommand, commandAt(row, 3), start, QByteArray(size, char(0xFF))};
        if (const auto reason = types_[type.toUpper()].addBank(bank))
            warn(QStringLiteral("type %1: %2").arg(type, *reason));
    }

    void loadGroups()
    {
        SQLite::Statement groups(company_, kGroups);
        while (groups.executeStep()) {
            const int idGrp = groups.getColumn(0).getInt();
            positions_.insert(idGrp, result_.plants.size());
            result_.plants.push_back({idGrp, textAt(groups, 1).toLatin1(), {}, {}});
        }
    }

    void loadInstruments()
    {
        SQLite::Statement row(company_, kInstruments);
        while (row.executeStep()) {
            const int idGrp = row.getColumn(0).getInt();
            const QString name =
                QStringLiteral("instrument %1 of group %2").arg(row.getColumn(1).getInt()).arg(idGrp);
            const QByteArray address = textAt(row, 3).toLatin1();
            if (address.size() != 2) {
                warn(QStringLiteral("%1: the address \"%2\" can't be reached")
                         .arg(name, QString::fromLatin1(address)));
                continue;
            }
            Plant& plant = result_.plants[positions_.value(idGrp)];
            const auto [entry, isNew] =
                plant.instruments.try_emplace(address, types_.value(textAt(row, 2).toUpper()));
            if (isNew)
                memories_.insert({idGrp, row.getColumn(1).getInt()}, &entry->second);
            else
                warn(QStringLiteral("%1: the address %2 is taken").arg(name, QString::fromLatin1(address)));
        }
    }

    void loadValues()
    {
        SQLite::Statement row(company_, kValues);
        while (row.executeStep())
            if (Memory* memory = memories_.value({row.getColumn(0).getInt(), row.getColumn(1).getInt()}))
                setValue(*memory, row);
    }

    void setValue(Memory& memory, SQLite::Statement& row)
    {
        const QString name = QStringLiteral("parameter %1 of instrument %2 of group %3")
                                 .arg(textAt(row, 2), textAt(row, 1), textAt(row, 0));
        const std::optional<EncodedValue> encoded = encodedAt(row);
        if (!encoded) {
            warn(QStringLiteral("%1: \"%2\" can't be kept in its memory").arg(name, textAt(row, 3)));
            return;
        }
        const std::optional<quint8> readCommand = commandAt(row, 4);
        const int address = row.getColumn(5).getInt();
        const auto old = readCommand ? memory.read(*readCommand, address, 1) : std::nullopt;
        if (!old) {
            warn(QStringLiteral("%1: the address %2 is in no bank").arg(name).arg(address));
            return;
        }
        memory.set(*readCommand, address, merged(quint8(old->front()), *encoded));

        if (const auto writeCommand = commandAt(row, 6)) {
            const int writeAddress = row.getColumn(7).getInt();
            memory.write(*writeCommand, writeAddress,
                         merged(memory.byteBehind(*writeCommand, writeAddress), *encoded));
        }
    }

    std::optional<EncodedValue> encodedAt(SQLite::Statement& row) const
    {
        const ValueShape shape = shapeAt(row);
        if (row.getColumn(3).isNull())
            return encodeValue(shape, std::nullopt);
        const QString value = textAt(row, 3);
        const bool drifts = options_.drift && shape.keyType == QLatin1String("REAL") &&
                            shape.wireType != QLatin1String("BIT") &&
                            shape.wireType != QLatin1String("STRING");
        if (!drifts)
            return encodeValue(shape, value);
        const QString key =
            textAt(row, 0) + QLatin1Char('_') + textAt(row, 1) + QLatin1Char('_') + textAt(row, 2);
        return drifted(shape, value, row.getColumn(17).getDouble(), row.getColumn(18).getDouble(), key);
    }

    static QByteArray merged(quint8 old, const EncodedValue& encoded)
    {
        QByteArray bytes = encoded.bytes;
        if (encoded.mask != 0xFF)
            bytes[0] = char((old & ~encoded.mask) | (quint8(bytes[0]) & encoded.mask));
        return bytes;
    }

    void warn(const QString& text) { result_.warnings += text; }

    SQLite::Database& company_;
    CompanyOptions options_;
    Company result_;
    QHash<QString, Memory> types_; // by the type's tag in capitals
    QHash<int, std::size_t> positions_;
    QHash<std::pair<int, int>, Memory*> memories_;
};

} // namespace

Company loadCompanyFile(const QString& path, const CompanyOptions& options)
{
    try {
        SQLite::Database company(path.toStdString(), SQLite::OPEN_READONLY, kBusyTimeoutMs);
        return Loader(company, options).load();
    } catch (const SQLite::Exception& error) {
        throw LoadError(path, 0, QString::fromUtf8(error.what()));
    }
}

} // namespace instrument
