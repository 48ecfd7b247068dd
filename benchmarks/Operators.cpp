// Measures the windows of the operators on a company that has 1,000 of them, and what the enabling of the
// commands costs at a selection: calidora-operators <company file>
//
// The file stays as it was: the operators stand in a transaction that is rolled back.

#include "Measure.h"
#include "WindowedProgram.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTextStream>
#include <QTimer>

namespace {

constexpr int kOperators = 1000;
const QString kVisible = QStringLiteral("<= 100 ms");

QString milliseconds(double time)
{
    return QString::asprintf("%.3f ms", time);
}

// The menus of both children, the toolbar, and all that the windows show of them.
void measureEnabling(WindowedProgram& program)
{
    constexpr int kRounds = 200;
    session::CommandStates& commands = program.program.commands();
    const double all = measure::milliseconds([&] {
        for (int round = 0; round < kRounds; ++round) {
            const int level = round % 4;
            commands.EnableDisable_Menu(session::Place::Tree, level);
            commands.EnableDisable_MainMenu(level);
            commands.EnableDisable_TlbMainButtons(level);
        }
    });
    measure::printFigure(QStringLiteral("Enabling at a selection, windows included"),
                         milliseconds(all / kRounds), QStringLiteral("<= 1 ms"));
}

void insertOperators(platform::Connection& company)
{
    company.Execute(QStringLiteral(R"(INSERT INTO tbUsers (IDUser, Name, State, Password)
                          WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1)
                          SELECT i, 'OPERATOR ' || (i * 7919 % 10007), 0, 'Secret' FROM n WHERE i NOT IN
                                 (SELECT IDUser FROM tbUsers);)")
                        .arg(kOperators));
}

// A window is there when it has been painted.
QWidget* shown(WindowedProgram& program, const QString& name)
{
    program.op.showForm(name);
    QWidget* form = program.op.form(name);
    form->activateWindow();
    QApplication::processEvents();
    return form;
}

void measureLogin(WindowedProgram& program)
{
    const double time = measure::milliseconds([&] { shown(program, QStringLiteral("frmLogInOut")); });
    measure::printFigure(QStringLiteral("frmLogInOut"), milliseconds(time), kVisible);
    program.op.unloadForm(QStringLiteral("frmLogInOut"));
}

void measureEditor(WindowedProgram& program)
{
    QWidget* form = nullptr;
    const double open = measure::milliseconds([&] { form = shown(program, QStringLiteral("frmUsers")); });
    measure::printFigure(QStringLiteral("frmUsers"), milliseconds(open), kVisible);

    auto* next = form->findChild<QAction*>(QStringLiteral("mnuNext"));
    const double walk = measure::milliseconds([&] {
        for (int step = 0; step < kOperators; ++step) {
            next->trigger();
            QApplication::processEvents();
        }
    });
    measure::printFigure(QStringLiteral("  from one operator to the next"), milliseconds(walk / kOperators),
                         kVisible);

    auto* number = form->findChild<QLineEdit*>(QStringLiteral("txtIDUser"));
    number->setFocus();
    number->selectAll();
    QKeyEvent asks(QEvent::KeyPress, Qt::Key_Asterisk, Qt::NoModifier, QStringLiteral("*"));
    QApplication::sendEvent(number, &asks);
    bool listed = false;
    const double lookUp = measure::milliseconds([&] {
        QTimer waiting;
        QObject::connect(&waiting, &QTimer::timeout, form, [&] {
            auto* list = qobject_cast<QDialog*>(program.op.form(QStringLiteral("frmZoom")));
            if (!list || !list->isVisible())
                return;
            QApplication::processEvents(); // it is painted
            listed = true;
            waiting.stop();
            list->reject();
        });
        waiting.start(0);
        form->findChild<QWidget*>(QStringLiteral("txtUser"))->setFocus();
        while (!listed)
            QApplication::processEvents();
    });
    measure::printFigure(QStringLiteral("  the lookup list"), milliseconds(lookUp), kVisible);
    program.op.unloadForm(QStringLiteral("frmUsers"));
}

} // namespace

int main(int argc, char** argv)
{
    const OffscreenApplication application(argc, argv);
    if (argc != 2) {
        QTextStream(stderr) << "usage: calidora-operators <company file>\n";
        return 2;
    }
    WindowedProgram program(QString::fromLocal8Bit(argv[1]));
    program.connect();
    measure::printHead();
    measureEnabling(program);
    program.session.cnDatabase.BeginTrans();
    insertOperators(program.session.cnDatabase);
    measureLogin(program);
    measureEditor(program);
    program.session.cnDatabase.RollbackTrans();
    return 0;
}
