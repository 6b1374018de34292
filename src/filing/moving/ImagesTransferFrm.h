#pragma once

#include <string>
#include <vector>

#include "core/ImageKinds.h"
#include "dialogs/FileTransfer.h"
#include "dialogs/FolderButton.h"
#include "dialogs/FolderLists.h"
#include "dialogs/LookedFiles.h"
#include "filing/FileDrag.h"
#include "filing/FileSelection.h"
#include "platform/forms/Application.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Label.h"

namespace tavrix {

/// In what the dialogs that copy and that move images differ.
struct ImagesTransferWords {
    const char* window;      ///< its name
    const char* caption;     ///< its title
    TransferAct act;         ///< Copy or Move
    const char* verb;        ///< "move"
    const char* verbFirst;   ///< at the beginning of a text: "Move"
    const char* participle;  ///< "moving"
    const char* button;      ///< the caption of the button that starts it
    const char* cancelToolTip;
    const char* canceled;  ///< when the user gave it up
    const char* sourceFF;  ///< the name of the source side's folder button
    const char* destinationFF;
};

/// Files of one folder are carried to another: source drive, folder and files on the left, destination drive and folder
/// on the right.
class ImagesTransferFrm : public forms::Form {
  protected:
    ImagesTransferFrm(forms::Application& application, MainModule& module, const ImagesTransferWords& words);

  private:
    MainModule& module_;
    ImagesTransferWords words_;

  public:
    LookedFiles Looked{*this, module_.platform.files, PatternOf(ImagesShown::All)};
    LookedFiles Looked2{*this, module_.platform.files, LookedFiles::NoNames, &Looked};
    forms::Frame Frame1{*this, "Frame1"};
    forms::Label Label1{Frame1, "Label1"};
    forms::DriveListBox Drive1{Frame1, "Drive1", module_.platform.files, module_.platform.drives};
    forms::Label Label2{Frame1, "Label2"};
    forms::DirListBox Dir1{Frame1, "Dir1", Looked};
    forms::Label Label3{Frame1, "Label3"};
    forms::FileListBox File1{Frame1, "File1", Looked, PatternOf(ImagesShown::All)};
    FileSelection Selection{Frame1, module_, File1};
    forms::CommandButton SourceFF{Frame1, words_.sourceFF};
    forms::Frame Frame2{*this, "Frame2"};
    forms::Label Label4{Frame2, "Label4"};
    forms::DriveListBox Drive2{Frame2, "Drive2", module_.platform.files, module_.platform.drives};
    forms::Label Label5{Frame2, "Label5"};
    forms::DirListBox Dir2{Frame2, "Dir2", Looked2};
    forms::CommandButton CmdNewFolder{Frame2, "CmdNewFolder"};
    forms::CommandButton DestinationFF{Frame2, words_.destinationFF};
    forms::CommandButton CmdCopy{*this, "CmdCopy"};
    forms::CommandButton CmdCancel{*this, "CmdCancel"};

    FolderLists Source{module_, Looked, Drive1, Dir1, &File1, BadDrive::Program};
    FolderLists Destination{module_, Looked2, Drive2, Dir2, nullptr, BadDrive::Program};
    FolderButton SourceButton{*this,
                              module_,
                              SourceFF,
                              Source,
                              [this] { return QuickFoldersOf(module_); },
                              PopupOf(words_.sourceFF)};
    FolderButton DestinationButton{*this,
                                   module_,
                                   DestinationFF,
                                   Destination,
                                   [this] { return QuickFoldersOf(module_); },
                                   PopupOf(words_.destinationFF)};
    FileDrag Drag{File1, Dir2, [this] { CmdCopy_Click(); }};

    void Form_Load() override;

  private:
    [[nodiscard]] static FolderButton::Popup PopupOf(const std::string& button);
    void BuildLayout();
    void StartDestination();
    void Dir1_Change();
    void SelectFirst();
    void File1_KeyUp(int keyCode);
    void CmdCopy_Click();

    /// What is to be carried, and whether the user wants it; otherwise empty, and he has been told why.
    [[nodiscard]] std::vector<TransferItem> ItemsAsUserAgrees();
    [[nodiscard]] bool UserAgrees(const std::vector<std::string>& names,
                                  const std::string& destination) const;
    void Transfer(const std::vector<TransferItem>& items);
    /// Whether a file is the image on show, which is not moved.
    [[nodiscard]] bool RefusesOpenImage(const TransferItem& item, CopyWindow& window);
    void Tell(const std::string& text);
};

}  // namespace tavrix
