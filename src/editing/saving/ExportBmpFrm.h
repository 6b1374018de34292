#pragma once

#include "editing/saving/ExportButtons.h"
#include "platform/forms/Application.h"

namespace tavrix {

/// The dialog that writes the picture on show as a Windows bitmap.
class ExportBmpFrm final : public forms::Form {
  public:
    ExportBmpFrm(forms::Application& application, MainViewFrm& view);

  private:
    MainViewFrm& view_;

  public:
    FileTarget Target{*this, view_, ExportButtons::Words};
    ExportButtons Buttons{*this, view_, Target, ".BMP", [this](const std::string& path) { Write(path); }};

    void Form_Load() override { Buttons.Start(); }

  private:
    void Write(const std::string& path);
};

/// The Export BMP command.
void mnuExportBMP_Click(MainViewFrm& view);

}  // namespace tavrix
