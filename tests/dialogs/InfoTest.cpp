#include "dialogs/Info.h"

#include "platform/Machine.h"
#include "support/CompanyFixture.h"
#include "support/NamedFailure.h"

namespace {

class InfoTest : public support::CompanyFixture
{
protected:
    dialogs::Info::Desktop desktop()
    {
        return {[this] { return tool; }, [this](const QString& started) { this->started << started; }};
    }
    platform::Machine machine;
    QString tool;
    QStringList started;
    dialogs::Info info{{session, texts, op, machine, desktop()}};
};

TEST_F(InfoTest, TellsTheProgramAndTheDatabase)
{
    EXPECT_TRUE(info.lblPrgVer().startsWith("Calidora ver. "));
    EXPECT_EQ(info.lblPrgVer().section(' ', 2).count('.'), 2);
    EXPECT_FALSE(info.lblPrgVer().contains('('));
    session.DbVersion = "1.0.7";
    EXPECT_TRUE(info.lblPrgVer().endsWith("  (database ver. 1.0.7)"));
}

TEST_F(InfoTest, TellsTheMaker)
{
    EXPECT_EQ(info.lblCompany(), texts.common(50));
    EXPECT_EQ(info.lblAddress(), texts.common(55));
    EXPECT_EQ(info.lblLocality(), texts.common(60));
    EXPECT_EQ(info.lblCountry(), texts.common(65));
    EXPECT_EQ(info.lblVATNumber(), "VAT Number: " + texts.common(70));
    EXPECT_EQ(info.lblPhoneFax(), "Phone: " + texts.common(75) + " - Fax: " + texts.common(80));
    EXPECT_EQ(info.lblEMail(), "E-Mail: " + texts.common(85));
    EXPECT_EQ(info.lblWeb(), "WEB Site: " + texts.common(90));
    EXPECT_EQ(info.lblSupportEMail(), "Technical support: " + texts.common(100));
    EXPECT_TRUE(info.lblCopyright().endsWith(texts.common(50) + " All Rights Reserved."));
}

TEST_F(InfoTest, TheLinksOpenWhatStandsBehindTheFirstColon)
{
    info.MailTo(info.lblEMail());
    info.MailTo(info.lblSupportEMail());
    info.lblWeb_Click();
    EXPECT_EQ(op.addresses,
              (QStringList{"mailto:" + texts.common(85), "mailto:" + texts.common(100), texts.common(90)}));
}

TEST_F(InfoTest, TheDesktopsToolComesFirstAndAWindowOfOurOwnSecond)
{
    tool = "hardinfo";
    info.cmdSysInfo_Click();
    EXPECT_EQ(started, QStringList{"hardinfo"});
    EXPECT_TRUE(op.forms.isEmpty());
    tool.clear();
    info.cmdSysInfo_Click();
    EXPECT_EQ(started.size(), 1);
    EXPECT_EQ(op.forms, QStringList{"modal frmSystemInfo"});
}

TEST_F(InfoTest, TheFactsAreThoseOfTheMachine)
{
    const QString facts = info.systemFacts();
    EXPECT_EQ(facts.count('\n'), 7);
    EXPECT_TRUE(facts.contains(machine.osName()));
    EXPECT_TRUE(facts.contains(session.AppPath));
    EXPECT_TRUE(facts.contains(texts.own("system.cpu")));
}

TEST_F(InfoTest, AFailureStandsUnderItsProceduresName)
{
    dialogs::Info broken({session, texts, op, machine, {[]() -> QString { support::breakDown(); }, {}}});
    broken.cmdSysInfo_Click();
    failures.expectUnder("frmInfo.cmdSysInfo_Click");
    session.Language = session::LanguageSettings::fromIdentifier(support::kNoLanguage);
    info.lblWeb_Click();
    failures.expectUnder("frmInfo.lblWeb_Click");
}

class NoDesktop : public platform::ScriptedOperator
{
public:
    void openAddress(const QString&) override { support::breakDown(); }
};

TEST_F(InfoTest, AnAddressThatNothingOpensIsTold)
{
    NoDesktop desk;
    dialogs::Info alone({session, texts, desk, machine, desktop()});
    alone.MailTo(alone.lblEMail());
    failures.expectUnder("frmInfo/MailTo");
}

} // namespace
