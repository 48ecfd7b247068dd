#pragma once

#include <unistd.h>

namespace support {

// The rights of a file mean nothing to the administrator: the process is an ordinary user while this lives.
class OrdinaryUser
{
public:
    OrdinaryUser() : former_(geteuid())
    {
        if (former_ == 0)
            active_ = seteuid(kNobody) == 0;
    }
    ~OrdinaryUser()
    {
        if (active_)
            active_ = seteuid(former_) == 0;
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    static constexpr uid_t kNobody = 65534;
    uid_t former_;
    bool active_ = false;
};

} // namespace support
