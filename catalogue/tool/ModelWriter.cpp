#include "catalogue/tool/ModelWriter.h"
#include "catalogue/tool/Database.h"

#include <QFile>
#include <array>

namespace catalogue {

namespace {

// tbParamType: the meaning of a value, numbered in this order from 1.
const QStringList kKeyTypes{"REAL", "ENUM", "STRING", "TIME_H", "TIME_HM", "TIME_HMS"};

class ModelWriter
{
public:
    explicit ModelWriter(SQLite::Database& database) : database_(database) {}

    void write(const Catalogue& catalogue)
    {
        SQLite::Transaction transaction(database_);
        row("INSERT INTO tbInfoDatabase VALUES (?)", catalogue.version);
        for (qsizetype key = 0; key < kKeyTypes.size(); ++key)
            row("INSERT INTO tbParamType VALUES (?, ?)", static_cast<int>(key + 1), kKeyTypes[key]);
        for (const Bank& bank : catalogue.banks)
            row("INSERT INTO tbInstMem VALUES (?, ?, ?, ?, ?, ?)", bank.id, bank.tag,
                QString::number(bank.readCmd), QString::number(bank.writeCmd), bank.start, bank.size);
        for (const Type& type : catalogue.types)
            writeType(catalogue, type);
        transaction.commit();
    }

private:
    void writeType(const Catalogue& catalogue, const Type& type)
    {
        row("INSERT INTO tbInstrument VALUES (?, ?, ?, ?)", type.id, type.tag, type.base, type.alive);
        texts("INSERT INTO tbInstrumentLanguage VALUES (?, ?, ?)", type.tag, type.text);
        for (const Group& group : type.groups) {
            row("INSERT INTO tbParamGroup VALUES (?, ?)", group.id, type.id);
            texts("INSERT INTO tbParamGroupLanguage VALUES (?, ?, ?)", group.id, group.text);
            for (const Parameter& parameter : group.parameters)
                writeParameter(catalogue, group, parameter);
        }
    }

    void writeParameter(const Catalogue& catalogue, const Group& group, const Parameter& parameter)
    {
        const Scale& scale = parameter.scale;
        row("INSERT INTO tbParam (mID, mKeyParGroup, mKeyType, mTag, mDP, mUnit, mDftValue, mMemBank, mAddr, "
            "mWriteAddr, mWriteCmd, mType, mSize, mBitFirst, mBitCount, mLW, mHW, mLR, mHR, mLL, mHL, "
            "mIDCopy, "
            "mEnable) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
            parameter.id, group.id, static_cast<int>(kKeyTypes.indexOf(parameter.key) + 1), parameter.tag,
            parameter.mask, orNull(parameter.unit), standardOf(parameter), parameter.bank, parameter.address,
            parameter.writeAddress, QString::number(parameter.writeCmd), parameter.wire, parameter.size,
            parameter.bitFirst, parameter.bitCount, static_cast<int>(scale.low), static_cast<int>(scale.high),
            scale.lowValue, scale.highValue, parameter.low, parameter.high, orNull(parameter.copy),
            parameter.editable ? -1 : 0);
        texts("INSERT INTO tbParamLanguage VALUES (?, ?, ?)", parameter.id, parameter.text);
        if (parameter.key == "ENUM")
            writeChoices(*catalogue.choiceSet(parameter.choices), parameter);
        for (const CopyBlock& block : catalogue.copyBlocks)
            if (!parameter.copy.isEmpty() && parameter.copy.startsWith(block.id))
                texts("INSERT INTO tbParamCopyLanguage VALUES (?, ?, ?)", parameter.copy, block.text);
    }

    void writeChoices(const ChoiceSet& set, const Parameter& parameter)
    {
        for (const Choice& choice : set.choices) {
            row("INSERT INTO tbParamEnum VALUES (?, ?, ?)", ++lastChoice_, parameter.id, choice.value);
            texts("INSERT INTO tbParamEnumLanguage VALUES (?, ?, ?)", lastChoice_, choice.text);
        }
    }

    template <typename Key>
    void texts(const char* sql, const Key& key, const Text& text)
    {
        for (size_t language = 0; language < kLanguages.size(); ++language)
            row(sql, key, kLanguages[language], text[language]);
    }

    template <typename... Values>
    void row(const char* sql, const Values&... values)
    {
        SQLite::Statement statement(database_, sql);
        int index = 0;
        (bind(statement, ++index, values), ...);
        statement.exec();
    }

    static void bind(SQLite::Statement& statement, int index, const QString& text)
    {
        bindText(statement, index, text);
    }
    static void bind(SQLite::Statement& statement, int index, int number) { statement.bind(index, number); }
    static void bind(SQLite::Statement& statement, int index, double number)
    {
        statement.bind(index, number);
    }

    // Nobody has read a new instrument yet: a default reading would be a lie.
    static QString standardOf(const Parameter& parameter)
    {
        return parameter.editable ? parameter.standard.value_or(QString()) : QString();
    }

    static QString orNull(const QString& text) { return text.isEmpty() ? QString() : text; }

    SQLite::Database& database_;
    int lastChoice_ = 0;
};

} // namespace

void writeModel(const Catalogue& catalogue, const QString& schemaFile, const QString& target)
{
    QFile schema(schemaFile);
    if (!schema.open(QIODevice::ReadOnly))
        refuse({schemaFile, 0}, QStringLiteral("the schema cannot be read: %1").arg(schema.errorString()));
    buildDatabase(target, [&](SQLite::Database& database) {
        database.exec(schema.readAll().toStdString());
        ModelWriter(database).write(catalogue);
    });
}

} // namespace catalogue
