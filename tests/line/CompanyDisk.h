#pragma once

namespace line {

// What is wrong with the disk that the companies lie on, for all connections of this process.
enum class DiskFault
{
    None,
    Locked,   // another program has the file for itself: nothing can be read or written
    ReadOnly, // another program is about to write: it can be read
    Full      // no file can grow
};

// The engine's own disk, with faults. Waits for a lock take no time, and nothing is flushed.
class CompanyDisk
{
public:
    // Once a process, before the first connection.
    static void install();
    static void set(DiskFault fault);
    static DiskFault fault();
};

} // namespace line
