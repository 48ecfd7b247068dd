#include "catalogue/tool/CompanyWriter.h"
#include "catalogue/tool/Coding.h"
#include "catalogue/tool/Database.h"
#include "catalogue/tool/HeldValue.h"
#include "catalogue/tool/InstrumentText.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <SQLiteCpp/Backup.h>
#include <algorithm>
#include <map>

namespace catalogue {

namespace {

constexpr int kChanged = 1;
constexpr int kAdded = 2;

QString orNull(const QString& text)
{
    return text.isEmpty() ? QString() : text;
}

class CompanyWriter
{
public:
    CompanyWriter(SQLite::Database& database, const Demo& demo, const Catalogue& catalogue)
        : database_(database), demo_(demo), catalogue_(catalogue)
    {
    }

    void write()
    {
        SQLite::Transaction transaction(database_);
        writeSettings();
        for (const DemoUser& user : demo_.users)
            writeUser(user);
        int plantNumber = 0;
        for (const DemoPlant& plant : demo_.plants)
            writePlant(++plantNumber, plant);
        if (!problems_.empty())
            throw Refused(std::move(problems_));
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

    void writeUser(const DemoUser& user)
    {
        SQLite::Statement row(database_,
                              "INSERT INTO tbUsers (IDUser, Name, State, Password) VALUES (?, ?, 0, ?)");
        bindText(row, 1, user.number);
        bindText(row, 2, user.name);
        bindText(row, 3, orNull(user.password));
        row.exec();
        for (const QString& right : user.rights) {
            SQLite::Statement given(
                database_,
                QStringLiteral("UPDATE tbUsers SET %1 = -1 WHERE IDUser = ?").arg(right).toStdString());
            bindText(given, 1, user.number);
            given.exec();
        }
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
            gather(problems_, [&] { checkAddress(instrument, addresses); });
            addresses.insert(instrument.address);
            gather(problems_, [&] {
                writeInstrument({number, ++instrumentNumber, instrument.address}, instrument);
            });
        }
    }

    void checkAddress(const DemoInstrument& instrument, const QSet<QString>& taken) const
    {
        static const QRegularExpression kAddress(QStringLiteral("^[0-9A-F]{2}$"));
        if (!kAddress.match(instrument.address).hasMatch())
            refuse(instrument.origin,
                   QStringLiteral("the address \"%1\" is not two hexadecimal digits, letters as capitals")
                       .arg(instrument.address));
        if (taken.contains(instrument.address))
            refuse(instrument.origin, QStringLiteral("the address %1 is taken").arg(instrument.address));
        const Type* type = catalogue_.type(instrument.type);
        if (instrument.address == "00" && type != nullptr && !type->master)
            refuse(instrument.origin,
                   QStringLiteral("%1 is no master, so it can't stand at 00").arg(type->tag));
    }

    void writeInstrument(const Place& place, const DemoInstrument& instrument)
    {
        const Type* type = catalogue_.type(instrument.type);
        if (type == nullptr)
            refuse(instrument.origin, QStringLiteral("there is no type \"%1\"").arg(instrument.type));
        SQLite::Statement row(database_, "INSERT INTO tbInstrumentsUser VALUES (?, ?, ?, ?, ?, ?)");
        row.bind(1, place.plant);
        row.bind(2, place.instrument);
        bindText(row, 3, instrument.type);
        bindText(row, 4, instrument.name);
        bindText(row, 5, orNull(instrument.description));
        bindText(row, 6, instrument.address);
        row.exec();
        std::map<QString, DemoValue> told;
        for (const DemoValue& value : instrument.values)
            if (gather(problems_, [&] { checkValue(*type, value); }))
                told[value.parameter] = value;
        for (const DemoValue& value : instrument.holds)
            gather(problems_, [&] { checkValue(*type, value); });
        for (const Group& group : type->groups)
            for (const Parameter& parameter : group.parameters)
                writeParameter(place, group, parameter, told);
    }

    void writeParameter(const Place& place, const Group& group, const Parameter& parameter,
                        const std::map<QString, DemoValue>& told)
    {
        const auto value = told.find(parameter.id);
        const bool isTold = value != told.end();
        SQLite::Statement row(database_, "INSERT INTO tbParametersUser VALUES (?, ?, ?, ?, ?, ?)");
        row.bind(1, place.plant);
        row.bind(2, place.instrument);
        bindText(row, 3, parameter.id);
        bindText(row, 4, group.id);
        bindText(row, 5,
                 (isTold ? storedValue(parameter, value->second) : valueHeld(parameter, place))
                     .value_or(QString()));
        row.bind(6, isTold ? value->second.state : 0);
        row.exec();
    }

    void checkValue(const Type& type, const DemoValue& value) const
    {
        const Parameter* parameter = parameterOf(type, value.parameter);
        if (parameter == nullptr)
            refuse(value.origin,
                   QStringLiteral("this instrument has no parameter \"%1\"").arg(value.parameter));
        const std::optional<QString> stored = storedValue(*parameter, value);
        if (value.state != kAdded && stored && !fits(*parameter, *stored))
            refuse(value.origin,
                   QStringLiteral("\"%1\" cannot be the value of %2").arg(*value.value, value.parameter));
        if (value.state == kChanged && !parameter->editable)
            refuse(value.origin, QStringLiteral("%1 can only be read").arg(value.parameter));
    }

    static const Parameter* parameterOf(const Type& type, const QString& id)
    {
        for (const Group& group : type.groups)
            for (const Parameter& parameter : group.parameters)
                if (parameter.id == id)
                    return &parameter;
        return nullptr;
    }

    bool fits(const Parameter& parameter, const QString& value) const
    {
        if (parameter.key == "STRING")
            return !value.isEmpty() && value.size() <= parameter.size && instrumentText(value).has_value();
        if (parameter.key == "ENUM")
            return std::ranges::any_of(
                catalogue_.choiceSet(parameter.choices)->choices,
                [&](const Choice& choice) { return QString::number(choice.value) == value; });
        const std::optional<int> raw = rawOf(parameter, value);
        return raw && engineering(parameter, *raw) >= parameter.low &&
               engineering(parameter, *raw) <= parameter.high;
    }

    SQLite::Database& database_;
    const Demo& demo_;
    const Catalogue& catalogue_;
    Problems problems_;
};

} // namespace

void writeCompany(const Demo& demo, const Catalogue& catalogue, const QString& model, const QString& target)
{
    if (!QFile::exists(model))
        refuse({model}, QStringLiteral("there is no such model"));
    buildDatabase(target, [&](SQLite::Database& database) {
        SQLite::Database source(model.toStdString(), SQLite::OPEN_READONLY);
        SQLite::Backup(database, source).executeStep();
        database.exec("PRAGMA foreign_keys=ON");
        CompanyWriter(database, demo, catalogue).write();
    });
}

} // namespace catalogue
