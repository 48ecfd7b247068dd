#pragma once

#include "database/CompanyUpgrade.h"
#include "database/Safekeeping.h"
#include "database/SafetyCopies.h"
#include "platform/VirtualClock.h"
#include "support/CompanyFixture.h"
#include "support/FullDisk.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>

namespace support {

inline const QString kNotice =
    "Attention! The name of the file is not valid: the operation has been cancelled.";
inline const QString kCancelledChoice = "Cancel was selected.\r\nCurrent operation has been cancelled.";

// The commands that keep a company safe, over the small company, for an operator who may do everything.
class SafekeepingFixture : public CompanyFixture
{
protected:
    SafekeepingFixture()
    {
        session.DirBackup = file("Backup");
        QDir().mkpath(session.DirBackup);
        QObject::connect(&database, &database::Database::captionChanged,
                         [this](const QString& caption) { captions << caption; });
    }

    QByteArray bytesOf(const QString& below)
    {
        QFile opened(file(below));
        EXPECT_TRUE(opened.open(QIODevice::ReadOnly)) << below.toStdString();
        return opened.readAll();
    }
    void write(const QString& below, const QByteArray& bytes)
    {
        QFile opened(file(below));
        ASSERT_TRUE(opened.open(QIODevice::WriteOnly));
        ASSERT_EQ(opened.write(bytes), bytes.size());
    }
    QStringList names(const QString& below) { return QDir(file(below)).entryList(QDir::Files, QDir::Name); }
    void copy(const QString& from, const QString& to) { ASSERT_TRUE(QFile::copy(file(from), file(to))); }

    // Overwrites the middle of a file: it opens, but isn't whole.
    void damage(const QString& below)
    {
        QFile opened(file(below));
        ASSERT_TRUE(opened.open(QIODevice::ReadWrite));
        const qint64 page = 4096;
        for (qint64 at = opened.size() / 2 / page * page; at < opened.size(); at += page) {
            opened.seek(at);
            opened.write(QByteArray(int(page), '\x55'));
        }
    }
    static QString groupsOf(const QString& path)
    {
        return column(path, "SELECT Name FROM tbGroupsUser ORDER BY IDGrp").join(",");
    }

    platform::VirtualClock clock;
    database::Safekeeping safekeeping{{session, texts, op, clock, database}};
    QStringList captions;
    QSignalSpy connected{&database, &database::Database::connected};
    QSignalSpy reconnected{&database, &database::Database::reconnected};
    QSignalSpy lost{&database, &database::Database::connectionLost};
};

} // namespace support
