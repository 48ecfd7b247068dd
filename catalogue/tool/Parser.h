#pragma once

#include "catalogue/tool/Catalogue.h"
#include "catalogue/tool/Source.h"

namespace catalogue {

// Understands the lines of all sources, in order: common ones first. The forms are told in
// catalogue/README.md. A line that has no meaning joins the problems, and the rest is read on; whether the
// whole makes sense is for the checks.
Catalogue parse(const std::vector<Line>& lines, Problems& problems);

// Reads a catalogue folder: common/*.txt, glossary.txt, then types/*.txt, by name, and parses them. Refuses
// what cannot be understood, all of it at once.
Catalogue readCatalogue(const QString& folder);

} // namespace catalogue
