#include <gtest/gtest.h>

#include "core/WebAddresses.h"
#include "settings/SettingsTest.h"
#include "settings/WebLinks.h"

namespace tavrix::test {
namespace {

using forms::Answer;

constexpr const char* UpgradeQuestion =
    "Tavrix can check the World Wide Web for a newer version of this program.\r\n\r\nNOTE:\r\n"
    "You must have a modem and a connection to the INTERNET for this feature to work.\r\n\r\nCheck for "
    "upgrade now?";
constexpr const char* SiteFailure = "Unable to start your web browser to view the following web site:";

class HelpMenuTest : public SettingsTest {
  protected:
    void ExpectFailure(const std::string& text, const std::string& address) {
        Expect({.text = text + "\r\n\r\n" + address + "...", .icon = forms::BoxIcon::Stop});
    }
};

TEST_F(HelpMenuTest, EachTopicHasItsPage) {
    ASSERT_TRUE(Start());
    platform.help.calls.clear();
    MainMenu& menu = View().menu;
    for (forms::Menu* entry : {&menu.mnuHelpSearch, &menu.mnuGettingStarted, &menu.mnuHelpCreateShow,
                               &menu.mnuFaq, &menu.mnuHelpContents})
        Choose(*entry);
    const std::string file = "C:\\Tavrix\\TAVRIX.HLP";
    EXPECT_EQ(platform.help.calls, (std::vector<headless::RecordingHelp::Call>{
                                       {file, HelpCommand::Context, HelpContext::Search},
                                       {file, HelpCommand::Context, HelpContext::GettingStarted},
                                       {file, HelpCommand::Context, HelpContext::CreateShow},
                                       {file, HelpCommand::Context, HelpContext::Questions},
                                       {file, HelpCommand::Contents, 0}}));
}

TEST_F(HelpMenuTest, AnAddressThatNobodyCanHaveIsNotOpened) {
    ASSERT_TRUE(HasReservedHost(MakerAddress())) << "this test is about a build without a host of its own";
    ASSERT_TRUE(Start());
    ExpectFailure(SiteFailure, "https://www.tavrix.example/tavrix/");
    Choose(View().menu.mnuWebSite);
    ExpectFailure(SiteFailure, "https://www.tavrix.example/");
    Choose(View().menu.mnuMainWebSite);
    Expect({.text = UpgradeQuestion,
            .icon = forms::BoxIcon::Question,
            .buttons = forms::BoxButtons::YesNo,
            .reply = Answer::Yes});
    ExpectFailure("Unable to start your web browser to view the Tavrix version web page:",
                  "https://www.tavrix.example/tavrix/version.htm");
    Choose(View().menu.mnuCheckForUpgrade);
    EXPECT_TRUE(platform.shell.addresses.empty());
}

TEST_F(HelpMenuTest, WithoutAYesNothingIsOpenedOrTold) {
    ASSERT_TRUE(Start());
    Expect({.text = UpgradeQuestion,
            .icon = forms::BoxIcon::Question,
            .buttons = forms::BoxButtons::YesNo,
            .reply = Answer::No});
    Choose(View().menu.mnuCheckForUpgrade);
}

TEST_F(HelpMenuTest, AnAddressIsShownInTheBrowser) {
    ASSERT_TRUE(Start());
    OpenWebPage(module, "https://pictures.org/a", "No.");
    EXPECT_EQ(platform.shell.addresses, std::vector<std::string>{"https://pictures.org/a"});
    platform.shell.canRun = false;
    ExpectFailure("No.", "https://pictures.org/b");
    OpenWebPage(module, "https://pictures.org/b", "No.");
    platform.faults.FailAlways(headless::Service::Shell, "OpenAddress", ErrorNumber::PermissionDenied);
    ExpectFailure("No.", "https://pictures.org/c");
    OpenWebPage(module, "https://pictures.org/c", "No.");
}

TEST_F(HelpMenuTest, NothingIsOpenedWhileTheProgramIsBusy) {
    ASSERT_TRUE(Start());
    module.Screen().MousePointer = forms::MousePointer::Hourglass;
    for (forms::Menu* entry :
         {&View().menu.mnuWebSite, &View().menu.mnuMainWebSite, &View().menu.mnuCheckForUpgrade})
        Choose(*entry);
}

TEST(WebAddressesTest, ReservedHostsAreKnown) {
    for (const char* address : {"https://www.tavrix.example/", "https://example/", "http://a.b.invalid/x",
                                "https://A.EXAMPLE.COM:80/", "https://example.org", "http://localhost/",
                                "https://x.test?a", "https:///", ""})
        EXPECT_TRUE(HasReservedHost(address)) << address;
    for (const char* address : {"https://www.tavrix.org/", "https://example.se/", "https://myexample.com/",
                                "https://www.example.com.org/", "https://tavrix.org/x.example"})
        EXPECT_FALSE(HasReservedHost(address)) << address;
}

}  // namespace
}  // namespace tavrix::test
