#pragma once

#include "structure/UpdateProgress.h"

namespace exchange {

// The progress bar of a job over so many rows, which the operator may break off with Escape: that fails with
// the number of a cancel (32755).
class Progress
{
public:
    Progress(structure::Structure& structure, platform::Operator& op, qint64 rows);

    // So many rows are done.
    void to(qint64 rows)
    {
        if (rows >= nextLook_)
            look(rows);
    }

private:
    void look(qint64 rows);

    platform::Operator& operator_;
    structure::UpdateProgress bar_;
    const qint64 rows_;
    qint64 nextLook_ = 0;
    int percent_ = -1;
};

} // namespace exchange
