#pragma once

#include "session/Session.h"

#include <QString>
#include <optional>

namespace bus {

// A parameter whose read-back did not give what was written.
struct FailedCheck
{
    QString instrument, group, parameter; // by name
    QString key;                          // of its node
    std::optional<QString> expected;      // as stored; none is a value that isn't known
    std::optional<QString> found;         // none when nobody could read the answer
};

// The console as the bus sees it. The console may be closed while a connection lives: then nobody looks, and
// the toggles are as they were left.
class ConsoleView
{
public:
    virtual ~ConsoleView() = default;

    virtual bool isOpen() const = 0;
    // Sets the commands for the line's state (see EnableDisable_RWMenu).
    virtual void applyStatus(session::LineStatus status) = 0;
    virtual void showProgress(bool visible) = 0;
    virtual void setProgress(int percent) = 0;
    virtual bool autoDisconnectPressed() const = 0;
    virtual bool simulatorPressed() const = 0;

    // For the eye only: an operation begins that takes its records up in so many passes; a record is taken
    // up, with an answer to come or without; an answer is awaited once more for the record in hand; the
    // operation is over, however it ended.
    virtual void operationBegan(int records, int passes) = 0;
    virtual void recordBegan(bool awaitsAnswer) = 0;
    virtual void answerAwaited() = 0;
    virtual void operationEnded() = 0;
    // The answer to the record in hand is there; the record is done well. One that isn't told is one that
    // failed.
    virtual void answerCame() = 0;
    virtual void recordDone() = 0;
    virtual void checkFailed(const FailedCheck& check) = 0;
    // An instrument was seen to hold a value; none could be made of its bytes for an unknown one.
    virtual void valueSeen(int IDGrp, int IDInst, const QString& IDPar, const QString& value) = 0;
    // So many bytes stood waiting when the request left, and were taken for a part of its answer. Of a bank
    // the instrument alone is told.
    virtual void answerDoubtful(const QString& instrument, const QString& group, const QString& parameter,
                                int bytes) = 0;
};

} // namespace bus
