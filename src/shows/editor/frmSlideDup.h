#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/MainModule.h"
#include "platform/forms/Application.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Label.h"
#include "platform/forms/ListBox.h"

namespace tavrix {

/// The slides that stand more than once in the show that is edited.
class frmSlideDup final : public forms::Form {
  public:
    /// What the editor does for this dialog.
    struct Editor {
        std::function<void()> ShowStage;  ///< with the stage's image
        std::function<void(const std::vector<std::string>& paths)>
            SelectAll;  ///< the rows of these slides and no others
    };

    frmSlideDup(forms::Application& application, MainModule& module,
                const std::vector<std::string>& duplicates, Editor editor);

    forms::Label lblMsg{*this, "lblMsg"};
    forms::ListBox List1{*this, "List1"};
    forms::CheckBox CheckSelectDup{*this, "CheckSelectDup"};
    forms::CommandButton CmdPreview{*this, "CmdPreview"};
    forms::CommandButton CmdOK{*this, "CmdOK"};
    forms::CommandButton CmdHelp{*this, "CmdHelp"};

    void Form_Load() override;

  private:
    void List1_DblClick();
    void CmdPreview_Click();
    void CmdOK_Click();

    MainModule& module_;
    std::vector<std::string> duplicates_;
    Editor editor_;
};

}  // namespace tavrix
