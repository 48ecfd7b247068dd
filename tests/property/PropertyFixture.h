#pragma once

#include "platform/Connection.h"
#include "property/PropertyCopy.h"
#include "property/PropertyModel.h"
#include "support/CompanyFixture.h"

namespace support {

// The property dialog and its copy over the test company, without a window. Elements are opened as the list
// does it, with the right to modify unless the test takes it away.
class PropertyFixture : public CompanyFixture
{
protected:
    PropertyFixture()
    {
        QObject::connect(&model, &property::PropertyModel::focusWanted,
                         [this](const QString& name) { focus = name; });
    }

    // Connects when nothing is, and loads the element into the dialog.
    void open(const QString& key)
    {
        if (session.cnDatabase.State() == platform::Connection::Closed) {
            ASSERT_TRUE(connectPlant());
        }
        model.open(key);
        model.load();
    }

    const property::Controls& controls() const { return model.controls(); }

    // Names of the visible controls, without those that every level shows.
    QStringList visible() const
    {
        static const QStringList kAlways{"lblIDPar", "fraVal", "cmdOK", "cmdCancel", "cmdApply", "cmdCopy"};
        QStringList names;
        for (const property::NamedControl& named : property::namedControls()) {
            if ((controls().*named.control).visible && !kAlways.contains(named.name))
                names << named.name;
        }
        return names;
    }

    // "Value|State" of a parameter.
    QString row(const QString& IDGrp, const QString& IDInst, const QString& IDPar) const
    {
        return column(plantFile(),
                      QStringLiteral("SELECT IfNull(Value, 'NULL') || '|' || State FROM "
                                     "tbParametersUser WHERE IDGrp=%1 AND IDInst=%2 AND IDPar='%3'")
                          .arg(IDGrp, IDInst, IDPar))
            .value(0);
    }

    property::PropertyModel model{session, texts, op, structure};
    property::PropertyCopy copy{session, texts, op, structure, model};
    QString focus; // where the dialog last wanted it
};

} // namespace support
