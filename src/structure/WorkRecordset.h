#pragma once

#include "session/Session.h"

namespace structure {

// rsWork for the length of one job, on the statement in strSQL. Closed on every way out, also when the
// opening failed because another job held it.
class WorkRecordset
{
public:
    explicit WorkRecordset(session::Session& session) : records_(session.rsWork)
    {
        try {
            records_.Open(session.strSQL, session.cnDatabase);
        } catch (...) {
            records_.Close();
            throw;
        }
    }
    ~WorkRecordset() { records_.Close(); }
    WorkRecordset(const WorkRecordset&) = delete;
    WorkRecordset& operator=(const WorkRecordset&) = delete;

    platform::Recordset* operator->() { return &records_; }
    platform::Recordset& operator*() { return records_; }

private:
    platform::Recordset& records_;
};

} // namespace structure
