#include "lists/frmFavorites.h"

#include <string>

#include "base/Text.h"
#include "core/HelpCommands.h"
#include "core/HelpContexts.h"
#include "dialogs/ShowDialog.h"
#include "viewer/MainViewFrm.h"
#include "viewer/MenuState.h"

namespace tavrix {

frmFavorites::frmFavorites(forms::Application& application, MainViewFrm& view)
    : Form(application, {.name = "frmFavorites"}), view_(view) {
    Caption = "Remove Favorite File(s)";
    HelpContext = HelpContext::FavoriteFiles;
    ListRemove.AccessibleName = "Favorite files";
    ListRemove.MultiSelect = forms::MultiSelect::Extended;
    ListRemove.OnDblClick = [this] { ListRemove_DblClick(); };
    lblMsg.Caption = "Double-click list to display entire path of filename.";
    CmdRemove.Caption = "&Remove";
    CmdRemove.ToolTip = "Remove the selected file(s) from your favorites list.";
    CmdRemove.Default = true;
    CmdRemove.OnClick = [this] { CmdRemove_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Close this window, don't remove a file.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdHelp.Caption = "&Help";
    CmdHelp.OnClick = [this] { ShowHelpPage(view_.Module(), HelpContext::FavoriteFiles); };
    using namespace forms;
    constexpr float listWidth = 6000;
    constexpr float listHeight = 3900;
    SetLayout(Row({Growing(Column({Growing(AtLeast(listWidth, listHeight, ListRemove)), lblMsg})),
                   Column({CmdRemove, CmdCancel, CmdHelp, Stretch()})}));
}

void frmFavorites::Form_Load() {
    const MainModule& module = view_.Module();
    const auto& files = module.config.FavoriteFiles;
    for (std::size_t slot = 0; slot < files.size(); ++slot) {
        if (files[slot].empty()) continue;
        const int row = ListRemove.ListCount();
        slots_.push_back(slot);
        ListRemove.AddItem(files[slot]);
        if (!EqualIgnoringCase(files[slot], module.CurrentImage)) continue;
        ListRemove.ListIndex = row;
        ListRemove.Select(row);
    }
}

void frmFavorites::CmdRemove_Click() {
    if (ListRemove.SelectedCount() == 0) {
        App().MessageBox({.text = "Select a file to remove from the list and then try again..."});
        return;
    }
    const forms::Answer answer =
        App().MessageBox({.text = "Remove the selected file(s) from your favorites list?",
                          .icon = forms::BoxIcon::Question,
                          .buttons = forms::BoxButtons::YesNo});
    if (answer != forms::Answer::Yes || Unloaded()) return;
    AppConfig& config = view_.Module().config;
    for (int row = 0; row < ListRemove.ListCount(); ++row) {
        if (ListRemove.Selected(row))
            config.FavoriteFiles.at(slots_.at(static_cast<std::size_t>(row))).clear();
    }
    RefreshFavoritesMenu(view_.menu, config);
    App().Unload(*this);
}

void frmFavorites::ListRemove_DblClick() {
    if (ListRemove.ListIndex < 0) return;
    App().MessageBox({.text = "Complete path to selected file:" + std::string(NewLine2) +
                              ListRemove.List(ListRemove.ListIndex)});
}

void mnuFavoritesRemove_Click(MainViewFrm& view) {
    MainModule& module = view.Module();
    if (module.Busy()) return;
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    ShowDialog<frmFavorites>(module, view);
}

}  // namespace tavrix
