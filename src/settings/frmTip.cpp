#include "settings/frmTip.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FailureText.h"
#include "core/HelpContexts.h"
#include "settings/TipFile.h"

namespace tavrix {
namespace {

constexpr const char* ShowTips = "Show Tips at Startup";

}  // namespace

frmTip::frmTip(forms::Application& application, MainModule& module)
    : Form(application, {.name = "frmTip"}), module_(module) {
    Caption = "Tip of the Day";
    HelpContext = HelpContext::TipOfTheDay;
    lblHeading.Caption = "Did you know...";
    lblTipText.Literal = true;
    lblTipText.WordWrap = true;
    chkLoadTipsAtStartup.Caption = "&Show Tips at Startup";
    cmdNextTip.Caption = "&Next Tip";
    cmdNextTip.OnClick = [this] { cmdNextTip_Click(); };
    cmdOK.Caption = "&OK";
    cmdOK.Default = true;
    cmdOK.Cancel = true;
    cmdOK.OnClick = [this] { App().Unload(*this); };
    using namespace forms;
    constexpr float textWidth = 6000;
    constexpr float textHeight = 1000;  // of the longest tip, so that the window keeps its size
    SetLayout(Column({lblHeading, AtLeast(textWidth, textHeight, lblTipText),
                      Row({chkLoadTipsAtStartup, Stretch(), cmdNextTip, cmdOK})}));
}

void frmTip::Form_Load() {
    std::string show = "1";
    SkipFailure([&] { show = module_.platform.store.Get(ShowTips, show); });
    chkLoadTipsAtStartup.Value = ParseLong(show).value_or(1) != 0;
    chkLoadTipsAtStartup.OnClick = [this] { chkLoadTipsAtStartup_Click(); };
    module_.random.Seed(static_cast<std::uint32_t>(App().GetToolkit().Now().count()));
    if (LoadTips(module_.AppPath + "TIPOFDAY.DAT")) return;
    lblTipText.Caption = "That the TIPOFDAY.DAT file was not found? " + std::string(NewLine2) +
                         "Tavrix may not have been properly installed or files could have since been damaged "
                         "and/or deleted... ";
}

bool frmTip::LoadTips(const std::string& path) {
    std::vector<std::string> tips;
    SkipFailure([&] { tips = ReadTips(module_.platform.files, path); });
    if (tips.empty()) return false;
    tips_ = std::move(tips);
    CurrentTip = static_cast<int>(module_.random.Next() * static_cast<float>(tips_.size())) + 1;
    DisplayCurrentTip();
    return true;
}

void frmTip::DisplayCurrentTip() {
    if (!tips_.empty()) lblTipText.Caption = tips_.at(static_cast<std::size_t>(CurrentTip - 1));
}

void frmTip::cmdNextTip_Click() {
    if (tips_.empty()) return;
    CurrentTip = CurrentTip < static_cast<int>(tips_.size()) ? CurrentTip + 1 : 1;
    DisplayCurrentTip();
}

void frmTip::chkLoadTipsAtStartup_Click() {
    try {
        module_.platform.store.Set(ShowTips, chkLoadTipsAtStartup.Value ? "1" : "0");
    } catch (const RuntimeError& error) {
        TellFailure(module_, "Unable to save the setting.", error);
    }
}

}  // namespace tavrix
