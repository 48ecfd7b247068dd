#pragma once

#include "platform/Connection.h"
#include "platform/Statement.h"

#include <QString>
#include <atomic>
#include <functional>
#include <optional>
#include <string_view>

namespace structure {

// Tells a job in another thread that nobody waits for it any more.
using StopFlag = std::atomic_bool;

// A read-only connection of its own on a company file, for work beside the program's connection. A plant is
// read in slices of so many rows: between two of them the file is free, so that a writer never waits for
// long, and a job that nobody waits for ends.
//
// Failures are RuntimeErrors with the engine's words.
class CompanyReader
{
public:
    explicit CompanyReader(const QString& file);

    using Row = std::function<void(const platform::Statement&)>;

    // Runs a statement and hands over each row.
    void eachRow(const QString& sql, const Row& take);

    // The same, slice by slice. The statement's first columns are its key and its order; it asks for the rows
    // whose key is above that many parameters, and takes as many rows as one more parameter says:
    //     SELECT IDGrp, IDInst, ... WHERE ((IDGrp, IDInst) > (?, ?)) ORDER BY IDGrp, IDInst LIMIT ?;
    void eachRowInSlices(const QString& sql, int keyColumns, const StopFlag& stop, const Row& take);

    static constexpr int kRowsInSlice = 2000;

private:
    platform::Connection company_;
};

std::string_view bytesOf(const platform::Statement& row, int column);
QString textOf(const platform::Statement& row, int column); // NULL is ""
std::optional<QString> textOrNull(const platform::Statement& row, int column);

} // namespace structure
