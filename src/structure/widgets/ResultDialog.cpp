#include "structure/widgets/ResultDialog.h"

#include "platform/Guard.h"
#include "platform/widgets/Icons.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"
#include "structure/Jump.h"
#include "structure/widgets/ResultView.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>

namespace structure {

ResultDialog::ResultDialog(Structure& structure, session::Session& session, const session::Texts& texts,
                           const Names& names)
    : structure_(structure), session_(session), texts_(texts), layout_(new QVBoxLayout(this)),
      pages_(new QStackedWidget(this)), view_(new ResultView(results_)), bottom_(new QHBoxLayout),
      cmdShow_(new QPushButton(this)), title_(names.title), words_(new QLabel(this)),
      cmdClose_(new QPushButton(this))
{
    setObjectName(names.form);
    setWindowIcon(platform::icon(names.icon));
    view_->setObjectName(names.list);
    words_->setObjectName(names.words);
    words_->setTextFormat(Qt::PlainText);
    words_->setWordWrap(true);
    cmdShow_->setObjectName("cmdShow");
    cmdClose_->setObjectName("cmdClose");
    for (QPushButton* button : {cmdShow_, cmdClose_})
        button->setAutoDefault(false);

    pages_->addWidget(view_);
    bottom_->addWidget(words_, 1);
    bottom_->addWidget(cmdShow_);
    bottom_->addWidget(cmdClose_);
    layout_->setContentsMargins(14, 14, 14, 12);
    layout_->setSpacing(10);
    layout_->addWidget(pages_, 1);
    layout_->addLayout(bottom_);
    resize(680, 460);
    connect(view_, &ResultView::taken, this, &ResultDialog::take);
    connect(cmdClose_, &QPushButton::clicked, this, &QDialog::reject);
}

void ResultDialog::showItems(const std::vector<ListItem>& items)
{
    const QString selected = view_->selectedKey();
    results_.setItems(items);
    view_->select(selected);
    cmdShow_->setEnabled(!items.empty());
}

void ResultDialog::say(const QString& words)
{
    words_->setText(words);
}

void ResultDialog::take(const QString& key)
{
    if (!key.isEmpty() && !jumpTo(structure_, key))
        say(texts_.own("find.gone"));
}

void ResultDialog::relabel()
{
    setWindowTitle(session_.AppTitle + '\\' + texts_.own(title_));
    platform::guarded("Module/Set_Language", [this] {
        results_.setColumnCaptions(
            {texts_(session::rows::kName), texts_(session::rows::kValue), texts_.own("find.place")});
    });
    cmdShow_->setText(texts_.own("find.show"));
    cmdClose_->setText(texts_.own("find.close"));
}

void ResultDialog::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        relabel();
}

} // namespace structure
