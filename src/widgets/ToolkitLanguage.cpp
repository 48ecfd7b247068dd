#include "widgets/ToolkitLanguage.h"

#include "platform/Words.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <cstring>

namespace widgets {

namespace {

// What the toolkit's own translations lack: the kinds of files in a file dialog.
class MissingWords : public QTranslator
{
public:
    using QTranslator::QTranslator;

    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char*, int) const override
    {
        static constexpr std::pair<const char*, const char*> kKinds[] = {
            {"Drive", "files.drive"},        {"File", "files.file"},      {"Folder", "files.folder"},
            {"File Folder", "files.folder"}, {"%1 File", "files.of"},     {"Alias", "files.link"},
            {"Shortcut", "files.link"},      {"Unknown", "files.unknown"}};
        if (std::strcmp(context, "QAbstractFileIconProvider") != 0)
            return {};
        for (const auto& [english, name] : kKinds) {
            if (std::strcmp(source, english) == 0)
                return platform::inWords(name);
        }
        return {};
    }
};

} // namespace

void setToolkitLanguage(const QString& code)
{
    const QString name = "ToolkitLanguage." + code;
    QCoreApplication* application = QCoreApplication::instance();
    for (auto* former : application->findChildren<QTranslator*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (former->objectName() == name)
            return;
        delete former; // which takes it from the application, too
    }
    // Dates and kinds of files, the months of a calendar.
    QLocale::setDefault(QLocale(code == QLatin1String("EN") ? QStringLiteral("en_GB") : code.toLower()));
    auto* spoken = new QTranslator(application);
    spoken->setObjectName(name);
    if (spoken->load("qtbase_" + code.toLower(), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(spoken);
    QCoreApplication::installTranslator(new MissingWords(spoken));
}

} // namespace widgets
