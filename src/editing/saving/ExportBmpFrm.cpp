#include "editing/saving/ExportBmpFrm.h"

#include "base/Text.h"
#include "core/HelpContexts.h"
#include "editing/frame/SurfaceFile.h"
#include "editing/saving/ExportCommand.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

ExportBmpFrm::ExportBmpFrm(forms::Application& application, MainViewFrm& view)
    : Form(application, {.name = "ExportBmpFrm"}), view_(view) {
    Caption = "Export BMP";
    HelpContext = HelpContext::Export;
    SetLayout(forms::Column({Target.Arrangement(), Buttons.Arrangement()}));
}

void ExportBmpFrm::Write(const std::string& path) {
    WriteSurface(view_.Module(), view_.MainImage, path);
}

namespace {

std::string WhyNotAsBmp(const std::string& path) {
    if (!EndsInIgnoringCase(path, ".BMP")) return {};
    return "The current image is already in the bitmap (.BMP) format, unable to export file." +
           std::string(NewLine2) + "Use the \"Copy / Current Image\" option to save this file...";
}

}  // namespace

void mnuExportBMP_Click(MainViewFrm& view) {
    RunExportCommand<ExportBmpFrm>(view, WhyNotAsBmp);
}

}  // namespace tavrix
