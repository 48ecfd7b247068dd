#pragma once

#include "catalogue/tool/Catalogue.h"
#include "catalogue/tool/Source.h"

namespace catalogue {

// Understands the lines of all sources, in order: common ones first. The forms are told in
// catalogue/README.md. Refuses, at the first of them, a line that has no meaning; whether the whole makes
// sense is for the checks.
Catalogue parse(const std::vector<Line>& lines);

// Reads a catalogue folder: common/*.txt, glossary.txt, then types/*.txt, by name, and parses them.
Catalogue readCatalogue(const QString& folder);

} // namespace catalogue
