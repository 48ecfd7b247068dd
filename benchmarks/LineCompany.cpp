#include "LineCompany.h"

#include <QFile>
#include <SQLiteCpp/SQLiteCpp.h>

namespace lineCompany {

namespace {

constexpr int kFirstBanks = 4; // of the master; bank 5 is the other instrument's

struct Shape
{
    const char* keyType;
    const char* wireType;
    int size;
};
constexpr Shape kShapes[] = {
    {"REAL", "BYTE", 1},  {"REAL", "S_BYTE", 1}, {"ENUM", "BIT", 1},
    {"REAL", "BCD", 2},   {"REAL", "WORD_L", 2}, {"REAL", "WORD_H", 2},
    {"REAL", "INT_L", 2}, {"REAL", "INT_H", 2},  {"STRING", "STRING", 16},
};

QString readFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s can't be read", qPrintable(path));
    return QString::fromUtf8(file.readAll());
}

class Company
{
public:
    explicit Company(const QString& file)
        : engine_(file.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
    {
        run(QStringLiteral("PRAGMA synchronous=OFF;"));
        run(readFile(QStringLiteral(CALIDORA_SCHEMA)));
    }

    void run(const QString& sql) { engine_.exec(sql.toStdString()); }

    void makeFrame()
    {
        run("BEGIN;"
            "INSERT INTO tbInfoDatabase VALUES ('1.0');"
            "INSERT INTO tbParamType VALUES (1, 'STRING'), (2, 'ENUM'), (3, 'REAL');"
            "INSERT INTO tbInstrument VALUES (1, 'MANY', '10', 0), (2, 'BANK', '10', 0);"
            "INSERT INTO tbParamGroup VALUES ('G1', 1), ('G2', 2);"
            "INSERT INTO tbParamGroupLanguage VALUES ('G1', 'EN', 'Many'), ('G2', 'EN', 'Bank');"
            "INSERT INTO tbGroupsUser VALUES (1, 'LINE', NULL, '5550100');"
            "INSERT INTO tbInstrumentsUser VALUES (1, 1, 'MANY', 'MASTER', NULL, '00'), "
            "(1, 2, 'BANK', 'SECOND', NULL, '01');");
        for (int bank = 1; bank <= kFirstBanks + 1; ++bank)
            run(QStringLiteral("INSERT INTO tbInstMem VALUES (%1, 'RAM %1', '%2', '%3', 0, %4);")
                    .arg(bank)
                    .arg(2 * bank)
                    .arg(2 * bank + 1)
                    .arg(kBankSize));
    }

    void addParameter(int instrument, const QString& group, const Shape& shape, int bank, int address)
    {
        const QString id = QStringLiteral("%1P%2").arg(group).arg(++parameters_, 4, 10, QLatin1Char('0'));
        const int highCount = shape.size == 2 ? 65535 : 255;
        run(QStringLiteral(
                "INSERT INTO tbParam (mID, mKeyParGroup, mKeyType, mTag, mDP, mMemBank, mAddr, mType, mSize, "
                "mBitFirst, mBitCount, mLW, mHW, mLR, mHR, mLL, mHL) SELECT '%1', '%2', mID, 't', '0.0', %3, "
                "%4, "
                "'%5', %6, 1, 3, 0, %7, 0, %7, 0, %7 FROM tbParamType WHERE mTag = '%8';")
                .arg(id, group)
                .arg(bank)
                .arg(address)
                .arg(QLatin1String(shape.wireType))
                .arg(shape.size)
                .arg(highCount)
                .arg(QLatin1String(shape.keyType)));
        run(QStringLiteral("INSERT INTO tbParamLanguage VALUES ('%1', 'EN', 'Parameter %1');").arg(id));
        run(QStringLiteral("INSERT INTO tbParametersUser VALUES (1, %1, '%2', '%3', '7', 0);")
                .arg(instrument)
                .arg(id, group));
    }

private:
    SQLite::Database engine_;
    int parameters_ = 0;
};

} // namespace

void make(const QString& file)
{
    Company company(file);
    company.makeFrame();
    const int inOneBank = kParameters / kFirstBanks;
    for (int i = 0; i < kParameters; ++i)
        company.addParameter(1, QStringLiteral("G1"), kShapes[0], 1 + i / inOneBank, i % inOneBank);
    int address = 0;
    for (int i = 0; i < kInBank; ++i) {
        const Shape& shape = kShapes[i % int(std::size(kShapes))];
        company.addParameter(2, QStringLiteral("G2"), shape, kFirstBanks + 1, address);
        address += shape.size;
    }
    if (address > kBankSize)
        qFatal("%d parameters need %d bytes", kInBank, address);
    company.run(QStringLiteral("COMMIT;"));
}

} // namespace lineCompany
