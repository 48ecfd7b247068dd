#include "widgets/ToolkitLanguage.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace widgets {

void setToolkitLanguage(const QString& code)
{
    const QString name = "ToolkitLanguage." + code;
    QCoreApplication* application = QCoreApplication::instance();
    for (auto* former : application->findChildren<QTranslator*>()) {
        if (former->objectName() == name)
            return;
        delete former; // which takes it from the application, too
    }
    auto* spoken = new QTranslator(application);
    spoken->setObjectName(name);
    if (spoken->load("qtbase_" + code.toLower(), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(spoken);
}

} // namespace widgets
