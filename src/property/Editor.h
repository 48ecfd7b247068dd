#pragma once

#include "platform/Forward.h"
#include "platform/RuntimeError.h"
#include "property/Controls.h"
#include "property/Details.h"
#include "property/Element.h"
#include "session/Forward.h"
#include "structure/Forward.h"

#include <functional>
#include <memory>
#include <optional>

namespace property {

class CatalogueSearch;

// What the editors of all kinds work with. It outlives them.
struct EditorTools
{
    session::Session& session;
    const session::Texts& texts;
    structure::Structure& structure;
    CatalogueSearch& catalogue;
    Element& element;
    Controls& controls;
    // Tells why an input is refused, with the focus on the field named.
    std::function<void(const QString& message, const char* field)> refuse;
    std::function<void()> changed; // something in the controls
};

// What editors do with the controls.
class EditorBase
{
public:
    explicit EditorBase(const EditorTools& with) : with_(with) {}
    virtual ~EditorBase() = default;
    EditorBase(const EditorBase&) = delete;
    EditorBase& operator=(const EditorBase&) = delete;

protected:
    using Field = Control Controls::*;

    void show(std::initializer_list<Field> fields) const;
    void caption(Field label, int text) const;
    void allow(std::initializer_list<Field> fields, bool editable) const;

    const EditorTools& with_;
};

// The dialog for one kind of element: what it reads, what stands in which control, what it checks and writes.
class Editor : public EditorBase
{
public:
    using EditorBase::EditorBase;

    // The statement whose rows are shown.
    virtual QString statement() const = 0;
    // Whether it may have none.
    virtual bool mayBeEmpty() const { return false; }
    // Fills the fields. One that can't show what the company holds stays empty, and the rest is filled: why
    // is the result.
    virtual std::optional<platform::RuntimeError> fill(platform::Recordset& rows) = 0;
    // Shows the controls of this kind; the fields are editable or locked.
    virtual void arrange(bool editable) = 0;
    // The operator comes to the drop-down list.
    virtual void enterList() {}
    // Puts a stored value into the fields as if it had been typed; false where there is none to put it in.
    virtual bool take(const std::optional<QString>&) { return false; }
    // What is told beside the controls, from what stands in them now.
    virtual void tell(Details&) const {}
    // Checks what was entered and writes it; true when it is in the company.
    virtual bool update() = 0;

protected:
    // Fails when the element isn't in the company any more: nothing may be shown that it doesn't hold.
    void write(const QString& statement) const;
};

// By the level of the element.
std::unique_ptr<Editor> makeEditor(const EditorTools& with);

// What the company or the catalogue no longer holds can't be edited: whatever was typed would replace values
// that nobody saw.
[[noreturn]] void failWithoutRow(const Element& element);

} // namespace property
