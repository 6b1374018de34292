#include "filing/FileSelection.h"

#include "platform/forms/Application.h"

namespace tavrix {

FileSelection::FileSelection(forms::Container& container, const MainModule& module, forms::FileListBox& files,
                             const SelectionWords& words)
    : CmdAll(container, words.allName),
      CmdNone(container, words.noneName),
      CmdInverse(container, "CmdInverse"),
      module_(module),
      files_(files),
      noFiles_(words.noFiles) {
    files_.MultiSelect = forms::MultiSelect::Extended;
    files_.OnMouseMove = [this](const forms::MouseArguments& mouse) { File1_MouseMove(mouse); };
    CmdAll.Caption = "Select &All";
    CmdAll.ToolTip = words.allToolTip;
    CmdAll.OnClick = [this] { CmdAll_Click(); };
    CmdNone.Caption = words.noneCaption;
    CmdNone.ToolTip = words.noneToolTip;
    CmdNone.OnClick = [this] { files_.SelectNone(); };
    CmdInverse.Caption = "&Inverse";
    CmdInverse.ToolTip = "Inverse selections.";
    CmdInverse.OnClick = [this] { files_.InvertSelection(); };
}

void FileSelection::SetEnabled(bool enabled) {
    for (forms::CommandButton* button : {&CmdAll, &CmdNone, &CmdInverse})
        button->Enabled = enabled;
}

std::vector<std::string> FileSelection::Names() const {
    std::vector<std::string> names;
    const forms::RowRanges selected = files_.Selection();
    for (int row = 0; row < files_.ListCount(); ++row) {
        if (selected.Contains(row)) names.push_back(files_.List(row));
    }
    return names;
}

void FileSelection::CmdAll_Click() {
    if (files_.ListCount() == 0) {
        module_.app.MessageBox({.text = noFiles_});
        return;
    }
    files_.SelectAll();
}

void FileSelection::File1_MouseMove(const forms::MouseArguments& mouse) {
    const bool held = (mouse.button & forms::MouseButton::Left) != 0;
    if (held && files_.ListIndex >= 0) files_.Select(files_.ListIndex);
}

}  // namespace tavrix
