#include "structure/frmListBus.h"

#include "session/Session.h"
#include "session/Texts.h"
#include "structure/Structure.h"
#include "structure/widgets/FilterField.h"
#include "structure/widgets/ListBusView.h"
#include "widgets/ElidedLabel.h"
#include "widgets/FormUnits.h"
#include "widgets/PlainToolTip.h"

#include <QKeyEvent>
#include <QProgressBar>
#include <QVBoxLayout>

namespace structure {

frmListBus::frmListBus(Structure& structure, session::Session& session, const session::Texts& texts,
                       QWidget* parent)
    : QWidget(parent), structure_(structure), session_(session), texts_(texts),
      lblPath_(new widgets::ElidedLabel(this)), txtFilter_(new FilterField(structure, this)),
      lvwBus_(new ListBusView(structure.list(), this)), lblUpdate_(new widgets::ElidedLabel(this)),
      prgUpdate_(new QProgressBar(this))
{
    setObjectName("frmListBus");
    lblPath_->setObjectName("lblPath");
    lblPath_->setTextFormat(Qt::PlainText);
    lblPath_->setContentsMargins(8, 5, 8, 5);
    // A long path must not hold the window wide.
    lblPath_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    txtFilter_->setObjectName("txtFilter");
    lvwBus_->setObjectName("lvwBus");
    lblUpdate_->setObjectName("lblUpdate");
    lblUpdate_->setTextFormat(Qt::PlainText);
    lblUpdate_->setContentsMargins(8, 3, 8, 3);
    lblUpdate_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    lblUpdate_->hide();
    prgUpdate_->setObjectName("prgUpdate");
    prgUpdate_->setTextVisible(false);
    prgUpdate_->setFixedHeight(6);
    prgUpdate_->hide();
    setFocusProxy(lvwBus_);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(lblPath_);
    layout->addWidget(txtFilter_);
    layout->addWidget(lvwBus_, 1);
    layout->addWidget(lblUpdate_);
    layout->addWidget(prgUpdate_);

    restoreColumnWidths();
    listen();
    structure.Set_View_ListBus(std::max<int>(session.ListBusSet.View, 0));
}

void frmListBus::listen()
{
    connect(lvwBus_, &ListBusView::itemPressed, &structure_, &Structure::pressItem);
    connect(lvwBus_, &ListBusView::itemOpened, &structure_, &Structure::openItem);
    connect(lvwBus_, &ListBusView::columnClicked, &structure_, &Structure::clickColumn);
    connect(lvwBus_, &ListBusView::menuWanted, this, &frmListBus::menuWanted);
    connect(lvwBus_, &ListBusView::insertPressed, this, [this] { emit commandWanted("New"); });
    connect(lvwBus_, &ListBusView::deletePressed, this, [this] { emit commandWanted("Delete"); });
    connect(lvwBus_, &ListBusView::enterPressed, this, [this] { emit commandWanted("Property"); });
    connect(lvwBus_, &ListBusView::parentPressed, this, [this] { emit commandWanted("Parent"); });

    connect(txtFilter_, &FilterField::listWanted, this, [this] { lvwBus_->setFocus(); });

    connect(&structure_.list(), &ListModel::filterChanged, this, &frmListBus::showEmptyText);
    connect(&structure_, &Structure::levelLoaded, this, &frmListBus::showEmptyText);
    connect(&structure_, &Structure::nodeSelected, this, &frmListBus::showEmptyText);
    connect(&structure_, &Structure::itemSelected, lvwBus_, &ListBusView::select);
    connect(&structure_, &Structure::updateShown, this, &frmListBus::showProgress);
    connect(&structure_, &Structure::updateProgress, this, &frmListBus::setProgress);
    connect(&structure_, &Structure::listFocusWanted, lvwBus_, [this] { lvwBus_->setFocus(); });
    connect(&structure_, &Structure::viewChanged, lvwBus_, &ListBusView::setView);
    connect(&structure_, &Structure::pathChanged, this, [this] {
        lblPath_->setText(structure_.path());
        lblPath_->setToolTip(widgets::plainToolTip(structure_.path()));
    });
}

void frmListBus::showFilter()
{
    txtFilter_->open();
}

void frmListBus::showEmptyText()
{
    const int level = structure_.levelOfTree();
    const char* words = level == kRoot    ? "list.empty.root"
                        : level == kGroup ? "list.empty.group"
                                          : "list.empty";
    if (!structure_.list().filter().isEmpty())
        words = "filter.nothing";
    lvwBus_->setEmptyText(texts_.own(words));
}

void frmListBus::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && txtFilter_->isVisible())
        txtFilter_->dismiss();
    else
        QWidget::keyPressEvent(event);
}

void frmListBus::keepColumnWidths()
{
    session_.ListBusSet.Col1Width = widgets::formUnits(lvwBus_->columnWidth(0));
    session_.ListBusSet.Col2Width = widgets::formUnits(lvwBus_->columnWidth(1));
    session_.ListBusSet.Col3Width = widgets::formUnits(lvwBus_->columnWidth(2));
}

void frmListBus::restoreColumnWidths()
{
    lvwBus_->setColumnWidth(0, widgets::pointsOf(session_.ListBusSet.Col1Width));
    lvwBus_->setColumnWidth(1, widgets::pointsOf(session_.ListBusSet.Col2Width));
    lvwBus_->setColumnWidth(2, widgets::pointsOf(session_.ListBusSet.Col3Width));
}

void frmListBus::showProgress(bool visible)
{
    prgUpdate_->reset();
    prgUpdate_->setVisible(visible);
    if (!visible)
        lblUpdate_->hide();
    layout()->activate();
}

void frmListBus::tellStep(const QString& words)
{
    lblUpdate_->setText(words);
    if (lblUpdate_->isHidden()) {
        lblUpdate_->show();
        layout()->activate();
    }
    lblUpdate_->repaint();
}

void frmListBus::setProgress(int percent)
{
    if (prgUpdate_->value() == percent)
        return;
    prgUpdate_->setValue(percent);
    prgUpdate_->repaint();
}

void frmListBus::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    txtFilter_->setPlaceholderText(texts_.own("filter.hint"));
    showEmptyText();
    structure_.Set_ColName_ListBus(shownLevel());
}

int frmListBus::shownLevel() const
{
    const QString node = structure_.selectedNode();
    const bool showsRootItem = structure_.list().item(kRootKey) != nullptr;
    return node.isEmpty() || showsRootItem ? kNoSelection : Extract_Level(node);
}

} // namespace structure
