#pragma once

#include "dialogs/FindFiles.h"
#include "viewer/OtherSubsystems.h"

namespace tavrix {

class MainViewFrm;

/// The dialog that finds images on a drive and opens one.
class FindImageFrm final : public forms::Form {
  public:
    FindImageFrm(forms::Application& application, MainViewFrm& view, OtherSubsystems others);

  private:
    MainViewFrm& view_;
    OtherSubsystems others_;

  public:
    FindFiles Find;

    void Form_Load() override { Find.Form_Load(); }
    void Form_QueryUnload(bool& cancel) override { Find.Form_QueryUnload(cancel); }
    void Form_Resize() override { Find.Form_Resize(); }
    void Form_Unload(bool&) override { Find.Form_Unload(); }

  private:
    void CmdOpen_Click();
};

}  // namespace tavrix
