#pragma once

#include "catalogue/tool/Problem.h"

namespace catalogue {

// One line that says something: comments and empty lines are gone, repeats are written out, expressions are
// numbers. indented tells a line that belongs to the one before it, such as the texts of a parameter. One
// whose expressions could not be evaluated is unreadable; why is among the problems.
struct Line
{
    Origin origin;
    QString text;
    bool indented = false;
    bool unreadable = false;
};

// Reads folder/file, UTF-8, and whatever it includes. Its own verbs, alone on their lines, nest as they like:
//   let t 6                      a name for a number
//   repeat n 1..8 ... end        the lines between, once for each number
//   include common/clock.txt     another file of the folder, which sees the names known here
// What cannot be read joins the problems, and the rest is read on.
std::vector<Line> readSource(const QString& folder, const QString& file, Problems& problems);

} // namespace catalogue
