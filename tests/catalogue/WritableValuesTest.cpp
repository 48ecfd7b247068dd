// What the property dialog takes must come back from an instrument as it went there: a value that doesn't is
// told as "Error!" by the check behind a write.
#include "catalogue/tool/Checks.h"
#include "tests/catalogue/ProgramCoding.h"
#include "tests/catalogue/Published.h"

#include "property/PropertyFixture.h"

#include <cmath>
#include <random>

namespace catalogue {
namespace {

using testing::codingOf;
using testing::published;

constexpr int kRandomValues = 20;
constexpr int kGrid = 600; // of times of day, in seconds

// The bytes that a write leaves in the instrument, decoded as the check does it.
QString writtenAndReadBack(const Parameter& parameter, const QString& value)
{
    const values::ParameterCoding coding = codingOf(parameter);
    if (parameter.wire != "BIT")
        return values::Compose_EngVal(values::Extract_EngVal(value, coding), coding);
    QString andMask;
    QString orMask;
    values::Compose_Byte(value, parameter.bitFirst, parameter.bitCount, andMask, orMask);
    const int byte = (0b10100101 & andMask.toInt(nullptr, 2)) | orMask.toInt(nullptr, 2);
    return values::Compose_EngVal(QByteArray(1, static_cast<char>(byte)), coding);
}

class WritableValues : public support::PropertyFixture, public ::testing::WithParamInterface<QString>
{
protected:
    WritableValues()
    {
        Demo demo;
        demo.plants.push_back({"P", {}, {}, {{"11", GetParam(), "I", {}, {}, {}, {}, {}}}, {}});
        writeCompany(demo, published().catalogue, published().model, file("Data/New.mdb"));
        EXPECT_TRUE(connectTo("New.mdb"));
        session.cnDatabase.Execute("PRAGMA synchronous=OFF;");
    }

    // What an operator may type, the mask's places and the catalogue's grid of times observed.
    QStringList typed(const Parameter& parameter)
    {
        if (parameter.key == "ENUM") {
            QStringList choices;
            for (const Choice& choice : published().catalogue.choiceSet(parameter.choices)->choices)
                choices << QString::number(choice.value);
            return choices;
        }
        const int places =
            static_cast<int>(std::max<qsizetype>(parameter.mask.size() - 2, 0)); // of "0" or "0.00"
        const double step = parameter.key == "TIME_HM" ? kGrid : std::pow(10, -places);
        std::uniform_int_distribution<int> steps(
            0, static_cast<int>(std::lround((parameter.high - parameter.low) / step)));
        std::vector<double> numbers{parameter.low, parameter.high};
        for (int count = 0; count < kRandomValues; ++count)
            numbers.push_back(parameter.low + steps(random_) * step);
        QStringList texts;
        for (const double number : numbers)
            texts << QString::number(number, 'f', places);
        return texts;
    }

    void type(const Parameter& parameter, const QString& text)
    {
        if (parameter.key == "ENUM") {
            const auto& entries = controls().entries;
            const auto entry = std::ranges::find(entries, text.toInt(), &property::EnumEntry::value);
            ASSERT_NE(entry, entries.end());
            model.pickEntry(static_cast<int>(entry - entries.begin()));
        } else if (parameter.key == "TIME_HM") {
            model.change("txtVal1", QString::number(text.toInt() / 3600));
            model.change("txtVal2", QString::number(text.toInt() / 60 % 60));
        } else {
            ASSERT_TRUE(model.validate("txtVal1"));
            model.change("txtVal1", text);
            ASSERT_TRUE(model.validate("txtVal1"));
        }
    }

    // Of what has been marked as changed.
    QString storedValue(const QString& parameter)
    {
        platform::Recordset rows;
        rows.Open("SELECT Value FROM tbParametersUser WHERE State = 1 AND IDPar = '" + parameter + "'",
                  session.cnDatabase);
        return rows.Eof() ? QString("not saved") : rows.text("Value");
    }

    std::mt19937 random_{20260101};
};

TEST_P(WritableValues, comeBackAsTheyWereTyped)
{
    const Type& type = *published().catalogue.type(GetParam());
    int values = 0;
    for (const Group& group : type.groups) {
        for (const Parameter& parameter : group.parameters) {
            if (!parameter.editable || parameter.wire == "STRING")
                continue;
            open("4_1_1_" + group.id + '_' + parameter.id);
            for (const QString& text : typed(parameter)) {
                SCOPED_TRACE((parameter.id + " <- " + text).toStdString());
                this->type(parameter, text);
                model.cmdApply_Click();
                const QString stored = storedValue(parameter.id);
                ASSERT_EQ(writtenAndReadBack(parameter, stored), stored);
                ++values;
            }
        }
    }
    EXPECT_GT(values, 20);
}

// An emptied field is written as "not known" and comes back as that.
TEST_P(WritableValues, canBeNone)
{
    const Type& type = *published().catalogue.type(GetParam());
    for (const Group& group : type.groups)
        for (const Parameter& parameter : group.parameters)
            if (parameter.editable && parameter.key != "ENUM" && parameter.wire != "STRING" &&
                parameter.wire != "BIT") {
                EXPECT_EQ(writtenAndReadBack(parameter, QString()), QString()) << parameter.id.toStdString();
            }
}

QStringList everyType()
{
    QStringList tags;
    for (const Type& type : readCatalogue(testing::kFolder).types)
        tags << type.tag;
    return tags;
}

INSTANTIATE_TEST_SUITE_P(Types, WritableValues, ::testing::ValuesIn(everyType()),
                         [](const auto& info) { return QString(info.param).remove('-').toStdString(); });

} // namespace
} // namespace catalogue
