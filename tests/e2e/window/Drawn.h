#pragma once

#include "line/World.h"

namespace window {

// What the operator and the far end see of the line at one moment.
struct Shown
{
    int status = 0;
    QString code;
    int comSet = 0;
    int allarm = 0;
    QString info;
    int boxes = 0;
    bool console = false;
    QString buttons; // of the console that can be pressed
    QByteArray sent; // from the start

    bool operator==(const Shown&) const = default;
};
QString words(const Shown& shown);

// One event of a sequence, with what goes before it.
struct Step
{
    line::Event event;
    Shown before;
    QByteArray comes; // an arrival's bytes
    qint64 lasts = 0; // milliseconds, of an event that lets time pass
};

// A sequence that was drawn, with what must be seen on the way, at its end and in the company then.
struct Drawn
{
    std::vector<Step> steps;
    Shown end;
    QStringList company;
    QString violation;

    line::Sequence sequence() const;
};

// Draws a sequence of what an operator at the window and a far end can do, and plays it in a world. At its
// end all boxes are answered and the console is closed.
Drawn draw(line::World& world, quint64 seed, int steps);

// The buttons by name, each with whether it is there to be pressed.
QString pressable(const std::vector<std::pair<const char*, bool>>& buttons);
// Every value with its mark, and every event that waits for its log.
QStringList contentOf(const platform::Connection& company);

} // namespace window
