#pragma once

#include "catalogue/tool/Catalogue.h"

#include <QMap>

namespace catalogue {

// The names that the rows of parameters refer to.
struct Vocabulary
{
    QMap<QString, int> banks; // to Bank::id
    QMap<QString, int> eepromCommands;
    QMap<QString, Kind> kinds;
    QMap<QString, std::pair<int, int>> choices; // lowest and highest value of a set
};

// One row of a parameter table, its texts still to come:
//   id       tag  kind            place      eeprom  limits        standard  edit|read  [copy class]
//   P020101  SP   t05             set:20     ee:4    -30..15       2.0       edit
//   P020102  Fan  bit(offon)      set:21.3   ee:5    -             1         edit
//   P020103  Nam  text(16)        set:40     ee:8    -             "CELLA 1" edit
//   P020104  nSt  hm10            set:56     ee:40   00:00..23:50  21:00     edit
//   P020105  rtP  tb              sta:4      -       -50..99       2.8~0.5   read
// "-" in the column of the EEPROM: the value lives in RAM only; as limits: those of the kind or its choices;
// as standard: not known. What can only be read has a typical value there, perhaps with how far it strays.
// Refuses a row that names what isn't there.
Parameter parameterFromRow(const QStringList& columns, const Vocabulary& words, const Origin& origin);

} // namespace catalogue
