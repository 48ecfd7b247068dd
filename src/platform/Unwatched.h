#pragma once

namespace platform {

class Connection;

// While it lives nobody is told of changes: for a working table, whose rows are no values of the plant. A
// statement that is prepared within it empties such a table at once instead of row by row.
class Unwatched
{
public:
    explicit Unwatched(const Connection& connection);
    ~Unwatched();
    Unwatched(const Unwatched&) = delete;
    Unwatched& operator=(const Unwatched&) = delete;

private:
    const Connection& connection_;
    void* watcher_;
};

} // namespace platform
