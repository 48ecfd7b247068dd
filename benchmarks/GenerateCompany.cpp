// Makes a large company: calidora-generate-company <schema.sql> <file> [groups]
//
// 1,000 groups, or as many as told, of 10 instruments, each of 80 parameters in 8 parameter groups: 800,000
// parameter rows and a tree of 91,001 nodes. The catalogue is its own: 10 types that differ in nothing but
// their ids.

#include <QFile>
#include <QString>
#include <QTextStream>
#include <SQLiteCpp/SQLiteCpp.h>

namespace {

constexpr int kTypes = 10;
constexpr int kParamGroups = 8;
constexpr int kParameters = 10;  // in a parameter group
constexpr int kGroups = 1000;    // unless another number is told
constexpr int kInstruments = 10; // in a group
constexpr int kChoices = 4;
constexpr const char* kLanguages[] = {"IT", "EN", "RU"};

// A statement that is run once a row.
class Insert
{
public:
    Insert(SQLite::Database& company, const char* sql) : statement_(company, sql) {}

    template <class... Values>
    void operator()(const Values&... values)
    {
        int place = 0;
        (statement_.bind(++place, values), ...);
        statement_.exec();
        statement_.reset();
    }

private:
    SQLite::Statement statement_;
};

std::string text(const char* pattern, int one, int two = 0, int three = 0)
{
    return QString::asprintf(pattern, one, two, three).toStdString();
}

std::string tagOf(int type)
{
    return text("BT%02d", type);
}
std::string paramGroupId(int type, int group)
{
    return text("G%02d%02d", type, group);
}
std::string parameterId(int type, int group, int parameter)
{
    return text("P%02d%02d%02d", type, group, parameter);
}

// Meanings change from parameter to parameter: numbers, choices, texts and times.
int meaningOf(int parameter)
{
    constexpr int kMeanings[] = {3, 3, 3, 2, 3, 5, 3, 2, 1, 4};
    return kMeanings[parameter % 10];
}

std::string valueOf(int meaning, int seed)
{
    switch (meaning) {
    case 1:
        return text("TEXT %d", seed % 100);
    case 2:
        return text("%d", seed % kChoices);
    case 3:
        return text("%d.%d", seed % 100, seed % 10);
    default:
        return text("%02d:%02d:00", seed % 24, seed % 60);
    }
}

void makeCatalogue(SQLite::Database& company)
{
    company.exec("INSERT INTO tbInfoDatabase VALUES ('1.0');"
                 "INSERT INTO tbParamType VALUES (1, 'STRING'), (2, 'ENUM'), (3, 'REAL'), (4, 'TIME_H'), "
                 "(5, 'TIME_HM'), (6, 'TIME_HMS');"
                 "INSERT INTO tbInstMem VALUES (1, 'RAM', '1', '2', 0, 255);");
    Insert type(company, "INSERT INTO tbInstrument VALUES (?, ?, '10', 0)");
    Insert typeText(company, "INSERT INTO tbInstrumentLanguage VALUES (?, ?, ?)");
    Insert group(company, "INSERT INTO tbParamGroup VALUES (?, ?)");
    Insert groupText(company, "INSERT INTO tbParamGroupLanguage VALUES (?, ?, ?)");
    Insert parameter(
        company,
        "INSERT INTO tbParam (mID, mKeyParGroup, mKeyType, mTag, mDP, mUnit, mDftValue, mMemBank, mAddr, "
        "mType, mSize, mLW, mHW, mLR, mHR, mLL, mHL) "
        "VALUES (?, ?, ?, ?, '0.0', '°C', '0', 1, ?, 'BYTE', 1, 0, 255, 0, 255, 0, 255)");
    Insert parameterText(company, "INSERT INTO tbParamLanguage VALUES (?, ?, ?)");
    Insert choice(company, "INSERT INTO tbParamEnum VALUES (?, ?, ?)");
    Insert choiceText(company, "INSERT INTO tbParamEnumLanguage VALUES (?, ?, ?)");
    int choices = 0;
    for (int t = 1; t <= kTypes; ++t) {
        type(t, tagOf(t));
        for (const char* language : kLanguages)
            typeText(tagOf(t), language, text("Instrument of type %d", t));
        for (int g = 1; g <= kParamGroups; ++g) {
            group(paramGroupId(t, g), t);
            for (const char* language : kLanguages)
                groupText(paramGroupId(t, g), language, text("Parameter group %d", g));
            for (int p = 1; p <= kParameters; ++p) {
                const std::string id = parameterId(t, g, p);
                parameter(id, paramGroupId(t, g), meaningOf(p), text("t%d", p), g * kParameters + p);
                for (const char* language : kLanguages)
                    parameterText(id, language, text("Parameter number %d of group %d", p, g));
                for (int c = 0; meaningOf(p) == 2 && c < kChoices; ++c) {
                    choice(++choices, id, c);
                    for (const char* language : kLanguages)
                        choiceText(choices, language, text("Choice %d", c));
                }
            }
        }
    }
}

void makePlant(SQLite::Database& company, int groups)
{
    Insert group(company, "INSERT INTO tbGroupsUser VALUES (?, ?, 'A plant', '0550000000')");
    Insert instrument(company, "INSERT INTO tbInstrumentsUser VALUES (?, ?, ?, ?, 'An instrument', ?)");
    Insert parameter(company, "INSERT INTO tbParametersUser VALUES (?, ?, ?, ?, ?, 0)");
    for (int g = 1; g <= groups; ++g) {
        group(g, text("GRP%d", g));
        for (int i = 1; i <= kInstruments; ++i) {
            const int type = (g + i) % kTypes + 1;
            instrument(g, i, tagOf(type), text("INST%d%d", g, i), text("%02X", i - 1));
            for (int pg = 1; pg <= kParamGroups; ++pg) {
                for (int p = 1; p <= kParameters; ++p)
                    parameter(g, i, parameterId(type, pg, p), paramGroupId(type, pg),
                              valueOf(meaningOf(p), g + i + p));
            }
        }
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3 || argc > 4) {
        QTextStream(stderr) << "usage: calidora-generate-company <schema.sql> <file> [groups]\n";
        return 2;
    }
    QFile schema(QString::fromLocal8Bit(argv[1]));
    if (!schema.open(QIODevice::ReadOnly)) {
        QTextStream(stderr) << schema.fileName() << ": " << schema.errorString() << '\n';
        return 1;
    }
    try {
        QFile::remove(QString::fromLocal8Bit(argv[2]));
        SQLite::Database company(argv[2], SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        company.exec("PRAGMA synchronous=OFF;");
        company.exec(schema.readAll().toStdString());
        SQLite::Transaction transaction(company);
        makeCatalogue(company);
        makePlant(company, argc == 4 ? QByteArray(argv[3]).toInt() : kGroups);
        transaction.commit();
    } catch (const std::exception& error) {
        QTextStream(stderr) << argv[2] << ": " << error.what() << '\n';
        return 1;
    }
    return 0;
}
