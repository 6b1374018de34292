#include "viewer/AnimatedGif.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/FileServices.h"
#include "core/HelpContexts.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

/// A file that cannot be read has no signature.
bool HasSignature(const MainModule& module, const std::string& path) {
    std::string signature;
    SkipFailure([&] { signature = GifSignature(module, path); });
    return UpperCase(signature) == "GIF89A";
}

}  // namespace

void mnuAnimatedGIF_Click(MainViewFrm& view, const std::function<void(const std::string& path)>& play) {
    const MainModule& module = view.Module();
    if (module.Busy()) return;
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    if (module.CurrentImage.empty()) {
        module.app.MessageBox({.text = "An image has not been opened yet, unable to view animated gif..."});
        return;
    }
    if (!EndsInIgnoringCase(module.CurrentImage, ".GIF")) {
        module.app.MessageBox({.text = "The current image is not a .GIF file, unable to animate..."});
        return;
    }
    module.DoEvents();
    if (!HasSignature(module, module.CurrentImage)) {
        module.app.MessageBox({.text = "The current file is not in the GIF89a format, unable to animate...",
                               .help = true,
                               .helpContext = HelpContext::AnimatedGif});
        return;
    }
    view.selection.Drop();
    play(module.CurrentImage);
}

}  // namespace tavrix
