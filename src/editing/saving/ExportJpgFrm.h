#pragma once

#include "editing/saving/ExportButtons.h"
#include "platform/forms/Application.h"
#include "platform/forms/ComboBox.h"

namespace tavrix {

/// The dialog that writes the picture on show as a JPEG.
class ExportJpgFrm final : public forms::Form {
  public:
    ExportJpgFrm(forms::Application& application, MainViewFrm& view);

  private:
    MainViewFrm& view_;
    MainModule& module_;

  public:
    FileTarget Target{*this, view_, ExportButtons::Words};
    forms::Label lblQuality{*this, "lblQuality"};
    forms::ComboBox ComboQuality{*this, "ComboQuality"};
    ExportButtons Buttons{*this, view_, Target, ".JPG", [this](const std::string& path) { Write(path); }};

    void Form_Load() override;

  private:
    void Write(const std::string& path);
};

/// The Export JPG command.
void mnuExportJPG_Click(MainViewFrm& view);

}  // namespace tavrix
