#include "editing/saving/ExportButtons.h"

#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/forms/Application.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {

ExportButtons::ExportButtons(forms::Form& form, MainViewFrm& view, FileTarget& target, std::string extension,
                             std::function<void(const std::string& path)> write)
    : CmdExport(form, "CmdExport"),
      CmdCancel(form, "CmdCancel"),
      view_(view),
      module_(view.Module()),
      target_(target),
      extension_(std::move(extension)),
      write_(std::move(write)) {
    CmdExport.Caption = "&Export";
    CmdExport.ToolTip = "Export the current image as a BMP.";
    CmdExport.Default = true;
    CmdExport.OnClick = [this] { CmdExport_Click(); };
    CmdCancel.Caption = "&Cancel";
    CmdCancel.ToolTip = "Don't export BMP file.";
    CmdCancel.Cancel = true;
    CmdCancel.OnClick = [&form] { form.App().Unload(form); };
}

forms::Layout ExportButtons::Arrangement() {
    return forms::Row({forms::Stretch(), CmdExport, CmdCancel});
}

void ExportButtons::Start() {
    const std::string name = FileNameOf(module_.CurrentImage);
    const std::size_t length = CharacterCount(name);
    target_.Start(Left(name, length - std::min<std::size_t>(length, 3)) + extension_.substr(1));
}

void ExportButtons::CmdExport_Click() {
    if (module_.Busy()) return;
    target_.txtFilename.Text = Trim(target_.txtFilename.Text.Get());
    if (!target_.NameIsUsable()) return;
    if (target_.Lists.Awaits([this] { CmdExport_Click(); })) return;  // what is there is asked next
    const std::string& name = target_.txtFilename.Text;
    if (!EndsInIgnoringCase(name, extension_)) target_.txtFilename.Text = name + extension_;
    if (!target_.UserAgrees()) return;
    target_.Save([this](const std::string& path) { Export(path); });
}

void ExportButtons::Export(const std::string& path) {
    // Under whatever name, the file that was opened is never written.
    if (module_.platform.files.Same(path, module_.CurrentImage))
        throw RuntimeError(ErrorNumber::PermissionDenied);
    SkipFailure([this] { view_.selection.DropWhereSeen(); });  // or its outline would be part of the picture
    write_(path);
    view_.menu.mnuAnimatedGIF.Enabled = false;
}

}  // namespace tavrix
