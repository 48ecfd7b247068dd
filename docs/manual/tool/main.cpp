// Makes one PDF of the chapters of one language.
//
//   calidora-manual-pdf <folder of the chapters> <pdf> <title>

#include <QAbstractTextDocumentLayout>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QTextDocument>

#include <cstdio>

namespace {

constexpr int kPictureWidth = 480; // points on the page

QString read(const QString& file)
{
    QFile chapter(file);
    return chapter.open(QIODevice::ReadOnly) ? QString::fromUtf8(chapter.readAll()) : QString();
}

// A chapter as a page of HTML: it begins on a page of its own, its pictures fit, and a reference to another
// chapter is that chapter's name.
QString pageOf(const QDir& folder, const QString& chapter, bool first)
{
    static const QRegularExpression kToChapter(R"(\[([^\]]*)\]\([0-9][^)]*\.md\))");
    static const QRegularExpression kPicture("<img src=\"([^\"]+)\"[^>]*>");
    QTextDocument document;
    document.setMarkdown(read(folder.filePath(chapter)).replace(kToChapter, QStringLiteral("*\\1*")));
    QString html = document.toHtml();
    html = html.section(QStringLiteral("<body"), 1).section(u'>', 1).section(QStringLiteral("</body>"), 0, 0);
    qsizetype from = 0;
    for (auto found = kPicture.match(html, from); found.hasMatch(); found = kPicture.match(html, from)) {
        const QString path = QDir::cleanPath(folder.absoluteFilePath(found.captured(1)));
        const QImage picture(path);
        if (picture.isNull())
            std::fprintf(stderr, "no picture %s\n", qPrintable(path));
        const int width = std::min(kPictureWidth, int(picture.width() * 0.6));
        const QString fitted = QStringLiteral("<img src=\"%1\" width=\"%2\">").arg(path).arg(width);
        html.replace(found.capturedStart(), found.capturedLength(), fitted);
        from = found.capturedStart() + fitted.size();
    }
    html.replace(QStringLiteral("<table "), QStringLiteral("<table cellpadding=\"3\" border=\"0.5\" "));
    const QString breaks = first ? QString() : QStringLiteral(" style=\"page-break-before:always;\"");
    return QStringLiteral("<div%1></div>").arg(breaks) + html;
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4) {
        std::fputs("calidora-manual-pdf <folder of the chapters> <pdf> <title>\n", stderr);
        return 2;
    }
    const QDir folder(arguments[1]);
    QString html;
    for (const QString& chapter : folder.entryList({"*.md"}, QDir::Files, QDir::Name))
        html += pageOf(folder, chapter, html.isEmpty());

    QPdfWriter pdf(arguments[2]);
    pdf.setTitle(arguments[3]);
    pdf.setPageSize(QPageSize(QPageSize::A4));
    pdf.setPageMargins(QMarginsF(18, 16, 18, 16), QPageLayout::Millimeter);
    QTextDocument book;
    book.setDefaultFont(QFont(QStringLiteral("Liberation Sans"), 10));
    book.setHtml(html);
    book.print(&pdf);
    return QFile::exists(arguments[2]) ? 0 : 1;
}
