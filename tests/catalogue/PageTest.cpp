#include "catalogue/tool/Page.h"
#include "catalogue/tool/Checks.h"
#include "tests/catalogue/Published.h"

namespace catalogue {
namespace {

using testing::published;

QString textOfFile(const QString& name)
{
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return QString::fromUtf8(file.readAll());
}

TEST(Page, hasARowForEveryParameter)
{
    const QString file = published().folder.filePath("page.md");
    writePage(published().catalogue, file);
    const QString page = textOfFile(file);
    forEachParameter(published().catalogue, [&](const Type&, const Group&, const Parameter& parameter) {
        EXPECT_EQ(page.count("\n| " + parameter.id + " |"), 1) << parameter.id.toStdString();
    });
}

TEST(Page, inTheDocumentationIsUpToDate)
{
    const QString file = published().folder.filePath("now.md");
    writePage(published().catalogue, file);
    EXPECT_TRUE(textOfFile(file) == textOfFile(testing::kFolder + "/../docs/catalogue.md"))
        << "run: calidora-catalogue page catalogue docs/catalogue.md";
}

TEST(Page, failsAloudWhenItCannotBeWritten)
{
    testing::SourceFolder folder;
    EXPECT_THROW(writePage(published().catalogue, folder.file("no such folder/page.md")), std::runtime_error);
}

} // namespace
} // namespace catalogue
