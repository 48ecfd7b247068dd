#include "e2e/window/Drawn.h"

#include "line/Walk.h"
#include "platform/Recordset.h"

namespace window {

using line::What;
using line::World;
using platform::Buttons;

namespace {

// What happens to the program itself, its company and the disk is not for a hand at the console.
bool isPlayable(What what)
{
    using enum What;
    const bool console = what >= OpenGroup && what <= Ok;
    const bool time = what >= DueAction && what <= Silence;
    return console || time || line::isArrival(what) || what == Acknowledge || what == Vanish;
}

// Buttons that are off can't be pressed, and a box has its own.
bool isReachable(World& world, What what, const line::Picture& now)
{
    using enum What;
    const Buttons buttons = world.boxes() > 0 ? world.buttons() : Buttons::Ok;
    switch (what) {
    case Connect:
        return world.boxes() == 0 && now.commands.Connect && !world.bus().isCallTaken();
    case Disconnect:
        return world.boxes() == 0 && now.commands.Disconnect;
    case Vanish: // a tick that is due as the port goes may be before or behind it
        return std::all_of(now.dueIn.begin(), now.dueIn.end(),
                           [](const auto& due) { return due.value_or(1) > 0; });
    case Ok:
        return buttons == Buttons::Ok;
    case Cancel:
        return buttons == Buttons::YesNoCancel;
    case Yes:
    case No:
        return buttons != Buttons::Ok;
    default:
        return true;
    }
}

// From wherever the sequence stands: all is closed.
What towardsTheEnd(const World& world, const line::Picture& now)
{
    using enum What;
    if (world.boxes() > 0)
        return world.buttons() == Buttons::Ok ? Ok : No;
    return now.status > session::kLineIdle ? Escape : CloseConsole;
}

qint64 lasting(World& world, What what)
{
    using enum What;
    if (what == Second)
        return 1000;
    if (what == Silence)
        return 70000;
    if (what < DueAction || what > DueAlarm)
        return 0;
    const auto due = world.clock().timersDue()[std::size_t(int(what) - int(DueAction))];
    return std::max<qint64>(0, due.value_or(0) - world.clock().elapsed());
}

Shown shown(World& world, const line::Picture& now, const QByteArray& sent)
{
    Shown shown{now.status,    line::nameOf(now.code), now.comSet, now.allarm, now.info,
                world.boxes(), now.consoleOpen,        {},         sent};
    // A call leaves the console's buttons as they are until its next look.
    if (now.consoleOpen && !world.bus().isCallTaken())
        shown.buttons = pressable({{"Connect", now.commands.Connect},
                                   {"Disconnect", now.commands.Disconnect},
                                   {"AutoDisconnect", now.commands.AutoDisconnect},
                                   {"Simulator", now.commands.Simulator},
                                   {"Read", now.commands.Read},
                                   {"Write", now.commands.Write},
                                   {"Exit", now.commands.Exit}});
    return shown;
}

} // namespace

QString words(const Shown& shown)
{
    return QStringLiteral("status %1, %2, panels %3 and %4, '%5', %6 boxes, console %7 [%8], sent %9")
        .arg(shown.status)
        .arg(shown.code)
        .arg(shown.comSet)
        .arg(shown.allarm)
        .arg(shown.info)
        .arg(shown.boxes)
        .arg(shown.console)
        .arg(shown.buttons, QString::fromLatin1(shown.sent.right(40).toPercentEncoding(" ")));
}

QString pressable(const std::vector<std::pair<const char*, bool>>& buttons)
{
    QStringList on;
    for (const auto& [name, enabled] : buttons)
        if (enabled)
            on << QLatin1String(name);
    return on.join(QLatin1Char(' '));
}

QStringList contentOf(const platform::Connection& company)
{
    QStringList content;
    platform::Recordset rows;
    rows.Open(
        "SELECT IDGrp || '/' || IDInst || '/' || IDPar || ' = ' || ifnull(Value, 'NULL') || ' / ' || State "
        "FROM tbParametersUser UNION ALL SELECT Source || ' ' || ifnull(Description, '') FROM tbEvent "
        "ORDER BY 1",
        company);
    for (; !rows.Eof(); rows.MoveNext())
        content << rows.field(0).toString();
    return content;
}

line::Sequence Drawn::sequence() const
{
    line::Sequence sequence;
    for (const Step& step : steps)
        sequence.push_back(step.event);
    return sequence;
}

Drawn draw(World& world, quint64 seed, int steps)
{
    Drawn drawn;
    QByteArray sent;
    line::Walk walk(seed);
    world.reset();
    world.port().onOutput = [&](const QByteArray& bytes) { sent += bytes; };
    world.port().onComes = [&](const QByteArray& bytes) { drawn.steps.back().comes = bytes; };
    world.play(World::Source([&](World& it) -> std::optional<line::Event> {
        const line::Picture now = it.picture();
        drawn.end = shown(it, now, sent);
        std::optional<What> what;
        if (int(drawn.steps.size()) < steps) {
            while (!what) {
                const line::Event event = walk.draw(it, now);
                if (isPlayable(event.what) && it.isPossible(event.what) && isReachable(it, event.what, now))
                    what = event.what;
            }
        } else if (it.boxes() > 0 || now.consoleOpen) {
            what = towardsTheEnd(it, now);
        } else {
            return std::nullopt;
        }
        drawn.steps.push_back({*what, drawn.end, {}, lasting(it, *what)});
        return *what;
    }));
    drawn.violation = world.violation();
    drawn.company = contentOf(world.session.cnDatabase);
    return drawn;
}

} // namespace window
