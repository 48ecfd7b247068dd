#pragma once

#include "catalogue/tool/Demo.h"

namespace catalogue {

// Builds the company of a demo on a copy of the model: its plants, its instruments with all parameters of
// their types, standard values where the demo tells no other. Groups and instruments are numbered from 1, as
// they come. Refuses a type, a parameter or a value that the model doesn't know, and two instruments of a
// plant at one address.
void writeCompany(const Demo& demo, const QString& model, const QString& target);

} // namespace catalogue
