#pragma once

#include <string>

#include "platform/forms/CommandButton.h"
#include "platform/forms/Form.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Label.h"
#include "platform/forms/TextBox.h"

namespace tavrix {

/// The controls of one quick folder in frmQuickFolders; their names end in its number: txtName1, lblPath1, ...
struct QuickFolderRow {
    static constexpr int LongestName = 40;

    /// To be a member of the form; `slot`: 1 to 4.
    QuickFolderRow(forms::Form& form, int slot);
    QuickFolderRow(const QuickFolderRow&) = delete;
    QuickFolderRow& operator=(const QuickFolderRow&) = delete;

    const std::string number;  ///< of the slot
    forms::Frame Frame1;
    forms::Label lblName;
    forms::TextBox txtName;
    forms::Label lblPath;
    forms::CommandButton CmdBrowse;
    forms::CommandButton CmdClear;

    /// Without the blanks around it: a name of nothing else is none.
    [[nodiscard]] std::string Name() const;
    [[nodiscard]] const std::string& Path() const { return lblPath.Caption; }
    /// For the layout of the form.
    [[nodiscard]] forms::Layout Arrangement();
};

}  // namespace tavrix
