#include "editing/saving/ExportJpgFrm.h"

#include "base/Text.h"
#include "core/HelpContexts.h"
#include "core/KeptWorkingFiles.h"
#include "core/UnsavedImage.h"
#include "editing/saving/ExportCommand.h"
#include "editing/saving/Jpeg.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

ExportJpgFrm::ExportJpgFrm(forms::Application& application, MainViewFrm& view)
    : Form(application, {.name = "ExportJpgFrm"}), view_(view), module_(view.Module()) {
    Caption = "Export JPG";
    HelpContext = HelpContext::Export;
    lblQuality.Caption = "Image quality:";
    lblQuality.SetBuddy(ComboQuality);
    ComboQuality.ToolTip = "Click here to select image quality.";
    SetLayout(forms::Column({Target.Arrangement(),
                             forms::Row({lblQuality, ComboQuality, forms::Growing(forms::Stretch())}),
                             Buttons.Arrangement()}));
}

void ExportJpgFrm::Form_Load() {
    for (const char* quality :
         {"0 (Small File)", "10", "20", "30", "40", "50", "60", "70", "80 (Default)", "90", "100 (Big File)"})
        ComboQuality.AddItem(quality);
    ComboQuality.ListIndex = module_.config.QualityJPG;
    Buttons.Start();
}

void ExportJpgFrm::Write(const std::string& path) {
    module_.config.QualityJPG = static_cast<std::int16_t>(ComboQuality.ListIndex.Get());
    if (SaveAsJpeg(module_, view_.MainImage, module_.config.QualityJPG, path)) return;
    // The image gets the new name all the same, and no question comes for it any more.
    if (IsUnsavedImage(module_)) KeepWorkingFile(module_, module_.CurrentImage);
}

namespace {

std::string WhyNotAsJpg(const std::string& path) {
    if (EndsInIgnoringCase(path, ".JPG"))
        return "The current image is already in the JPEG (.JPG) format, unable to export file...";
    if (EndsInIgnoringCase(path, ".ICO"))
        return "Icon (.ICO) files can't be directly converted to JPEG (.JPG) files." + std::string(NewLine2) +
               "Export the icon as a Bitmap (.BMP) and then try again...";
    if (EndsInIgnoringCase(path, ".WMF") || EndsInIgnoringCase(path, ".EMF"))
        return "Metafiles (.WMF and .EMF) can't be directly converted to JPEG (.JPG) files." +
               std::string(NewLine2) + "Export the Metafile as a Bitmap (.BMP) and then try again...";
    return {};
}

}  // namespace

void mnuExportJPG_Click(MainViewFrm& view) {
    RunExportCommand<ExportJpgFrm>(view, WhyNotAsJpg);
}

}  // namespace tavrix
