#include "settings/WebLinks.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/WebAddresses.h"

namespace tavrix {
namespace {

constexpr const char* SiteFailure = "Unable to start your web browser to view the following web site:";

}  // namespace

void OpenWebPage(const MainModule& module, const std::string& address, const std::string& failure) {
    bool opened = false;
    if (!HasReservedHost(address)) SkipFailure([&] { opened = module.platform.shell.OpenAddress(address); });
    if (opened) return;
    module.app.MessageBox(
        {.text = failure + std::string(NewLine2) + address + "...", .icon = forms::BoxIcon::Stop});
}

void mnuWebSite_Click(const MainModule& module) {
    OpenWebPage(module, ProductAddress(), SiteFailure);
}

void mnuMainWebSite_Click(const MainModule& module) {
    OpenWebPage(module, MakerAddress(), SiteFailure);
}

void mnuCheckForUpgrade_Click(const MainModule& module) {
    const std::string text =
        "Tavrix can check the World Wide Web for a newer version of this program." + std::string(NewLine2) +
        "NOTE:" + std::string(NewLine) +
        "You must have a modem and a connection to the INTERNET for this feature to work." +
        std::string(NewLine2) + "Check for upgrade now?";
    const forms::Answer answer = module.app.MessageBox(
        {.text = text, .icon = forms::BoxIcon::Question, .buttons = forms::BoxButtons::YesNo});
    if (answer != forms::Answer::Yes) return;
    OpenWebPage(module, VersionAddress(),
                "Unable to start your web browser to view the Tavrix version web page:");
}

}  // namespace tavrix
