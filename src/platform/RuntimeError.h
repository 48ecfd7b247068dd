#pragma once

#include <QString>
#include <exception>

namespace platform {

// A failure that a procedure ends with: the number that goes into the report, the words that the operator
// reads.
struct RuntimeError : std::exception
{
    RuntimeError(int number, QString description)
        : number(number), description(std::move(description)), bytes_(this->description.toUtf8())
    {
    }
    const char* what() const noexcept override { return bytes_.constData(); }

    int number;
    QString description;

private:
    QByteArray bytes_;
};

// Numbers of the failures that have one of their own in this trade; support staff know them by heart.
namespace errors {
constexpr int kInvalidCall = 5;
constexpr int kOverflow = 6;
constexpr int kOutOfRange = 9;
constexpr int kDivisionByZero = 11;
constexpr int kTypeMismatch = 13;
constexpr int kInternal = 51;
constexpr int kFileNotFound = 53;
constexpr int kDeviceIo = 57;
constexpr int kDiskFull = 61;
constexpr int kPermissionDenied = 70;
constexpr int kPathNotFound = 76;
constexpr int kObjectNotSet = 91;
constexpr int kObjectClosed = 3704;
constexpr int kDamaged = 3343; // a database that is none, or not whole
constexpr int kItemNotFound = 3265;
constexpr int kNoCurrentRecord = 3021;
constexpr int kDatabase = -2147467259;
constexpr int kPortNumberInvalid = 8002;
constexpr int kPortOpen = 8005;
constexpr int kPortInUse = 8013;
constexpr int kCancelled = 32755;
} // namespace errors

[[noreturn]] inline void fail(int number, const QString& description)
{
    throw RuntimeError(number, description);
}

} // namespace platform
