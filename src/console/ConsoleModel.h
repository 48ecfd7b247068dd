#pragma once

#include "bus/ConsoleView.h"
#include "console/ConsoleStates.h"
#include "console/LogModel.h"
#include "console/OperationProgress.h"
#include "platform/Forward.h"
#include "session/Forward.h"

#include <QObject>
#include <QStringList>
#include <functional>
#include <optional>

namespace console {

// What the line of activity goes by, beside the model's own state.
struct Situation
{
    QString group;      // that the console stands on
    QString phone;      // its number; "" for none
    QString otherGroup; // the line is on this one instead; "" for none
    bool portClosed = false;
    bool callComesIn = false;
    bool closing = false; // the line is being hung up
};

// What the console shows. It outlives the window: a connection goes on behind a closed console.
class ConsoleModel : public QObject, public bus::ConsoleView
{
    Q_OBJECT

public:
    explicit ConsoleModel(platform::Clock& clock) : clock_(clock) {}

    LogModel& log() { return log_; }
    void addLine(const QString& when, const QString& description, int type = 1);

    session::LineStatus status() const { return status_; }
    const ConsoleStates& commands() const { return commands_; }
    bool progressVisible() const { return progressVisible_; }
    int progress() const { return progress_; }
    // What the bar shows: of an operation all passes together.
    int shownProgress() const { return operation_.running() ? operation_.percent() : progress_; }
    void setAutoDisconnect(bool pressed);
    void setSimulator(bool pressed);

    // One line that tells what goes on: the item in hand, the wait for its answer, the time left; or the next
    // step.
    QString activity(const session::Texts& texts, const Situation& situation) const;
    // Parameters whose read-back did not give what was written, since the console opened.
    struct Failed
    {
        QString item; // its place below the group
        bus::FailedCheck check;
    };
    const QList<Failed>& failedChecks() const { return failedChecks_; }
    // A value, or an instrument's bank, that was read behind bytes that stood waiting.
    struct Doubt
    {
        QString item;
        int bytes;
        bool operator==(const Doubt&) const = default;
    };
    const QList<Doubt>& doubts() const { return doubts_; }
    void forgetConcerns();
    // How many values the last read left different from before; none when nobody knows.
    std::optional<int> changedValues() const;
    void setChangedValues(int values);
    // Who shows them; without anybody none are known.
    void setShowChanges(std::function<void()> show) { showChanges_ = std::move(show); }
    void showChanges() const;

    bool isOpen() const override { return open_; }
    void setOpen(bool open) { open_ = open; }
    void applyStatus(session::LineStatus status) override;
    void showProgress(bool visible) override;
    void setProgress(int percent) override;
    bool autoDisconnectPressed() const override { return autoDisconnect_; }
    bool simulatorPressed() const override { return simulator_; }
    void operationBegan(int records, int passes) override;
    void recordBegan(bool awaitsAnswer) override;
    void answerAwaited() override;
    void operationEnded() override;
    void answerCame() override;
    void recordDone() override { operation_.recordDone(); }
    void checkFailed(const bus::FailedCheck& check) override;
    void valueSeen(int IDGrp, int IDInst, const QString& IDPar, const QString& value) override;
    void answerDoubtful(const QString& instrument, const QString& group, const QString& parameter,
                        int bytes) override;

signals:
    void changed();          // commands, toggles, progress, activity
    void lineAdded(int row); // the list selects it
    void concernsChanged();
    void operationOver();
    void checkHasFailed(const bus::FailedCheck& check);
    void valueWasSeen(int IDGrp, int IDInst, const QString& IDPar, const QString& value);

private:
    struct Outcome
    {
        bool write = false;
        int records = 0; // 0 is no operation
        int done = 0;
        bool whole = false; // no record was left out
    };
    QString operationWords(const session::Texts& texts) const;
    QString outcomeWords(const session::Texts& texts) const;
    QString stateWords(const session::Texts& texts, const Situation& situation) const;

    platform::Clock& clock_;
    LogModel log_;
    OperationProgress operation_;
    Outcome outcome_; // of the last operation
    bool open_ = false;
    session::LineStatus status_ = session::kLineIdle;
    qint64 busySince_ = 0;
    ConsoleStates commands_;
    bool progressVisible_ = false;
    int progress_ = 0;
    bool autoDisconnect_ = false;
    bool simulator_ = false;
    QList<Failed> failedChecks_;
    QList<Doubt> doubts_;
    std::optional<int> changedValues_;
    std::function<void()> showChanges_;
};

} // namespace console
