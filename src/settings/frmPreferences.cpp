#include "settings/frmPreferences.h"

#include <algorithm>
#include <ranges>

#include "base/RuntimeError.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "core/Settings.h"
#include "viewer/BackgroundColours.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

template <class List>
bool IsEmpty(const List& list) {
    return std::ranges::all_of(list, [](const std::string& path) { return path.empty(); });
}

/// The option that is chosen, counted from 0; `otherwise` where none is.
template <class Options>
std::int16_t ChosenOf(Options&& options, std::int16_t otherwise) {
    std::int16_t index = 0;
    for (const forms::OptionButton& option : options) {
        if (option.Value) return index;
        ++index;
    }
    return otherwise;
}

}  // namespace

frmPreferences::frmPreferences(forms::Application& application, MainViewFrm& view)
    : Form(application, {.name = "frmPreferences"}), view_(view), module_(view.Module()) {
    Caption = "Preferences";
    HelpContext = HelpContext::Preferences;
    NameControls();
    CheckRecent.OnClick = [this] { CheckRecent_Click(); };
    CmdClearList.OnClick = [this] { CmdClearList_Click(); };
    CmdClearRecentShow.OnClick = [this] { CmdClearRecentShow_Click(); };
    CmdRecentDocs.OnClick = [this] { CmdRecentDocs_Click(); };
    for (std::size_t i = 0; i < OptionsOfColor.size(); ++i)
        OptionsOfColor.at(i)->OnClick = [this, i] { lblColor.BackColor = BackgroundColours.at(i); };
    CmdOK.Caption = "&OK";
    CmdOK.ToolTip = "Save changes.";
    CmdOK.Default = true;
    CmdOK.OnClick = [this] { CmdOK_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Don't save changes.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdHelp.Caption = "&Help";
    CmdHelp.OnClick = [this] { ShowHelpPage(module_, HelpContext::Preferences); };
    BuildLayout();
}

void frmPreferences::NameControls() {
    FrameExit.Caption = "Exit Options:";
    CheckSaveSize.Caption = "Save current window &position and size on exit.";
    CheckDelUntitled.Caption = "D&elete temporary file(s) when program exits.";
    CheckClipboard.Caption = "Ask to clear image from clipboard on e&xit.";
    FrameRecent.Caption = "Recent Files:";
    CheckRecent.Caption = "Don't keep rece&nt files lists.";
    CmdClearList.Caption = "Clea&r Recent Files List";
    CmdClearList.ToolTip = "Clear the list of recent files in the File menu.";
    CmdClearRecentShow.Caption = "Clear Recent Slide Show List";
    CmdClearRecentShow.ToolTip = "Clear the list of slide shows that were used last.";
    CmdRecentDocs.Caption = "Clear Recent Doc&uments";
    CmdRecentDocs.ToolTip = "Clear the desktop's list of recent documents, those of other programs too.";
    FrameOpen.Caption = "Open Image:";
    CheckStretch.Caption = "Shrink images, if too big for &full screen.";
    CheckEnlarge.Caption = "En&large images, if too small for full screen.";
    CheckResizeForm.Caption = "Resi&ze main viewing window to fit image.";
    CheckClickOpen.Caption = "Clic&k screen to display \"Open\" dialog.";
    CheckViewFull.Caption = "&View images full screen by default.";
    FrameStartup.Caption = "Startup Options:";
    CheckDisplayLast.Caption = "&Try to display image that was last opened.";
    CheckMaximize.Caption = "&Maximize Tavrix window.";
    OptionStartup[0].Caption = "&Don't show any dialogs at startup.";
    OptionStartup[1].Caption = "Display \"&About Tavrix\" dialog.";
    OptionStartup[2].Caption = "Display \"&Slide Show Editor\" dialog.";
    OptionStartup[3].Caption = "Display \"Open &Image\" dialog.";
    OptionStartup[4].Caption = "Display \"Thumbnail Browser\" dialog.";
    FrameColor.Caption = "Background Color: (Full Screen View)";
    Option1.Caption = "&Black";
    Option2.Caption = "&White";
    Option3.Caption = "S&ystem";
    Option4.Caption = "Dark Blue";
    Option5.Caption = "Dark Red";
    Option6.Caption = "Dark Brown";
    lblColor.Caption = "Select a color to preview it here.";
}

void frmPreferences::BuildLayout() {
    using namespace forms;
    const Layout lists = Group(FrameRecent, {CheckRecent, CmdClearList, CmdClearRecentShow, CmdRecentDocs});
    const Layout startup =
        Group(FrameStartup, {CheckDisplayLast, CheckMaximize, OptionStartup[0], OptionStartup[1],
                             OptionStartup[2], OptionStartup[3], OptionStartup[4]});
    const Layout colour =
        Group(FrameColor,
              {Row({Column({Option1, Option2, Option3}), Column({Option4, Option5, Option6}), Stretch()}),
               AtLeast(0, 450, lblColor)});
    SetLayout(Column({Row({Column({Group(FrameExit, {CheckSaveSize, CheckDelUntitled, CheckClipboard}), lists,
                                   Group(FrameOpen, {CheckStretch, CheckEnlarge, CheckResizeForm,
                                                     CheckClickOpen, CheckViewFull}),
                                   Stretch()}),
                           Column({startup, colour, Stretch()})}),
                      Row({Stretch(), CmdOK, CmdCancel, CmdHelp})}));
}

void frmPreferences::Form_Load() {
    const AppConfig& c = module_.config;
    for (const Tick& tick : plainTicks_)
        tick.box.Value = c.*tick.setting;
    CheckSaveSize.Value = c.SaveWindowSize;
    CheckMaximize.Value = c.WindowMaximized;
    CheckRecent.Value = !c.KeepRecent;
    OptionStartup.at(static_cast<std::size_t>(c.StartupDialog)).Value = true;
    OptionsOfColor.at(static_cast<std::size_t>(c.BackgroundColor))->Value = true;
}

void frmPreferences::CheckRecent_Click() {
    CmdClearList.Enabled = CmdClearRecentShow.Enabled = !CheckRecent.Value;
}

void frmPreferences::CmdOK_Click() {
    if (module_.Busy()) return;
    AppConfig& c = module_.config;
    c.WindowMaximized = CheckMaximize.Value;
    view_.WindowState = c.WindowMaximized ? forms::WindowState::Maximized : forms::WindowState::Normal;
    c.SaveWindowSize = CheckSaveSize.Value;
    c.BackgroundColor =
        ChosenOf(OptionsOfColor | std::views::transform([](auto* option) -> auto& { return *option; }),
                 c.BackgroundColor);
    view_.ShowBackgroundColor();
    c.StartupDialog = ChosenOf(OptionStartup, c.StartupDialog);
    for (const Tick& tick : plainTicks_)
        c.*tick.setting = tick.box.Value;
    c.KeepRecent = !CheckRecent.Value;
    if (!c.KeepRecent) {
        c.Recent.fill("");
        module_.RefreshRecentMenu();
    }
    SavePreferenceSettings(module_);
    App().Unload(*this);
}

bool frmPreferences::Agrees(const std::string& question) {
    return App().MessageBox(
               {.text = question, .icon = forms::BoxIcon::Question, .buttons = forms::BoxButtons::YesNo}) ==
           forms::Answer::Yes;
}

void frmPreferences::CmdClearList_Click() {
    if (module_.Busy()) return;
    if (IsEmpty(module_.config.Recent)) {
        App().MessageBox({.text = "The recent files list is already empty..."});
    } else if (Agrees("Clear the recent files list?")) {
        module_.config.Recent.fill("");
        module_.RefreshRecentMenu();
    }
}

void frmPreferences::CmdClearRecentShow_Click() {
    if (module_.Busy()) return;
    if (IsEmpty(module_.config.RecentShows)) {
        App().MessageBox({.text = "The recent slide show list is already empty..."});
    } else if (Agrees("Clear the recent slide show list?")) {
        module_.config.RecentShows.fill("");
    }
}

void frmPreferences::CmdRecentDocs_Click() {
    if (module_.Busy() || !Agrees("Clear the Recent Documents located in your Start menu?")) return;
    bool cleared = false;
    SkipFailure([&] { cleared = module_.platform.shell.ClearRecent(); });
    if (!cleared)
        App().MessageBox({.text = "Unable to clear the Recent Documents...", .icon = forms::BoxIcon::Stop});
}

}  // namespace tavrix
