#include "dialogs/frmLanguage.h"

#include "platform/Guard.h"
#include "platform/widgets/Icons.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "widgets/FormLanguage.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace dialogs {

using namespace session;
using widgets::Set_Language;
using widgets::tagged;

frmLanguage::frmLanguage(Session& session, const Texts& texts, platform::Operator& op)
    : session_(session), texts_(texts), imcLanguage_(tagged(new QComboBox(this), "imcLanguage", {}))
{
    setWindowTitle(session.AppTitle + "\\Language setting");
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    auto* lblLanguage = tagged(new QLabel("-", this), "lblLanguage", "11");
    lblLanguage->setBuddy(imcLanguage_);
    auto* cmdApply = tagged(new QPushButton("-", this), "cmdApply", "15");
    cmdApply->setDefault(true);
    imcLanguage_->setIconSize({24, 24});
    imcLanguage_->setMinimumWidth(260);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(18, 16, 18, 16);
    layout->addWidget(lblLanguage);
    layout->addWidget(imcLanguage_);
    layout->addSpacing(14);
    layout->addWidget(cmdApply, 0, Qt::AlignRight);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    connect(cmdApply, &QPushButton::clicked, this, &frmLanguage::cmdApply_Click);

    fillLanguages();
    Set_Language(*this, session, texts, op);
}

void frmLanguage::fillLanguages()
{
    platform::guarded("frmLanguage.Load", [&] {
        for (int row = 1; texts_.common(row) != "End_Language"; ++row) {
            const LanguageSettings offered = LanguageSettings::fromIdentifier(texts_.common(row));
            imcLanguage_->addItem(platform::icon("flag-" + offered.Code.toLower()), offered.Name, offered.ID);
        }
        imcLanguage_->setCurrentIndex(imcLanguage_->findData(session_.Language.ID));
    });
}

void frmLanguage::cmdApply_Click()
{
    platform::guarded("frmLanguage.cmdApply_Click", [&] {
        session_.Language = LanguageSettings::fromIdentifier(imcLanguage_->currentData().toString());
        accept();
    });
}

} // namespace dialogs
