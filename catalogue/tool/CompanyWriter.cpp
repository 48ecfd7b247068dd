#include "catalogue/tool/CompanyWriter.h"
#include "catalogue/tool/Coding.h"
#include "catalogue/tool/Database.h"
#include "catalogue/tool/ModelReader.h"

#include <QSet>
#include <SQLiteCpp/Backup.h>
#include <algorithm>

namespace catalogue {

namespace {

QString orNull(const QString& text)
{
    return text.isEmpty() ? QString() : text;
}

class CompanyWriter
{
public:
    CompanyWriter(SQLite::Database& database, const Demo& demo) : database_(database), demo_(demo) {}

    void write()
    {
        SQLite::Transaction transaction(database_);
        writeSettings();
        int plantNumber = 0;
        for (const DemoPlant& plant : demo_.plants)
            writePlant(++plantNumber, plant);
        transaction.commit();
    }

private:
    void writeSettings()
    {
        SQLite::Statement row(database_,
                              "INSERT INTO tbCompanySettings (Company, Address, Postcode, Locality, Country, "
                              "Phone, Fax, EMail, WEB, VATNumber) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
        int index = 0;
        for (const char* column : {"Company", "Address", "Postcode", "Locality", "Country", "Phone", "Fax",
                                   "EMail", "WEB", "VATNumber"})
            bindText(row, ++index, demo_.company.value(column));
        row.exec();
    }

    void writePlant(int number, const DemoPlant& plant)
    {
        SQLite::Statement row(database_, "INSERT INTO tbGroupsUser VALUES (?, ?, ?, ?)");
        row.bind(1, number);
        bindText(row, 2, plant.name);
        bindText(row, 3, orNull(plant.description));
        bindText(row, 4, orNull(plant.phone));
        row.exec();
        QSet<QString> addresses;
        int instrumentNumber = 0;
        for (const DemoInstrument& instrument : plant.instruments) {
            if (addresses.contains(instrument.address))
                refuse(instrument.origin, QStringLiteral("the address %1 is taken").arg(instrument.address));
            addresses.insert(instrument.address);
            writeInstrument(number, ++instrumentNumber, instrument);
        }
    }

    void writeInstrument(int plant, int number, const DemoInstrument& instrument)
    {
        const std::vector<Parameter> parameters = parametersOf(database_, instrument.type);
        if (parameters.empty())
            refuse(instrument.origin, QStringLiteral("there is no type \"%1\"").arg(instrument.type));
        SQLite::Statement row(database_, "INSERT INTO tbInstrumentsUser VALUES (?, ?, ?, ?, ?, ?)");
        row.bind(1, plant);
        row.bind(2, number);
        bindText(row, 3, instrument.type);
        bindText(row, 4, instrument.name);
        bindText(row, 5, orNull(instrument.description));
        bindText(row, 6, instrument.address);
        row.exec();
        writeStandardValues(plant, number, instrument.type);
        for (const DemoValue& value : instrument.values)
            writeValue(plant, number, parameters, value);
    }

    void writeStandardValues(int plant, int number, const QString& type)
    {
        SQLite::Statement rows(
            database_,
            "INSERT INTO tbParametersUser SELECT ?, ?, tbParam.mID, tbParam.mKeyParGroup, tbParam.mDftValue, "
            "0 FROM tbInstrument INNER JOIN tbParamGroup ON tbInstrument.mID = tbParamGroup.mKeyInst "
            "INNER JOIN tbParam ON tbParamGroup.mID = tbParam.mKeyParGroup WHERE tbInstrument.mTag = ?");
        rows.bind(1, plant);
        rows.bind(2, number);
        bindText(rows, 3, type);
        rows.exec();
    }

    void writeValue(int plant, int number, const std::vector<Parameter>& parameters, const DemoValue& value)
    {
        const auto parameter = std::ranges::find(parameters, value.parameter, &Parameter::id);
        if (parameter == parameters.end())
            refuse(value.origin,
                   QStringLiteral("this instrument has no parameter \"%1\"").arg(value.parameter));
        if (value.value && !fits(*parameter, *value.value))
            refuse(value.origin,
                   QStringLiteral("\"%1\" cannot be the value of %2").arg(*value.value, value.parameter));
        if (value.state == 1 && !parameter->editable)
            refuse(value.origin, QStringLiteral("%1 can only be read").arg(value.parameter));
        SQLite::Statement row(database_, "UPDATE tbParametersUser SET Value = ?, State = ? "
                                         "WHERE IDGrp = ? AND IDInst = ? AND IDPar = ?");
        bindText(row, 1, value.value.value_or(QString()));
        row.bind(2, value.state);
        row.bind(3, plant);
        row.bind(4, number);
        bindText(row, 5, value.parameter);
        row.exec();
    }

    bool fits(const Parameter& parameter, const QString& value)
    {
        if (parameter.key == "STRING")
            return !value.isEmpty() && value.size() <= parameter.size;
        if (parameter.key == "ENUM" && !hasChoice(database_, parameter.id, value))
            return false;
        const std::optional<int> raw = rawOf(parameter, value);
        return raw && engineering(parameter, *raw) >= parameter.low &&
               engineering(parameter, *raw) <= parameter.high;
    }

    SQLite::Database& database_;
    const Demo& demo_;
};

} // namespace

void writeCompany(const Demo& demo, const QString& model, const QString& target)
{
    buildDatabase(target, [&](SQLite::Database& database) {
        SQLite::Database source(model.toStdString(), SQLite::OPEN_READONLY);
        SQLite::Backup(database, source).executeStep();
        database.exec("PRAGMA foreign_keys=ON");
        CompanyWriter(database, demo).write();
    });
}

} // namespace catalogue
