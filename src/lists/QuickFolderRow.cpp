#include "lists/QuickFolderRow.h"

#include "base/Text.h"

namespace tavrix {

QuickFolderRow::QuickFolderRow(forms::Form& form, int slot)
    : number(std::to_string(slot)),
      Frame1(form, "Frame" + number),
      lblName(Frame1, "lblName" + number),
      txtName(Frame1, "txtName" + number),
      lblPath(Frame1, "lblPath" + number),
      CmdBrowse(Frame1, "CmdBrowse" + number),
      CmdClear(Frame1, "CmdClear" + number) {
    Frame1.Caption = "Quick Folder " + number;
    lblName.Caption = "Shortcut Nam&e:";
    lblName.SetBuddy(txtName);
    txtName.MaxLength = LongestName;
    txtName.ToolTip = "Enter a name for this Quick Folder.  (40 characters max.)";
    txtName.AccessibleName = "Shortcut Name " + number;  // the label says the same of all four
    lblPath.Literal = true;
    lblPath.ToolTip = "Click the \"Browse\" button to change path.";
    CmdBrowse.Caption = "Brow&se";
    CmdClear.Caption = "Clear &" + number;
    CmdClear.ToolTip = "Stop using quick folder " + number + ".";
}

std::string QuickFolderRow::Name() const {
    return Trim(txtName.Text.Get());
}

forms::Layout QuickFolderRow::Arrangement() {
    using namespace forms;
    constexpr float nameWidth = 4200;
    constexpr float lineHeight = 300;
    return Group(Frame1, {Row({lblName, Growing(AtLeast(nameWidth, 0, txtName)), CmdBrowse, CmdClear}),
                          AtLeast(nameWidth, lineHeight, lblPath)});
}

}  // namespace tavrix
