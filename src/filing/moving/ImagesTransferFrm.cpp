#include "filing/moving/ImagesTransferFrm.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Folders.h"
#include "core/HelpContexts.h"
#include "dialogs/DialogWork.h"
#include "dialogs/NewFolder.h"
#include "filing/CurrentImageFolder.h"
#include "filing/Questions.h"
#include "filing/deleting/DeleteListedFile.h"

namespace tavrix {
namespace {

const std::string Paragraph(NewLine2);

/// A folder as texts and settings tell it; files are spelled as on the disk.
std::string InUpperCase(const FolderLists& lists) {
    return UpperCase(lists.Folder());
}

}  // namespace

ImagesTransferFrm::ImagesTransferFrm(forms::Application& application, MainModule& module,
                                     const ImagesTransferWords& words)
    : Form(application, {.name = words.window}), module_(module), words_(words) {
    Caption = words_.caption;
    HelpContext = HelpContext::CopyMoveImages;
    Frame1.Caption = "Select Source File(s):";
    Frame2.Caption = "Select Destination Folder:";
    Label1.Caption = "&Drive:";
    Label1.SetBuddy(Drive1);
    Label2.Caption = "Fo&lder:";
    Label2.SetBuddy(Dir1);
    Label3.Caption = "Select File(s):";
    Label3.SetBuddy(File1);
    Label4.Caption = "D&rive:";
    Label4.SetBuddy(Drive2);
    Label5.Caption = "Fold&er:";
    Label5.SetBuddy(Dir2);
    Drive1.ToolTip = "Click here to select the \"source\" drive.";
    Drive2.ToolTip = "Click here to select the \"destination\" drive.";
    File1.OnKeyUp = [this](int keyCode, int) { File1_KeyUp(keyCode); };
    Source.OnContent = [this] { Selection.SetEnabled(!Source.Pending()); };
    Source.OnContent();
    Source.OnFolderChange = [this] { Dir1_Change(); };
    CmdNewFolder.Caption = "Ne&w Folder";
    CmdNewFolder.ToolTip = "Create a new folder in the currently selected \"destination\" directory.";
    CmdNewFolder.OnClick = [this] {
        CmdNewFolder_Click(module_, Destination,
                           {.title = ProductName, .name = "New Folder", .offersAnswer = true});
    };
    CmdCopy.Caption = words_.button;
    CmdCopy.ToolTip = std::string(words_.verbFirst) + " the selected files to the selected destination.";
    CmdCopy.Default = true;
    CmdCopy.OnClick = [this] { CmdCopy_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = words_.cancelToolTip;
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [this] { App().Unload(*this); };
    BuildLayout();
}

FolderButton::Popup ImagesTransferFrm::PopupOf(const std::string& button) {
    return {.suffix = button == "CmdFF2" ? "2" : "", .closeEntryIsDefault = true};
}

void ImagesTransferFrm::BuildLayout() {
    using namespace forms;
    constexpr float listWidth = 2700;
    constexpr float listHeight = 3900;
    const Layout source =
        Column({Growing(Row({Growing(Column({Label1, Drive1, Label2, Growing(AtLeast(listWidth, 0, Dir1))})),
                             Growing(Column({Label3, Growing(AtLeast(listWidth, listHeight, File1))}))})),
                Row({Selection.CmdAll, Selection.CmdNone, Selection.CmdInverse, Stretch(), SourceFF})});
    const Layout destination = Column({Label4, Drive2, Label5, Growing(AtLeast(listWidth, 0, Dir2)),
                                       Row({CmdNewFolder, Stretch(), DestinationFF})});
    SetLayout(Column({Growing(Row({Growing(Group(Frame1, {Growing(source)}), 2),
                                   Growing(Group(Frame2, {Growing(destination)}))})),
                      Row({Stretch(), CmdCopy, CmdCancel})}));
}

void ImagesTransferFrm::Form_Load() {
    GoToFolderOfImage(module_, Source);
    StartDestination();
    Source.WhenRead([this] { SelectImageOnShow(module_, File1); });
}

void ImagesTransferFrm::StartDestination() {
    if (module_.CurrentImage.empty() || ImageHasItsFolder(module_)) {
        const std::string& last = module_.config.LastCopyToPath;
        SkipFailure([&] { Destination.GoTo(last.empty() ? Source.Folder() : last); });
    }
    // What lies there is taken away when the program ends.
    if (EqualIgnoringCase(Destination.Folder(), GetTempFolder(module_)))
        SkipFailure([this] { Destination.GoTo(module_.AppPath); });
}

void ImagesTransferFrm::Dir1_Change() {
    module_.DoEvents();
    Source.WhenRead([this] { SelectFirst(); });
}

void ImagesTransferFrm::SelectFirst() {
    if (!Unloaded() && File1.ListCount() > 0) File1.ListIndex = 0;
}

void ImagesTransferFrm::File1_KeyUp(int keyCode) {
    if (DeletedByKey(module_, File1, Source.Folder(), keyCode)) Source.WhenRead([this] { SelectFirst(); });
}

void ImagesTransferFrm::Tell(const std::string& text) {
    App().MessageBox({.text = text});
}

void ImagesTransferFrm::CmdCopy_Click() {
    if (module_.Busy()) return;
    const auto again = [this] { CmdCopy_Click(); };
    if (Source.Awaits(again) || Destination.Awaits(again)) return;
    const std::string destination = InUpperCase(Destination);
    const std::vector<TransferItem> items = ItemsAsUserAgrees();
    if (items.empty()) return;
    const DialogWork work(*this, module_);
    if (!work) return;
    module_.config.LastCopyToPath = destination;
    Transfer(items);
    App().Unload(*this);
}

std::vector<TransferItem> ImagesTransferFrm::ItemsAsUserAgrees() {
    const std::string verb = words_.verb;
    if (File1.ListCount() == 0) {
        Tell("There are no files in the selected source directory, nothing to " + verb + "...");
        return {};
    }
    const std::vector<std::string> names = Selection.Names();
    if (names.empty()) {
        Tell("No files are selected, nothing to " + verb + "...");
        return {};
    }
    const std::string source = InUpperCase(Source);
    const std::string destination = InUpperCase(Destination);
    if (source == destination) {
        Tell("The source and destination paths are the same, no need to " + verb +
             " images to selected destination...");
        return {};
    }
    if (!UserAgrees(names, destination)) return {};
    std::vector<TransferItem> items;
    for (const std::string& name : names)
        items.push_back({Source.Folder() + name, Destination.Folder() + name, name, source + name});
    return items;
}

bool ImagesTransferFrm::UserAgrees(const std::vector<std::string>& names,
                                   const std::string& destination) const {
    const std::string verb = words_.verbFirst;
    const std::string what =
        names.size() == 1
            ? verb + " the file:" + Paragraph + names.front() + Paragraph + "...to the following directory?"
            : verb + " " + CountText(module_, names.size()) + " files to the following directory?";
    return UserSaysYes(module_, what + Paragraph + destination);
}

void ImagesTransferFrm::Transfer(const std::vector<TransferItem>& items) {
    const std::string participle = words_.participle;
    CopyWindow window(module_);
    window.Tell("Tavrix is preparing to " + std::string(words_.verb) + " files...");
    FileTransfer transfer(module_, window, words_.act,
                          {.doing = "Tavrix is " + participle + " the file:",
                           .failure = "Aborting, unable to " + std::string(words_.verb) + " the file:",
                           .replace = "Replace this file with the one in the source folder?"});
    if (words_.act == TransferAct::Move)
        transfer.OnRefuse = [&](const TransferItem& item) { return RefusesOpenImage(item, window); };
    const TransferEnd end = transfer.Run(items);
    module_.DoEvents();
    window.Close();
    module_.DoEvents();
    if (end == TransferEnd::Canceled)
        App().MessageBox({.text = words_.canceled, .icon = forms::BoxIcon::Exclamation});
}

bool ImagesTransferFrm::RefusesOpenImage(const TransferItem& item, CopyWindow& window) {
    if (!EqualIgnoringCase(item.from, module_.CurrentImage)) return false;
    window.Hide();
    App().MessageBox({.text = "Unable to move the file:" + Paragraph + item.told + Paragraph +
                              "...image is currently open.",
                      .icon = forms::BoxIcon::Exclamation});
    window.Show();
    return true;
}

}  // namespace tavrix
