#include "property/PlantWalk.h"

#include <QStringBuilder>

namespace walk {

namespace {

const QString kNotNumeric = "Attention! The imput number is not a valid numeric format.";
const QString kCheck = "Attention! Check the imput numbers.";
const QString kRange = "Attention! The values are out of range.";

const QStringList kNames{"O'Hara",   "50% \"a_b\"",     "КАМЕРА 1", "\U0001F9CA room",
                         "--; DROP", QString(300, 'x'), "plain",    "1e3"};

} // namespace

QString between(const QString& low, const QString& high)
{
    return u"Attention! The number must be included between " % low % u" and " % high % u'.';
}

const std::vector<Typing> kTypings{
    {"P1101", {"20.2"}, "20.5"},
    {"P1101", {"7,7"}, "8"},
    {"P1101", {"0"}, "0"},
    {"P1101", {"1e3"}, "13"}, // the letter is dropped
    {"P1101", {""}, std::nullopt},
    {"P1101", {"25.1"}, {}, between("0", "25")},
    {"P1101", {"--"}, {}, kNotNumeric},
    {"P1101", {","}, {}, kNotNumeric},
    {"P1102", {"6,5"}, "65"}, // so is the comma of a whole number
    {"P1102", {"60000"}, "60000"},
    {"P1102", {"60001"}, {}, between("0", "60000")},
    {"P1103", {"007"}, "7"},
    {"P1103", {""}, std::nullopt},
    {"P0301", {"23"}, "23:00:00"},
    {"P0301", {"24"}, {}, between("0", "23")},
    {"P0301", {""}, std::nullopt},
    {"P0302", {"2", "30"}, "02:30:00"},
    {"P0302", {"2", ""}, {}, kCheck},
    {"P0302", {"", ""}, std::nullopt},
    {"P0302", {"2", "60"}, {}, kRange},
    {"P0303", {"1", "2", "3"}, "01:02:03"},
    {"P0303", {"", "", ""}, std::nullopt},
    {"P0303", {"", "5", ""}, {}, kCheck},
    {"P0303", {"0", "0", "99"}, {}, kRange},
    {"P0204", {"o'hara"}, "O'HARA"},
    {"P0204", {"50% \"a_b\""}, "50% \"A_B"}, // eight characters
    {"P0204", {"камера"}, "КАМЕРА"},
    {"P0204", {"seven..\U0001F9CA"}, "SEVEN.."}, // no half character
    {"P0204", {""}, std::nullopt},
};

void PlantWalk::inside(const QString& form)
{
    if (form == "frmPropertyCopy")
        return copyChecked();
    ASSERT_EQ(form, "frmProperty");
    model.load();
    thinksBetter = chance(15);
    if (dialog)
        (this->*dialog)();
}

void PlantWalk::rename()
{
    const bool isGroup = edited.startsWith('1');
    const QString name = kNames[below(int(kNames.size()))], description = chance(30) ? "" : name;
    const QString last = isGroup ? chance(30) ? "" : "055 'x'" : QStringLiteral("%1").arg(below(18));
    const QString refusal = !isGroup && last.toInt() > 15 ? between("0", "15") : QString();
    type("txtValStr1", name);
    type("txtValStr2", description);
    type(isGroup ? "txtValStr3" : "txtVal3", last);
    if (!confirmed(refusal) || thinksBetter)
        return;
    const structure::KeyParts ids = structure::Extract_Key(edited);
    PlainPlant::Group& group = plant.groups[ids.IDGrp.toInt()];
    if (isGroup) {
        group.name = name.toUpper().left(50);
        group.description = description.toUpper().left(255);
        group.phone = last.toUpper();
    } else {
        PlainPlant::Instrument& instrument = group.instruments[ids.IDInst.toInt()];
        instrument.name = name.toUpper().left(50);
        instrument.description = description.toUpper().left(255);
        instrument.address.replace(1, 1, QString::number(last.toInt(), 16).toUpper());
    }
}

void PlantWalk::retype()
{
    QStringList fields{"txtVal1", "txtVal2", "txtVal3"};
    if (controls().txtValStr1.visible)
        fields = {"txtValStr1"};
    fields = fields.mid(0, current->typed.size());
    for (int i = 0; i < fields.size(); ++i)
        type(fields[i], current->typed[i]);
    const std::optional<QString> former = instrument().values[parameter].value;
    if (confirmed(current->refusal))
        changeTo(thinksBetter ? savedAgain(former) : current->stored);
}

void PlantWalk::choose()
{
    const int entry = below(int(controls().entries.size()));
    model.pickEntry(entry);
    if (chance(70) && confirmed({}))
        changeTo(QString::number(controls().entries[std::size_t(entry)].value));
}

void PlantWalk::copyChecked()
{
    copy.load();
    QStringList blocks;
    for (int row = 0; row < copy.rowCount(); ++row) {
        if (!chance(60))
            continue;
        copy.setData(copy.index(row, 0), Qt::Checked, Qt::CheckStateRole);
        blocks << copy.index(row, 0).data().toString();
    }
    int answer = kYes;
    if (blocks.isEmpty())
        op.expect(texts(532));
    else if (blocks.size() > 1)
        op.expect(texts(533) + "\r\n" + texts(534), answer = mostlyYes());
    copy.Copy_Value();
    if (answer == kYes)
        PlainPlant::copyBlock(instrument(), parameter, blocks);
    copy.unload();
}

void PlantWalk::type(const QString& field, const QString& text)
{
    const QString before = textOf(field);
    model.enterField(field);
    QString typed;
    for (qsizetype i = 0; i < text.size(); ++i) {
        QString character(text[i]);
        if (text[i].isHighSurrogate())
            character += text[++i];
        typed += model.keyPress(field, character).value_or(QString());
    }
    model.change(field, typed);
    if (!thinksBetter)
        return;
    model.restore(field);
    EXPECT_EQ(textOf(field), before) << field.toStdString();
}

bool PlantWalk::confirmed(QString refusal)
{
    const int how = below(10);
    if (thinksBetter)
        refusal.clear();
    if (how == 0)
        return false;
    if (!refusal.isEmpty())
        op.expect(refusal);
    if (how < 4) {
        model.cmdApply_Click();
        EXPECT_TRUE(refusal.isEmpty() || model.Dirty());
    } else {
        const bool closes = model.cmdOK_Click();
        EXPECT_FALSE(closes && !refusal.isEmpty());
    }
    return refusal.isEmpty();
}

std::optional<QString> PlantWalk::savedAgain(const std::optional<QString>& value)
{
    const QString KeyType = instrument().values[parameter].param->KeyType;
    if (value == QStringLiteral("0") && KeyType.startsWith("TIME"))
        return QStringLiteral("00:00:00");
    if (value && KeyType == "TIME_H")
        return value->left(3) % u"00:00";
    if (value && KeyType == "TIME_HM")
        return value->left(6) % u"00";
    return value;
}

void PlantWalk::changeTo(const std::optional<QString>& value)
{
    PlainPlant::Value& changed = instrument().values[parameter];
    changed.value = value;
    changed.state = 1;
}

} // namespace walk
