#include "line/CompanyDisk.h"

#include <sqlite3.h>

#include <QByteArrayView>
#include <set>
#include <string>

namespace line {

namespace {

DiskFault current = DiskFault::None;
sqlite3_vfs* real = nullptr;
sqlite3_vfs mine;

// A file of the engine's own disk behind one that looks at the fault first.
struct FaultyFile
{
    sqlite3_file base;
    sqlite3_file* inner; // behind this, in the same piece of memory
};

sqlite3_file* innerOf(sqlite3_file* file)
{
    return reinterpret_cast<FaultyFile*>(file)->inner;
}

int close(sqlite3_file* file)
{
    return innerOf(file)->pMethods ? innerOf(file)->pMethods->xClose(innerOf(file)) : SQLITE_OK;
}
int read(sqlite3_file* file, void* to, int bytes, sqlite3_int64 at)
{
    return innerOf(file)->pMethods->xRead(innerOf(file), to, bytes, at);
}
int write(sqlite3_file* file, const void* from, int bytes, sqlite3_int64 at)
{
    if (current == DiskFault::Full) {
        sqlite3_int64 size = 0;
        innerOf(file)->pMethods->xFileSize(innerOf(file), &size);
        if (at + bytes > size)
            return SQLITE_FULL;
    }
    return innerOf(file)->pMethods->xWrite(innerOf(file), from, bytes, at);
}
int truncate(sqlite3_file* file, sqlite3_int64 size)
{
    return innerOf(file)->pMethods->xTruncate(innerOf(file), size);
}
int sync(sqlite3_file*, int)
{
    return SQLITE_OK;
}
int fileSize(sqlite3_file* file, sqlite3_int64* size)
{
    return innerOf(file)->pMethods->xFileSize(innerOf(file), size);
}
int lock(sqlite3_file*, int level)
{
    const bool busy =
        current == DiskFault::Locked || (current == DiskFault::ReadOnly && level >= SQLITE_LOCK_RESERVED);
    return busy ? SQLITE_BUSY : SQLITE_OK;
}
int unlock(sqlite3_file*, int)
{
    return SQLITE_OK;
}
int checkReserved(sqlite3_file*, int* reserved)
{
    *reserved = 0;
    return SQLITE_OK;
}
int control(sqlite3_file* file, int operation, void* argument)
{
    return innerOf(file)->pMethods->xFileControl(innerOf(file), operation, argument);
}
int sectorSize(sqlite3_file* file)
{
    return innerOf(file)->pMethods->xSectorSize(innerOf(file));
}
int characteristics(sqlite3_file* file)
{
    return innerOf(file)->pMethods->xDeviceCharacteristics(innerOf(file));
}

// The first version of the interface: what it lacks the engine does without.
const sqlite3_io_methods kMethods{
    1,       close,         read,    write,      truncate,        sync,    fileSize, lock,
    unlock,  checkReserved, control, sectorSize, characteristics, nullptr, nullptr,  nullptr,
    nullptr, nullptr,       nullptr};

// The engine asks at each statement whether a journal was left behind; the machine is not asked each time.
std::set<std::string> journals;

bool isJournal(const char* name)
{
    return QByteArrayView(name).endsWith("-journal") || QByteArrayView(name).endsWith("-wal");
}

int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* flagsOut)
{
    auto* faulty = reinterpret_cast<FaultyFile*>(file);
    faulty->inner = reinterpret_cast<sqlite3_file*>(faulty + 1);
    const int outcome = real->xOpen(real, name, faulty->inner, flags, flagsOut);
    if (outcome == SQLITE_OK && name && isJournal(name))
        journals.insert(name);
    faulty->base.pMethods = faulty->inner->pMethods ? &kMethods : nullptr;
    return outcome;
}

int remove(sqlite3_vfs*, const char* name, int syncFolder)
{
    journals.erase(name);
    return real->xDelete(real, name, syncFolder);
}

int access(sqlite3_vfs*, const char* name, int flags, int* yes)
{
    if (!isJournal(name))
        return real->xAccess(real, name, flags, yes);
    *yes = int(journals.count(name));
    return SQLITE_OK;
}

int sleep(sqlite3_vfs*, int microseconds)
{
    return microseconds;
}

} // namespace

void CompanyDisk::install()
{
    if (real)
        return;
    real = sqlite3_vfs_find(nullptr);
    mine = *real;
    mine.zName = "line";
    mine.szOsFile = int(sizeof(FaultyFile)) + real->szOsFile;
    mine.xOpen = open;
    mine.xDelete = remove;
    mine.xAccess = access;
    mine.xSleep = sleep;
    sqlite3_vfs_register(&mine, 1);
}

void CompanyDisk::set(DiskFault fault)
{
    current = fault;
}

DiskFault CompanyDisk::fault()
{
    return current;
}

} // namespace line
