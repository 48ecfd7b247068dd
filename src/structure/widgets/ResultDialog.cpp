#include "structure/widgets/ResultDialog.h"

#include "platform/Guard.h"
#include "platform/widgets/Icons.h"
#include "platform/widgets/InsideScreen.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"
#include "structure/Jump.h"
#include "structure/widgets/ListBusView.h"
#include "structure/widgets/ResultView.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>

namespace structure {

ResultDialog::ResultDialog(Structure& structure, session::Session& session, const session::Texts& texts,
                           const Names& names, int columns)
    : structure_(structure), session_(session), texts_(texts), results_(columns),
      layout_(new QVBoxLayout(this)), pages_(new QStackedWidget(this)), view_(new ResultView(results_)),
      commands_(new QHBoxLayout), bottom_(new QHBoxLayout), cmdShow_(new QPushButton(this)),
      title_(names.title), words_(new QLabel(this)), cmdClose_(new QPushButton(this))
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
    layout_->addLayout(commands_);
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
    if (key.isEmpty())
        return;
    if (jumpTo(structure_, key))
        stayClear();
    else
        say(texts_.own("find.gone"));
}

// What was found lies in the main window: this one goes out of its way.
void ResultDialog::stayClear()
{
    const QWidget* main = parentWidget() ? parentWidget()->window() : nullptr;
    const auto* list = main ? main->findChild<ListBusView*>() : nullptr;
    const auto* view = list ? qobject_cast<QAbstractItemView*>(list->currentWidget()) : nullptr;
    if (!view || !view->currentIndex().isValid())
        return;
    const QRect row = view->visualRect(view->currentIndex()) & view->viewport()->rect();
    const QRect found(view->viewport()->mapToGlobal(row.topLeft()), row.size());
    platform::moveAside(*this, found);
}

void ResultDialog::relabel()
{
    setWindowTitle(session_.AppTitle + '\\' + texts_.own(title_));
    platform::guarded("Module/Set_Language", [this] {
        results_.setColumnCaptions({texts_(session::rows::kName), texts_(session::rows::kValue),
                                    texts_.own("find.place"), texts_.own("pending.known")});
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
