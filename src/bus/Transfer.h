#pragma once

#include "bus/Line.h"
#include "platform/Recordset.h"
#include "platform/RuntimeError.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace bus {

// A read or a write: walks its records one at a time, each tick of tmrAction taking the next one and sending
// one frame, and takes the answers. It owns all that an operation needs; every way out of one goes through
// close().
//
// Transfer.cpp sends, Answers.cpp receives.
class Transfer
{
public:
    // `onEnd` is called when an operation has come to its own end.
    Transfer(Line& line, std::function<void()> onEnd) : line_(line), onEnd_(std::move(onEnd)) {}

    // Runs the statement of an operation. False, with nothing open, when it has no records.
    bool open(const QString& statement);
    // The first frame leaves three seconds later.
    void beginRead(bool bankRead, const QString& itemKey);
    void beginWrite(const QString& itemKey);
    // The end of an operation, however it comes. Does nothing when none runs.
    void close();
    bool isOpen() const { return rsWork_.State() == platform::Recordset::Opened; }
    bool bankRead() const { return BankRead_; }

    // Ticks of tmrAction.
    void readNext();
    void writeRamNext();
    void writeEepromNext();
    void checkNext();
    void requestOldByte();

    // Arrivals.
    void receiveValue();
    void receiveCheck();
    void receiveOldByte();

private:
    // A value that came in a bank's image and waits to be stored.
    struct BankValue
    {
        int IDGrp;
        int IDInst;
        QString IDPar;
        QString value;
    };
    // What follows one of the passes.
    using PassEnd = void (Transfer::*)();

    // Sending
    void begin(ActionCode code, const QString& itemKey);
    // The record step: false, after the pass has ended, when the records are through.
    bool takeNextRecord(bool awaitsAnswer, PassEnd atEnd);
    void goOnWithEeprom() { rewind(ActionCode::WritingEeprom, 564); }
    void goOnWithCheck() { rewind(ActionCode::Checking, 565); }
    void rewind(ActionCode code, int text);
    void endRead();
    void endWrite();
    void requestParameter();
    // Sends a request; what comes in from here on counts as its answer, with what is there already.
    void request(const QByteArray& frame);
    void prepareBitField(ActionCode merging);
    QByteArray oldByteRequest() const;
    QByteArray ramRequest(const QByteArray& data) const;
    QByteArray eepromRequest(const QByteArray& data) const;
    bool isBitField() const { return rsWork_.text("mType") == QLatin1String("BIT"); }
    bool hasEeprom() const { return number("WriteCmdEE") != 0; }
    QByteArray dataBytes() const;
    QByteArray address() const;
    // A number of the catalogue; one that is missing or isn't numeric fails.
    int number(const char* field) const;

    // Receiving
    bool takeAnswer();
    void tellDoubt();
    void tellSeen(const QString& value);
    void tellFailedCheck(const std::optional<QString>& found);
    QString decode(const QByteArray& raw, const platform::Recordset& record) const;
    void Extract_Param();
    // Decodes the image's parameters up to the first that fails, whose failure comes back.
    std::optional<platform::RuntimeError> decodeBank(platform::Recordset& parameters, int bankAddress,
                                                     std::vector<BankValue>& values) const;
    // False when the engine has taken back what was stored of the bank.
    bool store(const std::vector<BankValue>& values);

    void log(const QString& text);
    void logParameter(int openingText);

    Line& line_;
    std::function<void()> onEnd_;
    platform::Recordset rsWork_;
    bool BankRead_ = false; // the read fetches whole banks; a write leaves it as it is
    QString AndMask_, OrMask_;
    int ProgressCount_ = 0;
    int ProgressMax_ = 0;
    std::unique_ptr<values::Causing> causing_; // as long as the operation runs
    bool requested_ = false;                   // the record in hand awaits an answer
    qsizetype stoodWaiting_ = 0;               // bytes that were there when its request left
};

} // namespace bus
