// Reads and writes without end, to be killed in the middle of it: bus and console on a company file of its
// own, over a virtual line that answers at once. It tells on its standard output what it is about to do and
// each line that the program logs, before that line is stored.
//
//   company FILE
//   # parameters K      values of pattern K are read one by one
//   # banks K           values of pattern K are read as a whole
//   # change K          the operator changes values
//   # write K           they are changed, and written from here on
//   TEXT                a logged line

#include "support/BusFixture.h"

#include <QCoreApplication>

#include <unistd.h>

namespace {

constexpr int kPatterns = 50;
constexpr int kStatusBank = 1;

// Straight to the pipe: nothing that was told may be lost with the process.
void tell(const QString& line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    if (write(STDOUT_FILENO, bytes.constData(), std::size_t(bytes.size())) < 0)
        _exit(1);
}

class Worker : public support::BusFixture
{
public:
    Worker()
    {
        const auto show = eventLog.onLine;
        eventLog.onLine = [this, show](const QString& when, const QString& description) {
            if (!opening_)
                tell(description);
            show(when, description);
        };
        plugIn(instrument::LinkMode::Cable);
        tell("company " + plantFile());
    }

    void work()
    {
        for (int pattern = 0;; pattern = (pattern + 1) % kPatterns) {
            hold(pattern);
            open("3_1_1_G01");
            if (session.COMPort.Status == 0)
                connectOverCable();
            tell(QStringLiteral("# parameters %1").arg(pattern));
            console.Read_Param();
            waitWhileBusy();

            hold((pattern + 7) % kPatterns);
            open("2_1_1");
            tell(QStringLiteral("# banks %1").arg((pattern + 7) % kPatterns));
            console.Read_Param();
            waitWhileBusy();

            tell(QStringLiteral("# change %1").arg(pattern));
            change(pattern);
            tell(QStringLiteral("# write %1").arg(pattern));
            console.Write_Param();
            waitWhileBusy();
            if (pattern % 2 != 0) {
                console.Disconnect();
                waitWhileBusy();
            }
        }
    }

private:
    void TestBody() override {}

    // Two readings of one bank that tell the pattern: P0101 and P0102.
    void hold(int pattern)
    {
        instrument::Memory& memory = peer->device.plants().front().instruments.at("00");
        memory.set(kStatusBank, 0, QByteArray(1, char(50 + pattern)));
        memory.set(kStatusBank, 1, QByteArray(1, char(10 + pattern)));
    }

    // The lines of the connection so far are shown again when the console opens on it.
    void open(const QString& key)
    {
        opening_ = true;
        openConsole(key);
        opening_ = false;
    }

    // One value of each kind: a byte, a bit field, a text.
    void change(int pattern)
    {
        const QString set = QStringLiteral("UPDATE tbParametersUser SET Value = '%1', State = 1 "
                                           "WHERE IDGrp = 1 AND IDInst = 1 AND IDPar = '%2'");
        platform::Transaction transaction(session.cnDatabase);
        session.cnDatabase.Execute(set.arg(pattern % 3).arg("P0201"));
        session.cnDatabase.Execute(set.arg(pattern % 8).arg("P0202"));
        session.cnDatabase.Execute(set.arg(QStringLiteral("ROOM%1").arg(pattern), "P0204"));
        transaction.commit();
    }

    bool opening_ = false;
};

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    Worker().work();
}
