#pragma once

#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "core/ShowFolder.h"
#include "dialogs/FolderButton.h"
#include "dialogs/FolderLists.h"
#include "dialogs/LookedFiles.h"
#include "platform/forms/Application.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Label.h"
#include "platform/forms/ListBox.h"
#include "shows/SlideEditor.h"
#include "shows/editor/EditorMenus.h"
#include "shows/editor/ListKeys.h"
#include "shows/files/WriteSlideFile.h"

namespace tavrix {

class MainViewFrm;

/// The editor of slide shows: on the left the files of a folder, on the right the View List, the rows of which are the
/// slides of MainModule::show. The main view is hidden while it is loaded.
///
/// Its files are apart by what the commands are about: rows, order, missing slides, the stage, information, files, drags,
/// and the end.
class SlideLoadFrm final : public forms::Form, public SlideEditor {
  public:
    /// What the editor shows for a show that has not been saved yet.
    static constexpr const char* Untitled = "Untitled.tvs";

    SlideLoadFrm(forms::Application& application, MainViewFrm& view);

  private:
    MainViewFrm& view_;
    MainModule& module_;

  public:
    LookedFiles Looked;
    forms::Label lblShow{*this, "lblShow"};
    forms::Label lblFilename{*this, "lblFilename"};
    forms::Label lblDrives{*this, "lblDrives"};
    forms::DriveListBox Drive1{*this, "Drive1", module_.platform.files, module_.platform.drives};
    forms::Label lblFolders{*this, "lblFolders"};
    forms::DirListBox Dir1{*this, "Dir1", Looked};
    forms::Label lblFiles{*this, "lblFiles"};
    forms::CommandButton CmdMenu1{*this, "CmdMenu1"};
    forms::FileListBox File1;
    forms::CommandButton CmdAdd{*this, "CmdAdd"};
    forms::CommandButton CmdAddAll{*this, "CmdAddAll"};
    forms::CommandButton CmdRemove{*this, "CmdRemove"};
    forms::CommandButton CmdRemoveAll{*this, "CmdRemoveAll"};
    forms::CommandButton CmdAll{*this, "CmdAll"};
    forms::CommandButton CmdNone{*this, "CmdNone"};
    forms::CommandButton CmdPreview{*this, "CmdPreview"};
    forms::CommandButton CmdFF{*this, "CmdFF"};
    forms::Label Label2{*this, "Label2"};
    forms::CommandButton CmdMenu2{*this, "CmdMenu2"};
    forms::ListBox ListView{*this, "ListView"};
    forms::Label lblNumSlides{*this, "lblNumSlides"};
    forms::CommandButton CmdOptions{*this, "CmdOptions"};
    forms::CommandButton CmdLoad{*this, "CmdLoad"};
    forms::CommandButton CmdSave{*this, "CmdSave"};
    forms::CommandButton CmdSaveAs{*this, "CmdSaveAs"};
    forms::CommandButton CmdOK{*this, "CmdOK"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};

    SourceMenu Menu1{*this};
    ViewListMenu Menu2{*this};
    FolderLists Lists{module_, Looked, Drive1, Dir1, &File1};
    FolderButton FavoriteButton{*this, module_, CmdFF, Lists, [this] { return QuickFoldersOf(module_); }};

    void Form_Load() override;
    void Form_QueryUnload(bool& cancel) override;
    void Form_Unload(bool& cancel) override;
    /// The View List leaves files of other programs to the form: they go to the end, and a mark would not be true.
    void Form_OLEDragDrop(const std::vector<std::string>& files) override { ListView_OLEDragDrop(files); }

    /// The path of the show, or Untitled.
    [[nodiscard]] const std::string& ShowPath() const { return lblFilename.Caption.Get(); }
    /// Whether the show has a file.
    [[nodiscard]] bool HasFile() const { return ShowPath() != Untitled; }
    /// Where the slide of a row is.
    [[nodiscard]] std::string SlidePath(int row) const { return folder_.SlidePath(ListView.List(row)); }
    // SlideEditor
    void SlidesRemoved(std::span<const int> indices) override;
    /// A save that failed before is forgotten too.
    void ShowLoaded(const std::string& path) override;
    void PathsChanged() override;
    void SetFilename(const std::string& path) override;
    [[nodiscard]] std::string Filename() const override { return ShowPath(); }
    void EditDescriptions() override;

    void CmdLoad_Click();

    /// Writes the show to the program's folder where its changes are not in a file, for a process that is ended from
    /// outside. Nothing is asked or told.
    void KeepForEndOfSession();

  private:
    using Command = void (SlideLoadFrm::*)();
    struct MoveWords;

    void InstallCommands();
    void InstallKeys();
    void Arrange();
    /// Runs a command, unless another operation is running.
    [[nodiscard]] std::function<void()> Guarded(Command command);
    /// The same for one that is about the source list: it waits for the folder.
    [[nodiscard]] std::function<void()> GuardedSources(Command command);
    void OpenPopup(forms::Menu& menu);

    void Tell(const std::string& text, const std::string& title = "Tavrix") const;
    [[nodiscard]] bool Ask(const std::string& text, const std::string& title = "Tavrix",
                           int defaultButton = 1) const;
    [[nodiscard]] std::string Count(std::int64_t number) const;

    // Rows
    void CmdAdd_Click();
    void CmdAddAll_Click();
    void CmdRemove_Click();
    void CmdRemoveAll_Click();
    void CmdAll_Click() { File1.SelectAll(); }
    void CmdNone_Click() { File1.SelectNone(); }
    void mnuInverse1_Click() { File1.InvertSelection(); }
    void mnuListSelectAll_Click() { ListView.SelectAll(); }
    void mnuListSelectNone_Click() { ListView.SelectNone(); }
    void mnuInverse2_Click() { ListView.InvertSelection(); }
    void mnuEditDescription_Click();
    void EditDescriptionsFrom(int row);
    void mnuClearDescriptions_Click();
    /// The folder of the source list, with a backslash at the end.
    [[nodiscard]] std::string SourceFolder() const;
    [[nodiscard]] std::string SourcePath(int row) const { return SourceFolder() + File1.List(row); }
    /// The paths of the selected files, in the order of the list.
    [[nodiscard]] std::vector<std::string> SelectedSources() const;
    /// The row of the first selected file; -1 for none.
    [[nodiscard]] int FirstSelectedSource() const;
    /// Behind the current row, the last of them being the current one then; at the end where there is none.
    void AddSlides(std::vector<std::string> paths);
    /// In front of the row `at`. As many as there is room for; how many that was.
    int InsertSlides(int at, std::vector<std::string> paths);
    void RemoveSlides(const forms::RowRanges& rows);
    void ShowCount();

    // Order
    void mnuMoveFileUp_Click();
    void mnuMoveFileDown_Click();
    void mnuMoveToTop_Click();
    void mnuMoveToBottom_Click();
    void mnuReverseOrder_Click();
    void mnuRandomizeOrder_Click();
    /// False, and told, where the current slide cannot be moved to this row.
    [[nodiscard]] bool CanMove(const MoveWords& words, int end) const;
    void MoveCurrentTo(int row);
    void ArrangeSlides(const std::vector<int>& order);

    // Missing and duplicate slides
    void mnuCheckDuplicate_Click();
    void mnuSelectMissing_Click();
    void mnuRemoveMissing_Click();
    /// The rows whose files are not there, once the user has agreed; nothing where there is nothing more to do.
    [[nodiscard]] std::optional<forms::RowRanges> FindMissing(const std::string& title);

    // The stage
    void CmdOK_Click();
    void CmdPreview_Click();
    void mnuViewImage2_Click();
    void mnuViewAnimatedGIF1_Click();
    void mnuViewAnimatedGIF2_Click();
    void ViewImage(const std::string& path, bool animated = false);
    /// Nothing: no image is selected.
    void ViewAnimated(const std::optional<std::string>& path);
    void ShowStage();

    // Information
    void mnuSlideShowInfo_Click();
    void mnuSourceInfo_Click();
    void mnuShowFileInfo_Click();
    void mnuShowImagePath_Click();
    void TellImageInformation(const std::optional<std::string>& path) const;

    // Files
    void mnuCopyFiles_Click() { TransferFiles(false); }
    void mnuMoveFiles_Click() { TransferFiles(true); }
    void TransferFiles(bool move);
    void mnuDeleteFile_Click();
    void mnuRenameFile_Click();
    void mnuExploreFolder_Click();
    void mnuExploreShowFolder_Click();
    void mnuExploreSlideFolder_Click();
    [[nodiscard]] bool MayDelete(const std::vector<std::string>& paths) const;
    /// Gives the rows of this file another text, which is made of the former one. Whether there are any.
    bool ChangeRowsOf(const std::string& path,
                      const std::function<std::string(const std::string& row)>& change);

    // Drags
    enum class Dragged : std::uint8_t { One, Selection, All };
    void BeginDrag(forms::ListControl& list, const forms::MouseArguments& press);
    void ListView_DragDrop(const forms::DragArguments& drop);
    void ListView_OLEDragDrop(const std::vector<std::string>& files);
    void DropSources(int row);
    void DropSlides(int row);

    // The end
    void CmdSave_Click();
    void CmdSaveAs_Click();
    void CmdOptions_Click();
    void mnuRenameShow_Click();
    void mnuDeleteShow_Click();
    /// Loads a dialog under the hourglass, which is over when it is shown. The arguments are those of its constructor.
    template <class Dialog, class... Arguments>
    void ShowDialog(Arguments&&... arguments) {
        forms::BusyGuard busy(module_.Screen());
        module_.DoEvents();
        auto& dialog = App().Load<Dialog>(std::forward<Arguments>(arguments)...);
        busy.Release();
        dialog.ShowModal();
    }
    /// Remembers a save that left no whole file, though it counts as saved.
    void NoteSave(SaveEnd end) { saveFailed_ = end != SaveEnd::Whole; }
    /// Whether there is something that no file has.
    [[nodiscard]] bool Unsaved() const { return module_.show.ShowChanged || saveFailed_; }
    /// Asks what is to become of changes; whether the editor may close.
    [[nodiscard]] bool MayClose();
    void EndMainView();

    ShowFolder folder_{""};
    ListKeys sourceKeys_{File1};
    ListKeys slideKeys_{ListView};
    Dragged dragged_ = Dragged::One;
    int draggedRow_ = -1;
    bool saveFailed_ = false;  ///< see NoteSave
    std::string kept_;         ///< what KeepForEndOfSession has written
};

/// The Slide Show Editor command.
void mnuSlideShow_Click(MainViewFrm& view);
/// The Load Slide Show command: the editor, which asks for a show at once.
void mnuOpenSlideShow_Click(MainViewFrm& view);

/// Gives the main view's menu what opens the editor.
void InstallEditorCommands(MainViewFrm& view);

/// Keeps the changes of an editor that is loaded, for a process that is ended from outside. The process may live on.
void KeepUnsavedShow(const MainModule& module);

}  // namespace tavrix
