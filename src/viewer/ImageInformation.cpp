#include "viewer/ImageInformation.h"

#include <optional>
#include <string>

#include "base/Rounding.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/HelpContexts.h"
#include "core/NumberText.h"
#include "viewer/ImageTypes.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

constexpr const char* Unknown = "Unknown...";
constexpr const char* Rule = "_____________________";

/// What a statement gives, or the word for what cannot be found out.
template <class Statement>
std::string TextOrUnknown(Statement statement) {
    std::string text = Unknown;
    SkipFailure([&] { text = statement(); });
    return text;
}

std::string TypeOf(const MainModule& module, const std::string& path) {
    return TextOrUnknown([&] {
        const std::string type = FileTypeText(module, path);
        return type.empty() ? FileTypeText(module, ".RLE") : type;
    });
}

std::string Pixels(float twips, float twipsPerPixel) {
    return std::to_string(RoundToLong(static_cast<double>(twips) / static_cast<double>(twipsPerPixel)));
}

std::string Report(const MainViewFrm& view) {
    const MainModule& module = view.Module();
    System& system = module.platform.system;
    const std::string& path = module.CurrentImage;
    const forms::Screen& screen = module.Screen();

    std::optional<FileInfo> info;
    SkipFailure([&] { info = module.platform.files.Info(path); });
    const std::string size = TextOrUnknown(
        [&] { return info ? GroupedNumber(info->length, system.Numbers()) + " bytes" : Unknown; });
    const std::string date =
        TextOrUnknown([&] { return info ? system.ShortDateTime(info->modified) : Unknown; });

    const std::string line(NewLine);
    const std::string blank(NewLine2);
    return "Current Image File:" + blank + path + line + Rule + blank + "Image Size:  (pixels)" + blank +
           "Width = " + Pixels(view.MainImage.Width, screen.TwipsPerPixelX()) + line +
           "Height = " + Pixels(view.MainImage.Height, screen.TwipsPerPixelY()) + line + Rule + blank +
           "File size = " + size + line + "File date and time = " + date + line +
           "File type = " + TypeOf(module, path);
}

}  // namespace

void mnuImageSize_Click(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (module.Busy()) return;
    const forms::TopmostBracket bracket(view, module.config.TopMostWindow);
    if (module.CurrentImage.empty()) {
        module.app.MessageBox(
            {.text = "An image has not been opened yet, unable to view image information..."});
        return;
    }
    module.DoEvents();
    module.app.MessageBox({.text = Report(view),
                           .title = "Tavrix - [Image Information]",
                           .help = true,
                           .helpContext = HelpContext::ImageInformation});
}

}  // namespace tavrix
