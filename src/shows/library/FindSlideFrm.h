#pragma once

#include <string>

#include "dialogs/FindFiles.h"

namespace tavrix {

class MainViewFrm;

/// The dialog that finds shows on a drive and loads one.
class FindSlideFrm final : public forms::Form {
  public:
    static constexpr const char* StartSlideShow = "StartSlideShow";

    /// The answer is StartSlideShow when a show has been loaded that is to be played; else it is empty.
    FindSlideFrm(forms::Application& application, MainModule& module, std::string& answer);

  private:
    MainModule& module_;
    std::string& answer_;

  public:
    FindFiles Find;

    void Form_Load() override { Find.Form_Load(); }
    void Form_QueryUnload(bool& cancel) override { Find.Form_QueryUnload(cancel); }
    void Form_Resize() override { Find.Form_Resize(); }
    void Form_Unload(bool&) override { Find.Form_Unload(); }

  private:
    void CmdOpen_Click();
};

/// The Find Slide Show(s) command.
void mnuFindSlideShow_Click(MainViewFrm& view);

}  // namespace tavrix
