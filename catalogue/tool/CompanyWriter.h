#pragma once

#include "catalogue/tool/Catalogue.h"
#include "catalogue/tool/Demo.h"

namespace catalogue {

// Builds the company of a demo on a copy of the model, which is that of the catalogue: its plants, its
// instruments with all parameters of their types, and where the demo tells no value, what such an instrument
// holds. Groups and instruments are numbered from 1, as they come. Refuses, all at once, types, parameters
// and values that the catalogue doesn't know, and addresses that are none or taken.
void writeCompany(const Demo& demo, const Catalogue& catalogue, const QString& model, const QString& target);

} // namespace catalogue
