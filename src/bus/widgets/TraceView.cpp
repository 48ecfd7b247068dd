#include "bus/widgets/TraceView.h"

#include "bus/TraceModel.h"
#include "widgets/ImageDelegate.h"

#include <QFontDatabase>
#include <QHeaderView>
#include <QScrollBar>

namespace bus {

namespace {

constexpr int kRowPadding = 1;
constexpr int kDarkGround = 128; // a base colour below this lightness is the dark palette's

struct Ink
{
    const char* onLight;
    const char* onDark;
};

Ink inkOf(TraceKind kind)
{
    switch (kind) {
    case TraceKind::Read:
        return {"#14608F", "#7CC4F2"};
    case TraceKind::Write:
        return {"#8A5200", "#F5B95F"};
    case TraceKind::Answer:
        return {"#1D6B3A", "#7FD69B"};
    case TraceKind::Poll:
        return {"#5B6B7A", "#A9B8C6"};
    case TraceKind::Alarm:
        return {"#B02A2A", "#FF9A93"};
    case TraceKind::Stray:
        return {"#8B2E7F", "#F09AE4"};
    case TraceKind::Dialogue:
        break;
    }
    return {"#1B2A38", "#E6EDF3"};
}

class KindDelegate : public widgets::ImageDelegate
{
public:
    explicit KindDelegate(QObject* parent) : ImageDelegate(parent) { setRowPadding(kRowPadding); }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        ImageDelegate::initStyleOption(option, index);
        const Ink ink = inkOf(TraceKind(index.data(TraceModel::KindRole).toInt()));
        const bool dark = option->palette.color(QPalette::Base).lightness() < kDarkGround;
        option->palette.setColor(QPalette::Text, QColor(dark ? ink.onDark : ink.onLight));
        if (index.column() == TraceModel::Bytes || index.column() == TraceModel::Plain)
            option->font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    }
};

} // namespace

TraceView::TraceView(TraceModel& model, QWidget* parent) : QTreeView(parent)
{
    setModel(&model);
    setItemDelegate(new KindDelegate(this));
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideRight);
    const int widths[] = {100, 80, 100, 170, 110};
    for (int column = 0; column < int(std::size(widths)); ++column)
        header()->resizeSection(column, widths[column]);
}

void TraceView::keepingTheEnd(const std::function<void()>& change)
{
    const bool atTheEnd = verticalScrollBar()->value() == verticalScrollBar()->maximum();
    change();
    if (atTheEnd)
        scrollToBottom();
}

} // namespace bus
