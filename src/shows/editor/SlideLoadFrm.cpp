#include "shows/editor/SlideLoadFrm.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/HelpContexts.h"
#include "core/ImageKinds.h"
#include "core/NumberText.h"
#include "core/WaitFrm.h"
#include "shows/library/ShowsFolder.h"
#include "shows/stage/StageCommands.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

namespace KeyCode = forms::KeyCode;
namespace ShiftMask = forms::ShiftMask;

// Twips; so it fits a display of 1024 by 768 pixels.
constexpr float StartWidth = 12600;
constexpr float StartHeight = 9000;

constexpr int FunctionKey(int number) {
    return KeyCode::F1 + number - 1;
}

void Describe(forms::CommandButton& button, const std::string& caption, const std::string& toolTip = "",
              const std::string& name = "") {
    button.Caption = caption;
    button.ToolTip = toolTip;
    button.AccessibleName = name;
}

}  // namespace

SlideLoadFrm::SlideLoadFrm(forms::Application& application, MainViewFrm& view)
    : Form(application, {.name = "SlideLoadFrm", .resizable = true, .acceptsDrops = true}),
      view_(view),
      module_(view.Module()),
      Looked(*this, module_.platform.files, PatternOf(ImagesShown::Slides)),
      File1(*this, "File1", Looked, PatternOf(ImagesShown::Slides)) {
    HelpContext = HelpContext::SlideShowEditor;
    lblShow.Caption = "Slide show:";
    lblFilename.Literal = true;
    lblDrives.Caption = "&Drive:";
    lblDrives.SetBuddy(Drive1);
    lblFolders.Caption = "Folde&r:";
    lblFolders.SetBuddy(Dir1);
    lblFiles.Caption = "F&iles:";
    lblFiles.SetBuddy(File1);
    Label2.Caption = "[View List]  ---  Slide Show Images:";
    Label2.SetBuddy(ListView);
    Describe(CmdMenu1, "Men&u", "Open the menu of the file list.", "Menu of the file list");
    Describe(CmdMenu2, "&Menu", "Open the menu of the view list.", "Menu of the view list");
    Describe(CmdAdd, ">", "Add selected files to view list.", "Add selected files");
    Describe(CmdAddAll, ">>", "Add all files to view list.", "Add all files");
    Describe(CmdRemove, "<", "Remove selected files from view list.", "Remove selected files");
    Describe(CmdRemoveAll, "<<", "Remove all files from view list.", "Remove all files");
    Describe(CmdAll, "<- &All");
    Describe(CmdNone, "<- &None");
    Describe(CmdPreview, "<- Vie&w...");
    Describe(CmdOptions, "&Options...");
    Describe(CmdLoad, "&Load...");
    Describe(CmdSave, "&Save");
    Describe(CmdSaveAs, "Sa&ve As...");
    Describe(CmdOK, "View S&how");
    Describe(CmdCancel, "&Close");
    CmdOK.Default = true;
    CmdCancel.Cancel = true;
    for (forms::ListControl* list :
         {static_cast<forms::ListControl*>(&File1), static_cast<forms::ListControl*>(&ListView)})
        list->MultiSelect = forms::MultiSelect::Extended;
    Width = StartWidth;
    Height = StartHeight;
    InstallCommands();
    InstallKeys();
    Arrange();
}

void SlideLoadFrm::Arrange() {
    using namespace forms;
    constexpr float listWidth = 3600;
    constexpr float folderHeight = 1500;
    constexpr float fileHeight = 2400;
    constexpr float pathWidth = 3000;
    SetLayout(Column({Row({lblShow, Growing(AtLeast(pathWidth, 0, lblFilename))}),
                      Growing(Row({Growing(Column({lblDrives, Drive1, lblFolders,
                                                   Growing(AtLeast(listWidth, folderHeight, Dir1)),
                                                   Row({Growing(lblFiles), CmdMenu1}),
                                                   Growing(AtLeast(listWidth, fileHeight, File1), 2)}),
                                           2),
                                   Column({Stretch(), CmdAdd, CmdAddAll, CmdRemove, CmdRemoveAll, Stretch(),
                                           CmdAll, CmdNone, CmdPreview, CmdFF, Stretch()}),
                                   Growing(Column({Row({Growing(Label2), CmdMenu2}),
                                                   Growing(AtLeast(listWidth, 0, ListView)), lblNumSlides}),
                                           3)})),
                      Row({CmdOptions, CmdLoad, CmdSave, CmdSaveAs, Stretch(), CmdOK, CmdCancel})}));
}

std::function<void()> SlideLoadFrm::Guarded(Command command) {
    return [this, command] {
        if (module_.Busy()) return;
        Lists.Forget();
        (this->*command)();
    };
}

std::function<void()> SlideLoadFrm::GuardedSources(Command command) {
    return [this, command] {
        if (module_.Busy() || Lists.Awaits(GuardedSources(command))) return;
        (this->*command)();
    };
}

void SlideLoadFrm::OpenPopup(forms::Menu& menu) {
    if (!module_.Busy()) PopupMenu(menu, nullptr);
}

void SlideLoadFrm::InstallCommands() {
    using Me = SlideLoadFrm;
    CmdAdd.OnClick = GuardedSources(&Me::CmdAdd_Click);
    CmdAddAll.OnClick = GuardedSources(&Me::CmdAddAll_Click);
    CmdRemove.OnClick = Guarded(&Me::CmdRemove_Click);
    CmdRemoveAll.OnClick = Guarded(&Me::CmdRemoveAll_Click);
    CmdAll.OnClick = GuardedSources(&Me::CmdAll_Click);
    CmdNone.OnClick = GuardedSources(&Me::CmdNone_Click);
    CmdPreview.OnClick = GuardedSources(&Me::CmdPreview_Click);
    CmdOptions.OnClick = Guarded(&Me::CmdOptions_Click);
    CmdLoad.OnClick = Guarded(&Me::CmdLoad_Click);
    CmdSaveAs.OnClick = Guarded(&Me::CmdSaveAs_Click);
    CmdSave.OnClick = Guarded(&Me::CmdSave_Click);
    CmdOK.OnClick = Guarded(&Me::CmdOK_Click);
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    CmdMenu1.OnClick = [this] { OpenPopup(Menu1.mnuMenu1); };
    CmdMenu2.OnClick = [this] { OpenPopup(Menu2.mnuMenu2); };

    File1.OnDblClick = GuardedSources(&Me::CmdPreview_Click);
    File1.OnMouseUp = [this](const forms::MouseArguments& mouse) {
        if (mouse.button == forms::MouseButton::Right) OpenPopup(Menu1.mnuMenu1);
    };
    File1.OnDragStart = [this](const forms::MouseArguments& press) { BeginDrag(File1, press); };
    ListView.OnDblClick = Guarded(&Me::mnuViewImage2_Click);
    ListView.OnMouseUp = [this](const forms::MouseArguments& mouse) {
        if (mouse.button == forms::MouseButton::Right) OpenPopup(Menu2.mnuMenu2);
    };
    ListView.OnDragStart = [this](const forms::MouseArguments& press) { BeginDrag(ListView, press); };
    ListView.OnDragDrop = [this](const forms::DragArguments& drop) { ListView_DragDrop(drop); };

    Menu1.mnuSelectAll.Install(GuardedSources(&Me::CmdAll_Click));
    Menu1.mnuSelectNone.Install(GuardedSources(&Me::CmdNone_Click));
    Menu1.mnuInverse1.Install(GuardedSources(&Me::mnuInverse1_Click));
    Menu1.mnuAddAll.Install(GuardedSources(&Me::CmdAddAll_Click));
    Menu1.mnuAddSelected.Install(GuardedSources(&Me::CmdAdd_Click));
    Menu1.mnuExploreFolder.Install(Guarded(&Me::mnuExploreFolder_Click));
    Menu1.mnuCopyFiles.Install(GuardedSources(&Me::mnuCopyFiles_Click));
    Menu1.mnuMoveFiles.Install(GuardedSources(&Me::mnuMoveFiles_Click));
    Menu1.mnuRenameFile.Install(GuardedSources(&Me::mnuRenameFile_Click));
    Menu1.mnuDeleteFile.Install(GuardedSources(&Me::mnuDeleteFile_Click));
    Menu1.mnuSourceInfo.Install(GuardedSources(&Me::mnuSourceInfo_Click));
    Menu1.mnuShowFileInfo.Install(GuardedSources(&Me::mnuShowFileInfo_Click));
    Menu1.mnuViewAnimatedGIF1.Install(GuardedSources(&Me::mnuViewAnimatedGIF1_Click));
    Menu1.mnuViewImage.Install(GuardedSources(&Me::CmdPreview_Click));

    Menu2.mnuListSelectAll.Install(Guarded(&Me::mnuListSelectAll_Click));
    Menu2.mnuListSelectNone.Install(Guarded(&Me::mnuListSelectNone_Click));
    Menu2.mnuInverse2.Install(Guarded(&Me::mnuInverse2_Click));
    Menu2.mnuRemoveAll.Install(Guarded(&Me::CmdRemoveAll_Click));
    Menu2.mnuRemoveSelected.Install(Guarded(&Me::CmdRemove_Click));
    Menu2.mnuEditDescription.Install(Guarded(&Me::mnuEditDescription_Click));
    Menu2.mnuClearDescriptions.Install(Guarded(&Me::mnuClearDescriptions_Click));
    Menu2.mnuMoveFileUp.Install(Guarded(&Me::mnuMoveFileUp_Click));
    Menu2.mnuMoveFileDown.Install(Guarded(&Me::mnuMoveFileDown_Click));
    Menu2.mnuMoveToTop.Install(Guarded(&Me::mnuMoveToTop_Click));
    Menu2.mnuMoveToBottom.Install(Guarded(&Me::mnuMoveToBottom_Click));
    Menu2.mnuReverseOrder.Install(Guarded(&Me::mnuReverseOrder_Click));
    Menu2.mnuRandomizeOrder.Install(Guarded(&Me::mnuRandomizeOrder_Click));
    Menu2.mnuExploreShowFolder.Install(Guarded(&Me::mnuExploreShowFolder_Click));
    Menu2.mnuExploreSlideFolder.Install(Guarded(&Me::mnuExploreSlideFolder_Click));
    Menu2.mnuCheckDuplicate.Install(Guarded(&Me::mnuCheckDuplicate_Click));
    Menu2.mnuSelectMissing.Install(Guarded(&Me::mnuSelectMissing_Click));
    Menu2.mnuRemoveMissing.Install(Guarded(&Me::mnuRemoveMissing_Click));
    Menu2.mnuRenameShow.Install(Guarded(&Me::mnuRenameShow_Click));
    Menu2.mnuDeleteShow.Install(Guarded(&Me::mnuDeleteShow_Click));
    Menu2.mnuSlideShowInfo.Install(Guarded(&Me::mnuSlideShowInfo_Click));
    Menu2.mnuShowImagePath.Install(Guarded(&Me::mnuShowImagePath_Click));
    Menu2.mnuViewAnimatedGIF2.Install(Guarded(&Me::mnuViewAnimatedGIF2_Click));
    Menu2.mnuViewImage2.Install(Guarded(&Me::mnuViewImage2_Click));
}

void SlideLoadFrm::InstallKeys() {
    struct Key {
        int keyCode;
        int shift;
        forms::Menu& entry;
    };
    // The letters are accelerators of the buttons that do the same.
    for (const Key& key : {Key{FunctionKey(9), ShiftMask::None, Menu1.mnuInverse1},
                           {KeyCode::Insert, ShiftMask::None, Menu1.mnuAddSelected},
                           {FunctionKey(8), ShiftMask::Shift, Menu1.mnuExploreFolder},
                           {FunctionKey(11), ShiftMask::Shift, Menu1.mnuCopyFiles},
                           {FunctionKey(11), ShiftMask::Ctrl, Menu1.mnuMoveFiles},
                           {FunctionKey(11), ShiftMask::Alt, Menu1.mnuRenameFile},
                           {KeyCode::Delete, ShiftMask::None, Menu1.mnuDeleteFile},
                           {FunctionKey(2), ShiftMask::Alt, Menu1.mnuSourceInfo},
                           {FunctionKey(11), ShiftMask::None, Menu1.mnuShowFileInfo},
                           {FunctionKey(5), ShiftMask::Ctrl, Menu1.mnuViewAnimatedGIF1}})
        sourceKeys_.On(key.keyCode, key.shift, [&entry = key.entry] { entry.Click(); });
    for (const Key& key : {Key{FunctionKey(5), ShiftMask::None, Menu2.mnuListSelectAll},
                           {FunctionKey(6), ShiftMask::None, Menu2.mnuListSelectNone},
                           {FunctionKey(9), ShiftMask::None, Menu2.mnuInverse2},
                           {KeyCode::Back, ShiftMask::None, Menu2.mnuRemoveAll},
                           {KeyCode::Delete, ShiftMask::None, Menu2.mnuRemoveSelected},
                           {FunctionKey(3), ShiftMask::None, Menu2.mnuEditDescription},
                           {FunctionKey(4), ShiftMask::None, Menu2.mnuClearDescriptions},
                           {FunctionKey(7), ShiftMask::None, Menu2.mnuMoveToTop},
                           {FunctionKey(8), ShiftMask::None, Menu2.mnuMoveToBottom},
                           {KeyCode::Insert, ShiftMask::None, Menu2.mnuRandomizeOrder},
                           {FunctionKey(8), ShiftMask::Shift, Menu2.mnuExploreShowFolder},
                           {FunctionKey(8), ShiftMask::Ctrl, Menu2.mnuExploreSlideFolder},
                           {FunctionKey(2), ShiftMask::Shift, Menu2.mnuCheckDuplicate},
                           {FunctionKey(5), ShiftMask::Shift, Menu2.mnuSelectMissing},
                           {FunctionKey(2), ShiftMask::Ctrl, Menu2.mnuRemoveMissing},
                           {FunctionKey(3), ShiftMask::Shift, Menu2.mnuRenameShow},
                           {KeyCode::Delete, ShiftMask::Shift, Menu2.mnuDeleteShow},
                           {FunctionKey(2), ShiftMask::Alt, Menu2.mnuSlideShowInfo},
                           {FunctionKey(11), ShiftMask::None, Menu2.mnuShowImagePath},
                           {FunctionKey(5), ShiftMask::Ctrl, Menu2.mnuViewAnimatedGIF2},
                           {FunctionKey(12), ShiftMask::None, Menu2.mnuViewImage2}})
        slideKeys_.On(key.keyCode, key.shift, [&entry = key.entry] { entry.Click(); });
    sourceKeys_.On("=", [this] { Menu1.mnuAddAll.Click(); });
    slideKeys_.On("-", [this] { Menu2.mnuMoveFileUp.Click(); });
    slideKeys_.On("+", [this] { Menu2.mnuMoveFileDown.Click(); });
    slideKeys_.On("~", [this] { Menu2.mnuReverseOrder.Click(); });
}

void SlideLoadFrm::Form_Load() {
    auto& wait = App().Load<WaitFrm>();
    wait.lblMsg.Caption = "Loading slide show editor, please wait...";
    wait.Show();
    module_.DoEvents();
    Caption = "Tavrix - [Slide Show Editor]";
    module_.show.EraseSlides();
    module_.show.ShowChanged = false;
    SetFilename(Untitled);
    ShowCount();
    SkipFailure([this] { Lists.GoTo(ShowsFolder(module_)); });
    UnloadWaitWindow(App());
}

void SlideLoadFrm::Tell(const std::string& text, const std::string& title) const {
    App().MessageBox({.text = text, .title = title});
}

bool SlideLoadFrm::Ask(const std::string& text, const std::string& title, int defaultButton) const {
    return App().MessageBox({.text = text,
                             .title = title,
                             .icon = forms::BoxIcon::Question,
                             .buttons = forms::BoxButtons::YesNo,
                             .defaultButton = defaultButton}) == forms::Answer::Yes;
}

std::string SlideLoadFrm::Count(std::int64_t number) const {
    return GroupedNumber(number, module_.platform.system.Numbers());
}

void mnuSlideShow_Click(MainViewFrm& view) {
    MainModule& module = view.Module();
    if (module.Busy() || module.app.Loaded<SlideLoadFrm>() != nullptr) return;
    EndStage(module);
    forms::BusyGuard busy(module.Screen());
    module.DoEvents();
    if (module.config.TopMostWindow) view.SetTopmost(false);
    auto& editor = module.app.Load<SlideLoadFrm>(view);
    view.Hide();
    busy.Release();
    editor.Show();
}

void mnuOpenSlideShow_Click(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (module.Busy()) return;
    mnuSlideShow_Click(view);
    if (auto* editor = module.app.Loaded<SlideLoadFrm>()) editor->CmdLoad_Click();
}

void InstallEditorCommands(MainViewFrm& view) {
    view.menu.mnuOpenSlideShow.Install([&view] { mnuOpenSlideShow_Click(view); });
    view.menu.mnuSlideShow.Install([&view] { mnuSlideShow_Click(view); });
}

}  // namespace tavrix
