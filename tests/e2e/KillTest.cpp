#include "e2e/KilledProcess.h"
#include "support/CompanyFixture.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <iostream>
#include <map>
#include <set>

using namespace support;

namespace {

constexpr int kKills = 25;
constexpr int kMostLines = 250;
constexpr int kMostMicroseconds = 3000;
constexpr int kLogLineSize = 378 + 1; // with its end

// What a killed worker told, and what must therefore be in its company file.
//
// A line is told before it is stored: the last one is in flight with all that belongs to it, every other one
// has been completed.
class Evidence
{
public:
    explicit Evidence(const QStringList& told)
    {
        for (qsizetype i = 0; i < told.size(); ++i)
            take(told[i], i + 1 < told.size());
    }

    // By parameter: each value that may be stored, the completed one first.
    const std::map<QString, QStringList>& values() const { return values_; }
    // States that the written parameters may have.
    const std::set<QString>& states() const { return states_; }
    int completedLines() const { return completedLines_; }

private:
    static inline const std::map<QString, QString> kParameters{{"EN T1", "P0101"}, {"EN T2", "P0102"}};

    void take(const QString& line, bool completed)
    {
        static const QRegularExpression kName("parameter: \\[(.*)\\]$");
        static const QString kValue = QStringLiteral("Parameter value: ");
        if (line.startsWith("# ")) {
            announce(line.section(' ', 1, 1), line.section(' ', 2).toInt(), completed);
            return;
        }
        completedLines_ += completed;
        if (const auto name = kName.match(line); name.hasMatch()) {
            const auto found = kParameters.find(name.captured(1));
            parameter_ = found == kParameters.end() ? QString() : found->second;
        } else if (line.startsWith(kValue) && work_ == "parameters" && !parameter_.isEmpty()) {
            put(parameter_, line.mid(kValue.size()), completed);
        } else if (line == "--- Reading process end ---" && work_ == "banks" && completed) {
            for (auto& [parameter, value] : coming_)
                put(parameter, value, true);
        } else if (line == "--- Writing process end ---") {
            // The marks are cleared before the line is told.
            states_ = {"0"};
        }
    }

    void announce(const QString& work, int pattern, bool completed)
    {
        work_ = work;
        parameter_.clear();
        coming_.clear();
        if (work == "banks") {
            coming_ = {{"P0101", QString::number((50 + pattern) / 10.0)},
                       {"P0102", QString::number(10 + pattern)}};
            for (const auto& [parameter, value] : coming_)
                put(parameter, value, false);
        } else if (work == "change") {
            // Told before it is done; only what follows proves it.
            for (const auto& [parameter, value] : changed(pattern))
                put(parameter, value, completed);
            states_ = completed ? std::set<QString>{"1"} : std::set<QString>{"0", "1", "2"};
        } else if (work == "write") {
            // The marks go with the end of the third pass, before its line is told.
            states_ = {"0", "1"};
        }
    }

    static std::map<QString, QString> changed(int pattern)
    {
        return {{"P0201", QString::number(pattern % 3)},
                {"P0202", QString::number(pattern % 8)},
                {"P0204", QStringLiteral("ROOM%1").arg(pattern)}};
    }

    void put(const QString& parameter, const QString& value, bool completed)
    {
        if (completed)
            values_[parameter] = {value};
        else if (values_.contains(parameter))
            values_[parameter] << value;
    }

    QString work_;
    QString parameter_;
    std::map<QString, QString> coming_;
    std::map<QString, QStringList> values_;
    std::set<QString> states_{"0", "1", "2"};
    int completedLines_ = 0;
};

class KillTest : public CompanyFixture
{
protected:
    QStringList workAndKill(const QString& folder)
    {
        return process_.run(QStringLiteral(CALIDORA_WORKER), QStringList(), folder,
                            {5, kMostLines, kMostMicroseconds});
    }

    // The program opens the file, and with it takes back what was begun and not completed.
    void expectOpens(const QString& company)
    {
        session.DbPath = QFileInfo(company).absolutePath();
        ASSERT_TRUE(connectTo(QFileInfo(company).fileName()));
        database.Disconnect_Database();
        EXPECT_EQ(column(company, "PRAGMA integrity_check"), QStringList{"ok"});
        EXPECT_EQ(column(company, "PRAGMA foreign_key_check"), QStringList());
    }

    static void expectHolds(const QString& company, const Evidence& evidence)
    {
        for (const auto& [parameter, allowed] : evidence.values())
            EXPECT_TRUE(allowed.contains(of(company, "Value", parameter)))
                << parameter.toStdString() << " is " << of(company, "Value", parameter).toStdString()
                << ", not " << allowed.join(" or ").toStdString();
        for (const char* written : {"P0201", "P0202", "P0204"})
            EXPECT_TRUE(evidence.states().contains(of(company, "State", written)))
                << written << " has state " << of(company, "State", written).toStdString();
    }

    // A bank is stored as a whole or not at all.
    static void expectWholeBank(const QString& company, const Evidence& evidence)
    {
        const auto& values = evidence.values();
        if (!values.contains("P0101") || !values.contains("P0102"))
            return;
        const QStringList &first = values.at("P0101"), &second = values.at("P0102");
        if (first.size() < 2 || second.size() < 2)
            return;
        EXPECT_EQ(first.indexOf(of(company, "Value", "P0101")),
                  second.indexOf(of(company, "Value", "P0102")));
    }

    // Each line is in the company or, once the connection has ended, in a log file.
    static void expectLogged(const QString& company, int lines)
    {
        qsizetype kept = column(company, "SELECT 1 FROM tbEvent").size();
        const QDir logs(QFileInfo(company).absolutePath() + "/../Log");
        for (const QString& name : logs.entryList({"Calidora_*.log"}, QDir::Files)) {
            QFile log(logs.filePath(name));
            ASSERT_TRUE(log.open(QIODevice::ReadOnly));
            const QByteArray text = log.readAll();
            EXPECT_EQ(text.size() % kLogLineSize, 0) << "no line is cut off";
            kept += text.size() / kLogLineSize;
        }
        EXPECT_GE(kept, lines);
    }

    static QString of(const QString& company, const QString& field, const QString& parameter)
    {
        return column(company, QStringLiteral("SELECT %1 FROM tbParametersUser "
                                              "WHERE IDGrp = 1 AND IDInst = 1 AND IDPar = '%2'")
                                   .arg(field, parameter))
            .value(0);
    }

private:
    KilledProcess process_;
};

TEST_F(KillTest, EveryCompletedStepIsInTheCompany)
{
    std::set<QString> caught;
    std::size_t proven = 0;
    for (int kill = 0; kill < kKills && !HasFailure(); ++kill) {
        const QTemporaryDir folder;
        const QStringList told = workAndKill(folder.path());
        ASSERT_GT(told.size(), 2);
        ASSERT_TRUE(told[0].startsWith("company "));
        const QString company = told[0].mid(8);
        SCOPED_TRACE("kill " + std::to_string(kill) + " after " + std::to_string(told.size()) +
                     " lines, the last: " + told.last().toStdString());
        const Evidence evidence(told.mid(1));
        expectOpens(company);
        expectHolds(company, evidence);
        expectWholeBank(company, evidence);
        expectLogged(company, evidence.completedLines());
        proven += evidence.values().size();
        caught.insert(told.last().section(':', 0, 0).section('[', 0, 0));
    }
    EXPECT_GT(proven, 0u);
    std::cout << kKills << " kills in " << caught.size() << " kinds of steps, " << proven
              << " values proven\n";
}

} // namespace
