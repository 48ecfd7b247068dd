#pragma once

#include "property/NamedEditor.h"

namespace property {

// Of the address only the last digit is edited. What stands before it is kept in a field that nobody sees.
class InstrumentEditor : public NamedEditor
{
public:
    using NamedEditor::NamedEditor;
    QString statement() const override;
    std::optional<platform::RuntimeError> fill(platform::Recordset& rows) override;
    void arrange(bool editable) override;
    void tell(Details& details) const override;
    bool update() override;

private:
    std::optional<platform::RuntimeError> fillAddress(const QString& address);
    bool isAddressAccepted() const;
    QString wholeAddress() const;
    QString sharers(const QString& address) const;
    bool keepsAddress() const { return !addressShown_ && !with_.controls.txtVal3.touched; }

    QString storedAddress_;
    bool addressShown_ = true;
};

} // namespace property
