#pragma once

#include "platform/Forward.h"
#include "platform/OnlineBackup.h"
#include "session/Forward.h"

#include <QDateTime>
#include <QObject>
#include <QString>
#include <memory>

namespace database {

// The daily copy of the open company in the folder "Safety" beside it, if there is one: made when the newest
// is older than a day and the company has changed since. The last seven are kept. It is made bit by bit while
// the operator works; one that the end of the connection cuts off is begun anew with the next.
class SafetyCopies : public QObject
{
    Q_OBJECT

public:
    static constexpr int kKept = 7;

    SafetyCopies(session::Session& session, platform::Clock& clock);
    ~SafetyCopies() override;

    // A company has been connected.
    void companyOpened();
    // Whether a copy is being made at this moment.
    bool isCopying() const { return backup_ != nullptr; }

signals:
    void made(const QString& file);

private:
    bool isDue() const;
    void begin();
    void proceed();
    void complete();
    void drop();

    session::Session& session_;
    const platform::Clock& clock_;
    std::unique_ptr<platform::Timer> tmrSafety_;
    std::unique_ptr<platform::OnlineBackup> backup_;
    QString company_;
    QString target_;
    int steps_ = 0;
};

} // namespace database
