#include "dialogs/FileChooser.h"

#include "platform/forms/Application.h"

namespace tavrix {

FileChooser::FileChooser(forms::Form& form, const MainModule& module, const std::string& pattern,
                         BadDrive badDrive)
    : module_(module),
      Looked(form, module.platform.files, pattern),
      lblFiles(form, "lblFiles"),
      File1(form, "File1", Looked, pattern),
      lblFolders(form, "lblFolders"),
      Dir1(form, "Dir1", Looked),
      lblDrives(form, "lblDrives"),
      Drive1(form, "Drive1", module.platform.files, module.platform.drives),
      CmdFF(form, "CmdFF"),
      Lists(module, Looked, Drive1, Dir1, &File1, badDrive),
      FavoriteButton(form, module, CmdFF, Lists, [&module] { return QuickFoldersOf(module); }) {
    lblFiles.Caption = "Fil&es:";
    lblFiles.SetBuddy(File1);
    lblFolders.Caption = "Fo&lder:";
    lblFolders.SetBuddy(Dir1);
    lblDrives.Caption = "&Drive:";
    lblDrives.SetBuddy(Drive1);
}

forms::Layout FileChooser::Arrangement(const forms::Layout& buttons) {
    using namespace forms;
    CmdFF.ComeLast();  // it stands below the form's buttons
    constexpr float listWidth = 2700;
    constexpr float listHeight = 3600;
    return Row({Growing(Column({lblFiles, Growing(AtLeast(listWidth, listHeight, File1))})),
                Growing(Column({lblFolders, Growing(AtLeast(listWidth, 0, Dir1)), lblDrives, Drive1})),
                Column({buttons, CmdFF, Stretch()})});
}

std::optional<std::string> FileChooser::Selected(const std::string& noFiles,
                                                 const std::string& noneSelected) const {
    if (File1.ListIndex >= 0) return Lists.Folder() + File1.FileName();
    module_.app.MessageBox({.text = File1.ListCount() == 0 ? noFiles : noneSelected});
    return std::nullopt;
}

}  // namespace tavrix
