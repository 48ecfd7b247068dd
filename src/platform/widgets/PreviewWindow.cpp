#include "platform/widgets/PreviewWindow.h"

#include "platform/widgets/PaintedPage.h"

#include <QAction>
#include <QApplication>
#include <QMap>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QTimer>
#include <QTranslator>

namespace platform {

namespace {

// Thrown out of a report that has more pages than are looked at.
struct EnoughPages
{
};

class PreviewedPage : public PaintedPage
{
public:
    using PaintedPage::PaintedPage;

    void newPage() override
    {
        if (++pages_ == PreviewWindow::kMostPages)
            throw EnoughPages();
        PaintedPage::newPage();
    }

private:
    int pages_ = 0;
};

// Qt's words in the program's language, for as long as the window stands.
class PreviewWords : public QTranslator
{
public:
    explicit PreviewWords(const PreviewWindow::Words& words) : words_(words)
    {
        QCoreApplication::installTranslator(this);
    }
    ~PreviewWords() override { QCoreApplication::removeTranslator(this); }

    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char*, int) const override
    {
        static const QMap<QString, QString> kKeys{
            {"Print Preview", "preview.title"},
            {"Next page", "preview.next"},
            {"Previous page", "preview.previous"},
            {"First page", "preview.first"},
            {"Last page", "preview.last"},
            {"Fit width", "preview.width"},
            {"Fit page", "preview.page"},
            {"Zoom in", "preview.larger"},
            {"Zoom out", "preview.smaller"},
            {"Portrait", "preview.portrait"},
            {"Landscape", "preview.landscape"},
            {"Show single page", "preview.single"},
            {"Show facing pages", "preview.facing"},
            {"Show overview of all pages", "preview.overview"},
        };
        const QString key = kKeys.value(QString::fromUtf8(source));
        return qstrcmp(context, "QPrintPreviewDialog") == 0 && !key.isEmpty() ? words_(key) : QString();
    }

private:
    const PreviewWindow::Words& words_;
};

// How the paper lies is the report's business, and the printer is chosen outside.
void leaveOnlyLooking(QPrintPreviewDialog& dialog)
{
    const QStringList others{"Print", "Page setup", "Portrait", "Landscape"};
    for (const QString& other : others) {
        const QString words = QPrintPreviewDialog::tr(other.toUtf8());
        for (QAction* action : dialog.findChildren<QAction*>()) {
            if (action->text() == words)
                action->setVisible(false);
        }
    }
}

} // namespace

PreviewWindow::PreviewWindow(QPrinter& printer, const PrintReport& report, Words words)
    : printer_(printer), report_(report), words_(std::move(words))
{
}

void PreviewWindow::exec()
{
    const PreviewWords translated(words_);
    QPrintPreviewDialog dialog(&printer_, QApplication::activeModalWidget());
    dialog.setObjectName("printPreview");
    dialog.setWindowFlag(Qt::WindowMaximizeButtonHint);
    leaveOnlyLooking(dialog);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested,
                     [this, &dialog](QPrinter* printer) { paint(dialog, *printer); });
    dialog.exec();
    if (failure_)
        std::rethrow_exception(failure_);
}

// Called out of Qt, through which no exception may pass.
void PreviewWindow::paint(QPrintPreviewDialog& dialog, QPrinter& printer)
{
    if (failure_)
        return;
    try {
        PreviewedPage page(printer);
        try {
            report_.write(page);
        } catch (const EnoughPages&) {
            dialog.setWindowTitle(words_("preview.begin").arg(kMostPages));
        }
        page.end();
    } catch (...) {
        failure_ = std::current_exception();
        QTimer::singleShot(0, &dialog, &QDialog::reject);
    }
}

} // namespace platform
