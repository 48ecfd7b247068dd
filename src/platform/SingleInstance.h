#pragma once

#include <QString>

namespace platform {

// The mark that a program is at work in an application folder: the file "Calidora.lock", held while this
// object lives. It is the hold that counts, not the file: the system lets go of it with its process, so what
// a killed program or another computer left behind stops nobody.
class SingleInstance
{
public:
    explicit SingleInstance(const QString& applicationFolder);
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    // Another program is at work in this folder. A folder where no mark can be made has no other one.
    bool anotherIsRunning() const { return anotherIsRunning_; }
    // The folder takes no files: nothing that the program wants to keep can be kept in it.
    bool folderIsClosed() const { return mark_ < 0; }

private:
    int mark_;
    bool anotherIsRunning_ = false;
};

} // namespace platform
