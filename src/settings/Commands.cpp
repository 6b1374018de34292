#include "settings/Commands.h"

#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "core/SystemDialogs.h"
#include "dialogs/ShowDialog.h"
#include "settings/SysInfoFrm.h"
#include "settings/WebLinks.h"
#include "settings/frmAbout.h"
#include "settings/frmAdvanced.h"
#include "settings/frmPreferences.h"
#include "settings/frmTip.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

/// The entry opens a dialog above the main view, unless the program is busy.
template <class Dialog, class Owner>
void Opens(forms::Menu& entry, MainViewFrm& view, Owner& owner) {
    entry.Install([&view, &owner] {
        const MainModule& module = view.Module();
        if (module.Busy()) return;
        const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
        ShowDialog<Dialog>(module, owner);
    });
}

/// The entry does something at once, unless the program is busy.
void Does(forms::Menu& entry, MainModule& module, void (*action)(const MainModule&)) {
    entry.Install([&module, action] {
        if (!module.Busy()) action(module);
    });
}

}  // namespace

void ShowAbout(MainModule& module) {
    ShowDialog<frmAbout>(module, module);
}

void InstallSettingsCommands(MainViewFrm& view) {
    MainModule& module = view.Module();
    Opens<frmPreferences>(view.menu.mnuPref, view, view);
    Opens<frmAdvanced>(view.menu.mnuAdvancedSettings, view, module);
    Opens<frmAbout>(view.menu.mnuAbout, view, module);
    Opens<SysInfoFrm>(view.menu.mnuSysInfo, view, module);
    Opens<frmTip>(view.menu.mnuTipOfDay, view, module);

    Does(view.menu.mnuDisplayProperties, module, OpenDisplayProperties);
    Does(view.menu.mnuMultimediaProperties, module, OpenMultimediaProperties);
    Does(view.menu.mnuWebSite, module, mnuWebSite_Click);
    Does(view.menu.mnuCheckForUpgrade, module, mnuCheckForUpgrade_Click);
    Does(view.menu.mnuMainWebSite, module, mnuMainWebSite_Click);

    const auto turnsTo = [&module](forms::Menu& entry, unsigned page) {
        entry.Install([&module, page] { ShowHelpPage(module, page); });
    };
    turnsTo(view.menu.mnuHelpSearch, HelpContext::Search);
    turnsTo(view.menu.mnuGettingStarted, HelpContext::GettingStarted);
    turnsTo(view.menu.mnuHelpCreateShow, HelpContext::CreateShow);
    turnsTo(view.menu.mnuFaq, HelpContext::Questions);
}

}  // namespace tavrix
