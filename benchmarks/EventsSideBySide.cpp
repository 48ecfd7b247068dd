// Measures the event viewer, its window on Qt's offscreen platform, against the machine's own tools on the
// same log files in one run: calidora-events-side-by-side <folder>
//
// A load against "cat" of all files into a pipe that is drained, a sort against "sort" of one file that holds
// all lines, on the same field. The logs are generated once: 1,000,000 lines in 180 files.

#include "Measure.h"

#include "events/EventViewer.h"
#include "events/FilterEditor.h"
#include "events/frmEventViewer.h"
#include "platform/Guard.h"
#include "platform/QtClock.h"
#include "platform/RecordingPrinters.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/DesktopOperator.h"
#include "session/Printing.h"
#include "session/Session.h"
#include "session/Texts.h"
#include "widgets/Look.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QTextStream>
#include <QTreeView>
#include <cstdlib>

namespace {

constexpr int kFiles = 180;
constexpr int kLines = 1'000'000;

const char* const kMessages[] = {"*** CONNECTION TO: GROUP %1 ***",
                                 "Connected.",
                                 "Reading request of 8 bytes from address %1 from instrument INST%2",
                                 "Parameter value: %1.%2",
                                 "Parameters group writing into RAM: [States %1] - parameter: [Set point %2]",
                                 "Disconnected."};

QByteArray line(QRandomGenerator& random, const QDateTime& when)
{
    const int dice = random.bounded(100);
    const QString message = QString::fromLatin1(kMessages[random.bounded(int(std::size(kMessages)))])
                                .replace("%1", QString::number(random.bounded(1000)))
                                .replace("%2", QString::number(random.bounded(100)));
    return QByteArray::number(dice < 90   ? 1
                              : dice < 97 ? 2
                                          : 3) +
           when.toString("dd/MM/yyyy HH:mm:ss").toLatin1() + (dice < 95 ? "2  " : "1  ") +
           QStringLiteral("GROUP %1").arg(random.bounded(200)).toLatin1().leftJustified(50) +
           QStringLiteral("INSTRUMENT %1").arg(random.bounded(2000)).toLatin1().leftJustified(50) +
           message.toLatin1().leftJustified(255) + '\n';
}

double shell(const QString& command, const QString& folder)
{
    // Not by a fork, which would have this process's own memory copied at its next writing.
    qputenv("LOGS", QFile::encodeName(folder));
    return measure::milliseconds([&] {
        if (std::system(command.toLocal8Bit()) != 0)
            qFatal("%s", qPrintable(command));
    });
}

void generate(const QString& folder)
{
    QRandomGenerator random(1);
    QDateTime when(QDate(2026, 1, 1), QTime(6, 0), Qt::UTC);
    for (int number = 0; number < kFiles; ++number) {
        when = QDateTime(QDate(2026, 1, 1).addDays(number), QTime(6, 0), Qt::UTC);
        QFile file(folder + when.toString("'/Log/Calidora_'yyyyMMddHHmmss'.log'"));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("%s", qPrintable(file.errorString()));
        const int lines = kLines / kFiles + (number < kLines % kFiles ? 1 : 0);
        for (int i = 0; i < lines; ++i)
            file.write(line(random, when = when.addSecs(random.bounded(20))));
    }
    shell("cat \"$LOGS\"/Log/*.log > \"$LOGS\"/all.txt", folder);
}

// The program's own session and window on the generated logs.
class Viewer
{
public:
    explicit Viewer(const QString& folder)
    {
        session_.AppPath = folder;
        session_.Language = session::LanguageSettings::fromIdentifier("EN_English_2000");
    }

    void open()
    {
        window_ = std::make_unique<events::frmEventViewer>(events::frmEventViewer::Surroundings{
            session_, texts_, operator_, [](const QString&) {}, viewer_});
        window_->show();
    }
    void close() { window_.reset(); }
    void finish()
    {
        while (viewer_.isLoading())
            QApplication::processEvents();
        QApplication::processEvents();
    }
    events::EventViewer& logic() { return viewer_; }
    QTreeView* list() { return window_->findChild<QTreeView*>("lvwItems"); }

private:
    session::Session session_;
    session::Texts texts_{session_.Language};
    platform::DesktopOperator operator_{[this](const QString& key) { return texts_.own(key); }};
    platform::QtClock clock_;
    platform::RecordingPrinters printers_;
    session::Printing printing_{session_, texts_, operator_, printers_};
    events::EventViewer viewer_{{session_, texts_, operator_, clock_, printing_}};
    std::unique_ptr<events::frmEventViewer> window_;
};

const char* const kCat = "cat \"$LOGS\"/Log/*.log | cat > /dev/null";

void measureLoad(Viewer& viewer, const QString& folder)
{
    double firstRows = 0;
    const auto load = [&] {
        return measure::milliseconds([&] {
            QElapsedTimer timer;
            timer.start();
            viewer.open();
            QApplication::processEvents();
            firstRows = double(timer.nsecsElapsed()) / 1e6;
            viewer.finish();
        });
    };
    const auto again = [&] {
        viewer.close();
        return load();
    };
    const measure::Comparison comparison = measure::inTurns(again, [&] { return shell(kCat, folder); });
    measure::printLine("Load of all files, window included; cat", comparison, "<= 3.00");
    measure::printFigure("First rows on the screen", QString::number(firstRows, 'f', 0) + " ms");
    measure::printFigure("Resident", QString::number(measure::residentMegabytes(), 'f', 0) + " MB",
                         "< 500 MB");
}

void measureSort(Viewer& viewer, const QString& folder, const QString& what, int column, const QString& keys)
{
    const QString command =
        "LC_ALL=C sort -s -f -t \"$(printf '\\001')\" " + keys + " \"$LOGS\"/all.txt > /dev/null";
    double pause = 0;
    const auto sort = [&](events::EventColumn by) {
        pause = 0;
        return measure::milliseconds([&] {
            viewer.logic().list().clickColumn(by);
            do
                pause = std::max(pause, measure::milliseconds([] { QApplication::processEvents(); }));
            while (viewer.logic().list().isSorting());
        });
    };
    const auto ours = [&] {
        sort(events::EventColumn::Source); // out of order again
        return sort(events::EventColumn(column));
    };
    measure::printLine("Sort by " + what + "; sort",
                       measure::inTurns(ours, [&] { return shell(command, folder); }), "<= 1.00");
    measure::printFigure("  the window's longest pause meanwhile", QString::number(pause, 'f', 0) + " ms");
}

void measureFilter(Viewer& viewer)
{
    events::FilterEditor editor(viewer.logic());
    const auto filter = [&] {
        return measure::milliseconds([&] {
            editor.load();
            events::FilterControls controls = editor.controls();
            controls.txtEquipment = "GROUP 7";
            controls.chkInfo = !controls.chkInfo;
            editor.change(controls);
            editor.cmdApply();
            viewer.finish();
        });
    };
    const auto load = [&] {
        return measure::milliseconds([&] {
            viewer.logic().All_Events();
            viewer.finish();
        });
    };
    measure::printLine("A filter; a load", measure::inTurns(filter, load), "<= 1.00");
}

void measureWalking(Viewer& viewer)
{
    auto* bar = viewer.list()->verticalScrollBar();
    double slowest = 0;
    constexpr int kSteps = 200;
    const double all = measure::milliseconds([&] {
        for (int step = 0; step < kSteps; ++step)
            slowest = std::max(slowest, measure::milliseconds([&] {
                                   bar->setValue(int(qint64(bar->maximum()) * (step * 37 % kSteps) / kSteps));
                                   viewer.list()->viewport()->repaint();
                               }));
    });
    measure::printFigure("Scrolling, a step (slowest)",
                         QStringLiteral("%1 (%2) ms").arg(all / kSteps, 0, 'f', 1).arg(slowest, 0, 'f', 1));
    for (const char* words : {"e", "value: 99", "2026/05", "no such words"}) {
        const double narrow = measure::milliseconds([&] {
            viewer.logic().list().setNeedle(words);
            QApplication::processEvents();
        });
        measure::printFigure(QStringLiteral("Narrowing to \"%1\"").arg(words),
                             QString::number(narrow, 'f', 0) + " ms");
    }
    viewer.logic().list().setNeedle({});
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    platform::Application application(argc, argv);
    widgets::applyLook(application);
    if (argc != 2) {
        QTextStream(stderr) << "usage: calidora-events-side-by-side <folder>\n";
        return 2;
    }
    platform::setFailureHook([](const platform::Failure& failure) {
        qFatal("%s: %s", qPrintable(failure.procedure), qPrintable(failure.description));
    });
    const QString folder = QString::fromLocal8Bit(argv[1]);
    if (!QFile::exists(folder + "/all.txt")) {
        QDir().mkpath(folder + "/Log");
        generate(folder);
    }
    Viewer viewer(folder);
    shell(kCat, folder); // into the system's cache
    measureLoad(viewer, folder);
    measureSort(viewer, folder, "type", 0, "-k 1.1,1.1");
    measureSort(viewer, folder, "date", 1, "-k 1.8,1.11 -k 1.5,1.6 -k 1.2,1.3 -k 1.13,1.20");
    measureSort(viewer, folder, "equipment", 3, "-k 1.24,1.73");
    measureSort(viewer, folder, "instrument", 4, "-k 1.74,1.123");
    measureSort(viewer, folder, "description", 5, "-k 1.124,1.378");
    measureFilter(viewer);
    measureWalking(viewer);
    measure::printFigure("Resident at the end", QString::number(measure::residentMegabytes(), 'f', 0) + " MB",
                         "< 500 MB");
    return 0;
}
