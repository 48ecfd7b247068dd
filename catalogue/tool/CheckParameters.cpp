#include "catalogue/tool/Checks.h"
#include "catalogue/tool/Coding.h"
#include "catalogue/tool/Words.h"

#include <QRegularExpression>
#include <algorithm>
#include <cmath>

namespace catalogue {

namespace {

constexpr int kSecondsADay = 86400;
constexpr int kMostSamples = 4096;

const QStringList kKeys{"STRING", "ENUM", "REAL", "TIME_H", "TIME_HM", "TIME_HMS"};
const QStringList kWires{"BYTE", "S_BYTE", "BIT", "BCD", "WORD_L", "WORD_H", "INT_L", "INT_H", "STRING"};

// The checks of one parameter. Each says what it found wrong, or nothing.
class ParameterCheck
{
public:
    ParameterCheck(const Catalogue& catalogue, const Parameter& parameter, Problems& problems)
        : catalogue_(catalogue), parameter_(parameter), problems_(problems)
    {
    }

    void run()
    {
        if (!keyFitsWire())
            return;
        checkEditable();
        if (parameter_.wire == "STRING") {
            checkString();
        } else if (isLine()) {
            checkLimits();
            checkSteps();
            checkTyping();
            checkChoices();
            checkStandard();
        }
    }

private:
    static QString text(double number) { return QString::number(number, 'g', 15); }

    void say(const QString& reason) { problems_.push_back({parameter_.origin, reason}); }

    bool isTime() const { return parameter_.key.startsWith(QStringLiteral("TIME")); }

    bool keyFitsWire()
    {
        const QString& key = parameter_.key;
        const QString& wire = parameter_.wire;
        if (!kKeys.contains(key) || !kWires.contains(wire))
            say(QStringLiteral("\"%1\" on \"%2\" is no kind of value").arg(key, wire));
        else if ((key == "STRING") != (wire == "STRING"))
            say(QStringLiteral("a text is STRING in its key and on the wire"));
        else if (isTime() && wire != "BYTE")
            say(QStringLiteral("a time lies in one BYTE"));
        else if (key == "ENUM" && wire != "BYTE" && wire != "BIT")
            say(QStringLiteral("a choice lies in a BYTE or in bits"));
        else
            return true;
        return false;
    }

    void checkEditable()
    {
        if (!parameter_.editable)
            return;
        if (!hasEncoder(parameter_))
            say(QStringLiteral("nothing writes %1 as %2, so it can only be read")
                    .arg(parameter_.key, parameter_.wire));
        // The merged byte of a bit field is sent to the EEPROM whatever its command.
        if (parameter_.wire == "BIT" && parameter_.writeCmd == 0)
            say(QStringLiteral("a bit field that can be edited has a place in the EEPROM"));
        if (parameter_.unit == QStringLiteral("°C"))
            checkHalfDegrees();
    }

    // Operators' temperatures are raised to the next half degree, which must stay on the scale and inside the
    // limits.
    void checkHalfDegrees()
    {
        for (const double limit : {parameter_.low, parameter_.high})
            if (limit * 2 != std::floor(limit * 2))
                say(QStringLiteral("limits in °C are whole or half degrees"));
    }

    void checkString()
    {
        if (parameter_.size < 1 || parameter_.size > 255)
            say(QStringLiteral("a text has 1 to 255 characters"));
        if (!parameter_.standard)
            return;
        const QString& standard = *parameter_.standard;
        if (!parameter_.editable && (standard == kItsAddress || standard == kItsSerialNumber))
            return;
        if (standard.size() > parameter_.size || standard.isEmpty() || standard.endsWith(' '))
            say(QStringLiteral("the standard value \"%1\" does not fit").arg(standard));
        if (std::ranges::any_of(standard, [](QChar sign) { return sign < ' ' || sign > '~'; }))
            say(QStringLiteral("a standard value is in plain letters, alike in every language"));
    }

    bool isLine()
    {
        const Scale& scale = parameter_.scale;
        const auto [first, last] = rawRange(parameter_);
        if (scale.low == scale.high || scale.lowValue == scale.highValue)
            say(QStringLiteral("the scale is no line"));
        else if (std::min(scale.low, scale.high) < first || std::max(scale.low, scale.high) > last)
            say(QStringLiteral("the scale reaches beyond what %1 can hold").arg(parameter_.wire));
        else if (parameter_.wire == "S_BYTE" && scale.low != -128)
            say(QStringLiteral("the scale of an S_BYTE begins at -128, where it is unwrapped"));
        else if (parameter_.wire == "BYTE" && scale.low != 0)
            say(QStringLiteral("the scale of a BYTE begins at 0"));
        else
            return true;
        return false;
    }

    void checkLimits()
    {
        const Scale& scale = parameter_.scale;
        const auto [low, high] = std::minmax(scale.lowValue, scale.highValue);
        const double lowest =
            parameter_.wire == "BCD" ? std::min(low, -high) : low; // the sign nibble mirrors it
        if (parameter_.low >= parameter_.high)
            say(QStringLiteral("the limits are the wrong way round"));
        // Those of a bit field with choices are the choices, and told of as such.
        if (parameter_.choices.isEmpty() && (parameter_.low < lowest || parameter_.high > high))
            say(QStringLiteral("the limits %1 lie outside the scale %2")
                    .arg(limits(), rangeText(lowest, high)));
        if (isTime() && parameter_.high >= kSecondsADay)
            say(QStringLiteral("a time stays below 24 hours"));
    }

    // What the mask and the limits invite an operator to type, an instrument must be able to hold: what it
    // cannot comes back as another value, and the check behind a write says that the write went wrong.
    void checkTyping()
    {
        if (parameter_.wire == "BIT" || parameter_.key == "ENUM")
            return;
        if (isTime() && parameter_.high >= kSecondsADay)
            return; // told
        for (const double limit : {parameter_.low, parameter_.high})
            if (!rawOf(parameter_, valueOf(limit)))
                say(QStringLiteral("the limit %1 is not on the scale's steps").arg(shown(limit)));
        if (!parameter_.editable)
            return;
        const auto [first, last] = rawRange(parameter_);
        if (isBetweenLimits(engineering(parameter_, last)))
            say(QStringLiteral("count %1 stands for \"not known\", so the limits must leave it out")
                    .arg(last));
        if (isTime())
            checkGridIsTold();
        else
            checkStepOfMask();
    }

    // Half degrees do under a mask of tenths, because what is typed in °C is raised to them.
    void checkStepOfMask()
    {
        const qsizetype point = parameter_.mask.indexOf('.');
        const double invited = point < 0 ? 1 : std::pow(10, -(parameter_.mask.size() - point - 1.0));
        const double step = stepOfScale();
        const bool isHalfDegree = parameter_.unit == QStringLiteral("°C") && text(step) == "0.5";
        if (text(step) != text(invited) && !isHalfDegree)
            say(QStringLiteral("the mask \"%1\" invites steps of %2, the scale has steps of %3")
                    .arg(parameter_.mask, text(invited), text(step)));
    }

    void checkGridIsTold()
    {
        const double minutes = stepOfScale() / 60;
        if (minutes == 1)
            return;
        for (size_t language = 0; language < kLanguages.size(); ++language) {
            const QString grid =
                text(minutes) + (kLanguages[language] == "RU" ? QStringLiteral(" мин") : " min");
            if (!parameter_.text[language].contains(grid))
                say(QStringLiteral("times go in steps of %1, but the text in %2 does not say so")
                        .arg(grid, kLanguages[language]));
        }
    }

    double stepOfScale() const
    {
        const Scale& scale = parameter_.scale;
        return std::abs((scale.highValue - scale.lowValue) / (scale.high - scale.low));
    }

    // Every count between the limits must show what it means: no digit behind the mask, no part of a minute.
    // That holds for TIME_HMS as well, whose minutes keep their fraction and whose seconds are therefore
    // always 0.
    void checkSteps()
    {
        // Groups of digits are told apart by "," alone, which is the decimal sign of two of the languages.
        static const QRegularExpression kMask(QStringLiteral("^0(?:\\.(0+))?$"));
        const QRegularExpressionMatch mask = kMask.match(parameter_.mask);
        if ((parameter_.key == "REAL") != mask.hasMatch())
            return say(
                QStringLiteral("a REAL, and nothing else, has a mask such as 0.0, without groups of digits"));
        const double places = std::pow(10, mask.captured(1).size());
        const double step = parameter_.key == "TIME_H" ? 3600 : 60;
        const auto [first, last] = rawRange(parameter_);
        const int stride = (last - first) / kMostSamples + 1;
        for (int raw = first; raw <= last; raw += stride) {
            const double value = engineering(parameter_, raw);
            if (!isBetweenLimits(value))
                continue;
            const double shown =
                isTime() ? std::floor(value / step) * step : std::round(value * places) / places;
            if (text(shown) != text(value))
                return say(QStringLiteral("count %1 is %2, which cannot be shown").arg(raw).arg(text(value)));
        }
    }

    void checkChoices()
    {
        if (parameter_.key != "ENUM") {
            if (!parameter_.choices.isEmpty())
                say(QStringLiteral("only an ENUM has choices"));
            return;
        }
        const ChoiceSet* set = catalogue_.choiceSet(parameter_.choices);
        if (set == nullptr || set->choices.empty())
            return say(QStringLiteral("there are no choices \"%1\"").arg(parameter_.choices));
        QList<int> values;
        for (const Choice& choice : set->choices) {
            if (values.contains(choice.value))
                say(QStringLiteral("the choice %1 of \"%2\" is there twice")
                        .arg(choice.value)
                        .arg(set->name));
            if (parameter_.wire == "BIT" && choice.value > rawRange(parameter_).second)
                say(QStringLiteral("choice %1 does not fit in %2 bit%3")
                        .arg(choice.value)
                        .arg(parameter_.bitCount)
                        .arg(parameter_.bitCount == 1 ? "" : "s"));
            else if (choice.value < parameter_.low || choice.value > parameter_.high)
                say(QStringLiteral("the choice %1 of \"%2\" lies outside the limits")
                        .arg(choice.value)
                        .arg(set->name));
            values << choice.value;
        }
        if (parameter_.standard && !values.contains(parameter_.standard->toInt()))
            say(QStringLiteral("the standard value \"%1\" is not among the choices")
                    .arg(*parameter_.standard));
    }

    void checkStandard()
    {
        if (!parameter_.standard)
            return;
        const std::optional<int> raw = rawOf(parameter_, *parameter_.standard);
        if (!raw)
            return say(
                QStringLiteral("the standard value \"%1\" is not on the scale").arg(*parameter_.standard));
        const double value = engineering(parameter_, *raw);
        if (!isBetweenLimits(value - parameter_.spread) || !isBetweenLimits(value + parameter_.spread))
            return say(QStringLiteral("the standard value \"%1\" lies outside the limits %2")
                           .arg(*parameter_.standard, limits()));
        if (decoded(parameter_, bytesOf(parameter_, *raw)) != parameter_.standard)
            say(QStringLiteral("the standard value \"%1\" does not come back from its bytes")
                    .arg(*parameter_.standard));
    }

    bool isBetweenLimits(double value) const { return value >= parameter_.low && value <= parameter_.high; }

    // A value as the sources write it, and as the database keeps it.
    QString shown(double value) const { return isTime() ? timeOfDay(static_cast<int>(value)) : text(value); }
    QString valueOf(double value) const { return isTime() ? shown(value) + ":00" : text(value); }
    QString rangeText(double low, double high) const { return shown(low) + ".." + shown(high); }
    QString limits() const { return rangeText(parameter_.low, parameter_.high); }

    const Catalogue& catalogue_;
    const Parameter& parameter_;
    Problems& problems_;
};

} // namespace

void checkParameters(const Catalogue& catalogue, Problems& problems)
{
    forEachParameter(catalogue, [&](const Type&, const Group&, const Parameter& parameter) {
        ParameterCheck(catalogue, parameter, problems).run();
    });
}

} // namespace catalogue
