// A newer model of the instruments is installed than the open company's catalogue: the status bar names the
// command.
#include "gui/GuiFixture.h"

#include <QStatusBar>

namespace {

class ModelNotice : public gui::GuiFixture
{
protected:
    void install(const QString& version)
    {
        support::runSql(modelFile(), QStringLiteral("UPDATE tbInfoDatabase SET Version = '%1'").arg(version));
    }
    QWidget* panel() const { return window()->statusBar()->findChild<QWidget*>("Model"); }
};

TEST_F(ModelNotice, StandsAsLongAsTheCompanyIsOlder)
{
    install("99.1");
    start();
    ASSERT_TRUE(panel()->isVisible());
    EXPECT_EQ(panel()->findChild<QLabel*>("text")->text(), "Catalogue 99.1: Utility > Database > Upgrade");
    EXPECT_TRUE(panel()->toolTip().contains("newer catalogue"));
    picture(*window(), "newer-model");

    desktop.script.expect(texts(503), platform::answers::kYes);
    button("CloseDb")->trigger();
    EXPECT_FALSE(panel()->isVisible());
}

TEST_F(ModelNotice, IsNotThereWhereNothingIsNewer)
{
    start();
    EXPECT_FALSE(panel()->isVisible());
}

TEST_F(ModelNotice, FollowsTheLanguage)
{
    install("99.1");
    setLanguage("IT_Italiano_1000");
    start();
    EXPECT_EQ(panel()->findChild<QLabel*>("text")->text(), "Catalogo 99.1: Utilità > Database > Aggiorna");
}

} // namespace
