#pragma once

#include <QLockFile>
#include <QString>

namespace platform {

// The mark that a program is at work in an application folder: the file "Calidora.lock", held while this
// object lives. A mark that a killed program left behind counts for nothing.
class SingleInstance
{
public:
    explicit SingleInstance(const QString& applicationFolder);

    // Another program is at work in this folder. A folder where no mark can be made has no other one.
    bool anotherIsRunning() const { return anotherIsRunning_; }

private:
    QLockFile mark_;
    bool anotherIsRunning_;
};

} // namespace platform
