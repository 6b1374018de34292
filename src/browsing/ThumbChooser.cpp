#include "browsing/ThumbChooser.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Folders.h"
#include "platform/forms/Application.h"

namespace tavrix {

ThumbChooser::ThumbChooser(forms::Form& form, const MainModule& module, ThumbnailList& list)
    : module_(module),
      list_(list),
      files_(form, module.platform.files, PatternOf(ImagesShown::Opening)),
      Label1(form, "Label1"),
      lblDrives(form, "lblDrives"),
      Drive1(form, "Drive1", module.platform.files, module.platform.drives),
      lblFolders(form, "lblFolders"),
      Dir1(form, "Dir1", files_),
      lblFiles(form, "lblFiles"),
      File1(form, "File1", files_, PatternOf(ImagesShown::Opening)),
      CmdFF(form, "CmdFF"),
      Lists(module, files_, Drive1, Dir1, &File1, BadDrive::Program),
      FavoriteButton(form, module, CmdFF, Lists, [&module] { return QuickFoldersOf(module); }) {
    lblDrives.Caption = "Select Drive:";
    lblDrives.SetBuddy(Drive1);
    Drive1.ToolTip = "Click to select drive.";
    lblFolders.Caption = "Select Directory:";
    lblFolders.SetBuddy(Dir1);
    lblFiles.Caption = "Select Files:";
    lblFiles.SetBuddy(File1);
}

forms::Layout ThumbChooser::Folders() {
    using namespace forms;
    constexpr float listWidth = 3900;
    constexpr float listHeight = 3300;
    return Growing(Column({lblDrives, Drive1, lblFolders, Growing(AtLeast(listWidth, listHeight, Dir1))}));
}

void ThumbChooser::Start() {
    const std::string& current = module_.CurrentImage;
    if (!current.empty() && current != GetTempFolder(module_) + "Untitled.BMP")
        SkipFailure([&] { Lists.GoTo(FolderOf(current)); });
}

void ThumbChooser::End() {
    module_.Screen().MousePointer = forms::MousePointer::Hourglass;
    module_.DoEvents();
    SkipFailure([this] { module_.platform.files.ChangeDrive(Drive1.Drive); });
    SkipFailure([this] { module_.platform.files.ChangeFolder(Dir1.Path); });
}

bool ThumbChooser::AnyFiles() const {
    if (File1.ListCount() > 0) return true;
    module_.app.MessageBox({.text = "There are no images in the selected folder to browse." +
                                    std::string(NewLine2) + "Select another location and then try again..."});
    return false;
}

void ThumbChooser::MakeList(const forms::RowRanges& rows) {
    list_.ThumbnailFolder = WithUpperFirst(Lists.Folder());
    list_.ThumbnailFiles.clear();
    list_.ThumbnailFiles.reserve(static_cast<std::size_t>(rows.Count()));
    for (const auto& range : rows.Ranges()) {
        for (int row = range.first; row < range.end; ++row)
            list_.ThumbnailFiles.push_back(list_.ThumbnailFolder + File1.List(row));
    }
    list_.ThumbnailsShown = false;
}

}  // namespace tavrix
