// The pictures of the manual, from the running program on the demo company with the virtual instrument.
// docs/manual/make asks for them: CALIDORA_MANUAL_PICTURES names their folder, CALIDORA_MANUAL_COMPANY the
// demo company.
#include "gui/GuiFixture.h"

#include "../events/LogText.h"
#include "instrument/CompanyFile.h"
#include "support/BusFixture.h"

#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QToolBar>

namespace {

const QString kRoom = "2_1_8", kControl = "3_1_8_G0201"; // CELLA CARNE in the first plant, and how it cools

class ManualPictures : public gui::GuiFixture, public testing::WithParamInterface<const char*>
{
protected:
    void SetUp() override
    {
        if (qEnvironmentVariable("CALIDORA_MANUAL_PICTURES").isEmpty())
            GTEST_SKIP() << "docs/manual/make asks for the pictures";
        setLanguage(GetParam());
        QDir(session.AppPath).mkpath("Log");
        company_ = file("Data/Demo.mdb");
        ASSERT_TRUE(QFile::copy(qEnvironmentVariable("CALIDORA_MANUAL_COMPANY"), company_));
        // The model is as old as the company, and the list is a report.
        const QString version = support::column(company_, "SELECT Version FROM tbInfoDatabase").value(0);
        support::runSql(modelFile(), QStringLiteral("UPDATE tbInfoDatabase SET Version = '%1'").arg(version));
        session.ListBusSet.View = 3;
        desktop.atTheGate = [this] { enterAs("1", "1234"); };
    }

    void begin()
    {
        start("Demo.mdb");
        window()->resize(1000, 620);
        clickNode("1_1");
    }
    void take(QWidget& form, const QString& name) const
    {
        QApplication::processEvents();
        const QString folder =
            qEnvironmentVariable("CALIDORA_MANUAL_PICTURES") + '/' + session.Language.Code.toLower();
        EXPECT_TRUE(QDir().mkpath(folder));
        EXPECT_TRUE(form.grab().save(folder + '/' + name + ".png"));
    }
    void dialog(const QString& name, const QString& picture, const std::function<void()>& open,
                const std::function<void(QDialog&)>& before = {})
    {
        inside(name, [&](QDialog& form) {
            if (before)
                before(form);
            take(form, picture);
        });
        open();
    }
    void dialog(const QString& name, const QString& picture)
    {
        dialog(name, picture, [&] { desktop.platform::DesktopOperator::showFormModal(name); });
    }
    void change(const char* IDPar, const char* value)
    {
        support::runSql(company_,
                        QStringLiteral("UPDATE tbParametersUser SET Value = '%1', State = 1 WHERE IDGrp = 1 "
                                       "AND IDInst = 8 AND IDPar = '%2'")
                            .arg(value, IDPar));
    }
    // What went on in the last days, for the event viewer.
    void writeLog()
    {
        const auto line = [](const char* type, int day, const QByteArray& time, const char* source,
                             const char* instrument, const char* text) {
            const QByteArray date = QByteArray::number(day).rightJustified(2, '0') + "/11/2026 ";
            return logs::line(type, date + time, source, "SUPERMERCATO AURORA", instrument, text) + '\n';
        };
        QFile log(session.appFile("Log/Calidora_20261120101500.log"));
        ASSERT_TRUE(log.open(QIODevice::WriteOnly));
        for (int day = 2; day < 20; ++day) {
            for (int time = 0; time < 3 + day % 4; ++time) {
                const QByteArray clock = QByteArray::number(8 + time).rightJustified(2, '0') + ":15:30";
                log.write(line(time % 5 == 4   ? "3"
                               : time % 4 == 3 ? "2"
                                               : "1",
                               day, clock, "2", "CELLA CARNE", time % 5 == 4 ? "Error!" : "OK"));
            }
        }
        log.write(line("2", 19, "23:40:02", "1", "CELLA SURGELATI", "High temperature"));
    }

    QString company_;
};

TEST_P(ManualPictures, Start)
{
    dialog("frmLanguage", "language");
    desktop.atTheGate = nullptr;
    inside("frmLogInOut", [&](QDialog& form) {
        form.findChild<QComboBox*>()->setCurrentIndex(form.findChild<QComboBox*>()->findText("TECNICO"));
        take(form, "login");
        enterAs("1", "1234");
        form.accept();
    });
    start("Demo.mdb");
    window()->resize(1000, 560);
    desktop.script.expect(texts(503), platform::answers::kYes);
    button("CloseDb")->trigger();
    take(*window(), "empty");
}

TEST_P(ManualPictures, Plant)
{
    change("P020101", "1.5");
    change("P020106", "22:30:00");
    begin();
    clickNode(kRoom);
    clickNode(kControl);
    take(*window(), "plant");

    clickNode("1_1");
    dialog("frmZoom", "types", [&] { program.handlers().run("New"); });

    const auto beside = [&](const char* command, const char* form, const char* picture) {
        program.handlers().run(command);
        QWidget* shown = desktop.form(form);
        if (auto* field = shown->findChild<QLineEdit*>("txtFind"))
            type(field, "carne");
        QTest::qWait(700); // the search runs beside
        take(*shown, picture);
        desktop.unloadForm(form);
    };
    beside("Find", "frmFind", "find");
    beside("Pending", "frmPending", "pending");
}

TEST_P(ManualPictures, Editing)
{
    begin();
    clickNode(kControl);
    plant().pressItem("4_1_8_G0201_P020101");
    dialog("frmProperty", "property", [&] { program.handlers().run("Property"); });
    const QStringList copied = support::column(
        company_,
        "SELECT '4_' || IDGrp || '_' || IDInst || '_' || IDParGrp || '_' || IDPar FROM tbParametersUser "
        "JOIN tbParam ON mID = IDPar WHERE IDGrp = 1 AND mIDCopy IS NOT NULL ORDER BY IDInst, IDPar");
    ASSERT_FALSE(copied.isEmpty());
    const QString key = copied.first();
    clickNode("3" + key.section('_', 0, 3).mid(1));
    plant().pressItem(key);
    inside("frmProperty", [&](QDialog& form) {
        inside("frmPropertyCopy", [&](QDialog& copy) { take(copy, "property-copy"); });
        form.findChild<QPushButton*>("cmdCopy")->click();
    });
    program.handlers().run("Property");
}

TEST_P(ManualPictures, HistoryAndCompare)
{
    begin();
    clickNode(kControl);
    using values::ValueCause;
    const std::tuple<const char*, int, ValueCause, int> changes[] = {
        {"2.0", 1, ValueCause::Edited, 20},    {"2.0", 0, ValueCause::CheckedOk, 600},
        {"-1.5", 1, ValueCause::Edited, 15},   {"-1.5", 0, ValueCause::CheckedError, 30},
        {"2.0", 0, ValueCause::Read, 1500},    {"1.5", 1, ValueCause::Edited, 10},
        {"1.5", 0, ValueCause::CheckedOk, 240}};
    for (const auto& [value, state, cause, minutes] : changes) {
        const values::Causing causing(session.cnDatabase, cause);
        session.cnDatabase.Execute(
            QStringLiteral("UPDATE tbParametersUser SET Value = '%1', State = %2 WHERE IDGrp = 1 AND "
                           "IDInst = 8 AND IDPar = 'P020101';")
                .arg(value)
                .arg(state));
        clock.run(minutes * 60'000);
    }
    plant().pressItem("4_1_8_G0201_P020101");
    program.handlers().run("History");
    QTest::qWait(700); // it is read beside
    desktop.form("frmHistory")->resize(900, 520);
    take(*desktop.form("frmHistory"), "history");
    desktop.unloadForm("frmHistory");
    clickNode(kRoom);
    program.handlers().run("CompareNode");
    QTest::qWait(700);
    desktop.form("frmCompare")->resize(960, 300);
    take(*desktop.form("frmCompare"), "compare");
}

TEST_P(ManualPictures, Line)
{
    change("P020101", "1.5");
    change("P020106", "22:35:00"); // between the steps: the check will say so
    begin();
    instrument::Options options;
    options.link = instrument::LinkMode::Cable;
    support::InstrumentPeer peer(clock, port, instrument::loadCompanyFile(company_).plants, options);
    clickNode(kRoom);
    plant().pressItem(kControl);
    inside("frmReadWrite", [&](QDialog& form) {
        auto* toolbar = form.findChild<QToolBar*>("tlbMain");
        const auto press = [&](const char* key) {
            toolbar->findChild<QAction*>(key, Qt::FindDirectChildrenOnly)->trigger();
            QApplication::processEvents();
        };
        const auto until = [&](session::LineStatus status) {
            EXPECT_TRUE(clock.runUntil([&] { return session.COMPort.Status == status; }, 600'000));
        };
        press("Simulator");
        take(form, "console");
        press("Connect");
        until(session::kConnected);
        press("Write");
        clock.run(4000);
        until(session::kConnected);
        take(form, "console-written");

        QTimer waiting;
        QObject::connect(&waiting, &QTimer::timeout, &waiting, [&] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                waiting.stop();
                take(*box, "escape");
                box->reject();
            }
        });
        waiting.start(0);
        desktop.platform::DesktopOperator::messageBox(texts(572) + "\r\n" + texts(573) + "\r\n" + texts(574),
                                                      platform::Buttons::YesNoCancel,
                                                      platform::Icon::Question, session.AppTitle);
        program.handlers().run("LineTrace");
        QTest::qWait(300);
        desktop.form("frmTrace")->resize(1000, 520);
        take(*desktop.form("frmTrace"), "line-trace");
        press("Disconnect");
        clock.run(60'000);
    });
    program.handlers().run("ReadWrite");
}

TEST_P(ManualPictures, Events)
{
    writeLog();
    begin();
    dialog(
        "frmEventViewer", "event-viewer", [&] { program.handlers().run("EventViewer"); },
        [](QDialog& form) {
            form.resize(1000, 560);
            QTest::qWait(500);
        });
    dialog("frmEventFilter", "event-filter");
    dialog("frmMessage", "alarms");
}

TEST_P(ManualPictures, Administration)
{
    begin();
    enterAs(support::kAdministrator);
    dialog(
        "frmUsers", "users", [&] { program.handlers().run("Users"); },
        [](QDialog& form) { form.findChild<QAction*>("Last")->trigger(); });
    enterAs("1", "1234");
    dialog("frmUpgrade", "upgrade");
    printers.printers = {{"Officina", "usb", "Inkwell 3"}, {"Ufficio", "ipp", "LaserMark 20"}};
    dialog("frmPrinters", "printers", [&] {
        program.printing().print({"Plant", platform::Orientation::Portrait,
                                  [](platform::Printer& paper) { paper.printLine("x"); }});
    });
    const char* pages[] = {"settings-company", "settings-log", "settings-port"};
    for (int page = 0; page < 3; ++page) {
        dialog(
            "frmSettings", pages[page], [&] { program.handlers().run("Settings"); },
            [page](QDialog& form) { form.findChild<QTabWidget*>()->setCurrentIndex(page); });
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, ManualPictures,
                         testing::Values("EN_English_2000", "IT_Italiano_1000", "RU_Russian_6000"));

} // namespace
