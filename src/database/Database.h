#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"
#include "structure/Forward.h"

#include <QObject>
#include <QString>

namespace database {

struct ChosenPath;

// The life of the open company: connecting to its file, filling the tree from it, closing it again, and the
// two commands that choose one.
class Database : public QObject
{
    Q_OBJECT

public:
    Database(session::Session& session, const session::Texts& texts, platform::Operator& op,
             structure::Structure& structure);

    // `path` is the whole file name. What was opened before a failure stays open until Disconnect_Database.
    bool Connect_Database(const QString& path);
    // Safe when nothing is open.
    void Disconnect_Database();
    void Open_Database();
    void New_Database();

    // The same company again, behind a copy of its file: whoever was logged in stays it.
    bool reconnect();
    // Where the file dialogs open: the last company's folder, or the data folder when that is gone.
    QString startFolder() const;
    // Whether a file is the model itself, by another name or way.
    bool isModel(const QString& file) const;

signals:
    void aboutToDisconnect();                    // the company is still open, for the last time
    void progress(int percent);                  // frmConnection's prgLoad
    void captionChanged(const QString& caption); // of the main window
    void companyMade();    // a new company is connected for the first time: its first user's place
    void opened();         // a connect succeeded, whoever wanted it
    void reconnected();    // behind a copy of the file: nobody logs in anew
    void connected();      // after the commands' own success: the login's place
    void connectionLost(); // a command's connect failed and was cleaned up

private:
    void clearPlant();
    void makeReady();
    void openCatalogue();
    void readCompany();
    void fillTree();
    bool isFree();
    bool takeName(const ChosenPath& file);
    QString modelFile() const;
    void makeCompany();
    bool openCompany();

    session::Session& session_;
    const session::Texts& texts_;
    platform::Operator& operator_;
    structure::Structure& structure_;
};

} // namespace database
