#include "events/EventViewer.h"

#include "events/EventPrint.h"
#include "events/EventReport.h"
#include "platform/Clock.h"
#include "platform/Guard.h"
#include "platform/TextFile.h"
#include "session/Printing.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"
#include "values/NumberMask.h"

#include <QDir>
#include <QFileInfo>

namespace events {

using namespace platform;

namespace {

constexpr int kCommaDelimited = 2; // among the forms of the file dialog
constexpr char kExportLineEnd[] = "\r\n";

QString grouped(qint64 number)
{
    return values::formatMask(QString::number(number), QStringLiteral("#,##0"));
}

QDateTime dateTimeOf(Stamp stamp)
{
    return {dateOf(stamp), timeOf(stamp), Qt::UTC};
}

} // namespace

// The progress of an export, gone again on every way out.
class EventViewer::ExportShown
{
public:
    explicit ExportShown(EventViewer& viewer) : viewer_(viewer) { viewer_.showExported(0); }
    ~ExportShown() { viewer_.showExported({}); }
    ExportShown(const ExportShown&) = delete;
    ExportShown& operator=(const ExportShown&) = delete;

private:
    EventViewer& viewer_;
};

EventViewer::EventViewer(const Surroundings& with)
    : session_(with.session), texts_(with.texts), operator_(with.op), clock_(with.clock),
      printing_(with.printing)
{
    nextSlice_.setSingleShot(true);
    connect(&nextSlice_, &QTimer::timeout, this, [this] { readOn([] {}); });
}

void EventViewer::load()
{
    filter_ = {};
    filter_.Active = booleanText(false);
    // To the second, and free of any time zone, as the files have it.
    const QDateTime now = clock_.now();
    txtMinDate_ = txtMaxDate_ = dateTimeOf(stampOf(now.date(), now.time()));
    counts_.reset();
    info_.clear();
    unread_.clear();
}

void EventViewer::unload()
{
    list_.clear(session_.CodePage);
    endLoad();
    list_.setNeedle({});
    list_.setSpan({});
    list_.resetSort();
}

bool EventViewer::Read_Log()
{
    endLoad();
    return readOn([this] {
        busy_.emplace(operator_);
        list_.clear(session_.CodePage);
        unread_.clear();
        relabel();
        load_.emplace(
            LogLoad::Source{session_.appFile(QStringLiteral("Log")), session_.ExeName, session_.CodePage},
            filter_, list_.store());
    });
}

// On a failure the load is over, and the list shows what it has.
bool EventViewer::readOn(const std::function<void()>& begin)
{
    return guarded("Module/Read_Log", [&] {
        try {
            begin();
            readSlice();
        } catch (...) {
            endLoad();
            throw;
        }
        return true;
    });
}

void EventViewer::readSlice()
{
    const bool more = load_->step();
    unread_ = load_->unread();
    if (more) {
        list_.grow();
        nextSlice_.start();
    } else {
        keepResult();
        endLoad();
    }
    emit changed();
}

void EventViewer::keepResult()
{
    counts_ = Counts{isFiltered(), load_->shown(), load_->total()};
    composeInfo();
    if (load_->oldest() == kNoStamp)
        return;
    txtMinDate_ = dateTimeOf(load_->oldest());
    txtMaxDate_ = dateTimeOf(load_->newest());
}

void EventViewer::endLoad()
{
    if (!busy_)
        return;
    nextSlice_.stop();
    if (load_)
        unread_ = load_->unread();
    load_.reset();
    list_.finish();
    busy_.reset();
    emit changed();
}

void EventViewer::Check_List()
{
    setAllChecked(true);
}

void EventViewer::UnCheck_List()
{
    setAllChecked(false);
}

void EventViewer::setAllChecked(bool checked)
{
    const BusyPointer busy(operator_);
    list_.setAllChecked(checked);
}

void EventViewer::Filter_Events()
{
    guarded("frmEventViewer/Filter_Events",
            [this] { operator_.showFormModal(QStringLiteral("frmEventFilter")); });
    emit changed();
}

void EventViewer::All_Events()
{
    filter_.Active = booleanText(false);
    emit changed();
    Read_Log();
}

void EventViewer::composeInfo()
{
    if (!counts_)
        return;
    const QString total = grouped(counts_->total);
    info_ = counts_->filtered
                ? QStringList{texts_(245), grouped(counts_->shown), texts_(246), total}.join(QLatin1Char(' '))
                : texts_(247) + QLatin1Char(' ') + total;
}

std::optional<int> EventViewer::progress() const
{
    return load_ ? load_->percent() : exported_;
}

bool EventViewer::somethingChecked()
{
    if (list_.checkedCount() > 0)
        return true;
    operator_.messageBox(texts_(session::rows::kSelectRecords), Buttons::Ok, Icon::Information,
                         session_.AppTitle);
    return false;
}

void EventViewer::Export_List()
{
    guarded("frmEventViewer/Export_List", [this] {
        if (!somethingChecked())
            return;
        const std::optional<ChosenFile> file = askFile();
        if (!file)
            return;
        session_.DirExport = QDir::toNativeSeparators(QFileInfo(file->name).path());
        writeFile(*file);
        operator_.messageBox(texts_(session::rows::kDone), Buttons::Ok, Icon::Information, session_.AppTitle);
    });
}

// The chosen file, or none when the operator cancelled.
std::optional<ChosenFile> EventViewer::askFile()
{
    try {
        return operator_.saveFile({texts_(session::rows::kSaveAs),
                                   texts_(session::rows::kTextFilters),
                                   {},
                                   session::exportFolder(session_)});
    } catch (const RuntimeError& error) {
        if (error.number != errors::kCancelled)
            throw;
        session::tellCancelled(session_, texts_, operator_);
        return std::nullopt;
    }
}

void EventViewer::writeFile(const ChosenFile& file)
{
    const BusyPointer busy(operator_);
    const ExportShown shown(*this);
    const auto line = file.filterIndex == kCommaDelimited ? commaLine : fixedLine;
    const EventWords& words = list_.words();
    TextWriter writer(file.name, session_.CodePage, kExportLineEnd);
    writer.WriteLine(line({words.headings.begin(), words.headings.end()}));
    const qint64 count = list_.checkedCount();
    qint64 done = 0;
    for (int row = 0; row < list_.rowCount(); ++row) {
        if (!list_.isChecked(row))
            continue;
        writer.WriteLine(line(list_.cells(row)));
        showExported(int(++done * 100 / count));
    }
    writer.commit();
}

void EventViewer::showExported(const std::optional<int>& percent)
{
    if (percent == exported_)
        return;
    exported_ = percent;
    emit changed();
    operator_.repaint();
}

void EventViewer::Print_List()
{
    guarded("frmEventViewer/Print_List", [this] {
        if (!somethingChecked())
            return;
        const EventPrint pages{texts_(session::rows::kEventViewer), session_.CompanySet[session::Company],
                               clock_.now().date(), texts_(session::rows::kPage)};
        printing_.print({texts_(session::rows::kEventViewer), Orientation::Landscape,
                         [&](Printer& printer) { pages.write(printer, list_); }});
    });
}

void EventViewer::Show_Event(int row)
{
    if (row < 0 || row >= list_.rowCount())
        return;
    guarded("frmEventViewer/Show_Event", [&] {
        shownEvent_ = list_.cells(row);
        shownType_ = list_.typeAt(row);
        place_.clear();
        emit placeWanted(shownEvent_[int(EventColumn::Equipment)], shownEvent_[int(EventColumn::Instrument)]);
        operator_.showFormModal(QStringLiteral("frmEventText"));
    });
}

QString EventViewer::narrowed() const
{
    if (isLoading())
        return texts_.own("viewer.reading").arg(grouped(list_.rowCount()));
    if (list_.isSorting())
        return texts_.own("viewer.sorting");
    return list_.isNarrowed() ? texts_.own("viewer.narrowed").arg(grouped(list_.rowCount())) : QString();
}

QString EventViewer::unread() const
{
    if (unread_.isEmpty())
        return {};
    if (unread_.size() == 1)
        return texts_.own("viewer.unread").arg(unread_.first());
    return texts_.own("viewer.unread.more").arg(unread_.first(), QString::number(unread_.size() - 1));
}

void EventViewer::relabel()
{
    list_.setWords(
        {{texts_(240), texts_(session::rows::kDate), texts_(242), texts_(session::rows::kEquipment),
          texts_(session::rows::kInstrument), texts_(session::rows::kDescription)},
         {QString(), texts_(213), texts_(214), texts_(215)},
         {QString(), texts_(225), texts_(226)}});
    composeInfo();
}

} // namespace events
