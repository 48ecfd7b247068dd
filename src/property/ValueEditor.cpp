#include "property/ValueEditor.h"

#include "property/EnumEditor.h"
#include "property/RealEditor.h"
#include "property/StringEditor.h"
#include "property/TimeEditor.h"
#include "values/Kind.h"

namespace property {

std::unique_ptr<ValueEditor> makeValueEditor(const EditorTools& with)
{
    switch (values::kindOf(with.element.KeyType)) {
    case values::Kind::String:
        return std::make_unique<StringEditor>(with);
    case values::Kind::Enum:
        return std::make_unique<EnumEditor>(with);
    case values::Kind::Real:
        return std::make_unique<RealEditor>(with);
    case values::Kind::TimeH:
    case values::Kind::TimeHM:
    case values::Kind::TimeHMS:
        return std::make_unique<TimeEditor>(with);
    case values::Kind::Other:
        break;
    }
    return nullptr;
}

} // namespace property
