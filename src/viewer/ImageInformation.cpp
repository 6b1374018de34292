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

std::string TypeOf(const MainModule& module, const ReportedImage& image) {
    std::string type = image.unreadGifType;
    SkipFailure([&] {
        type = FileTypeText(module, image.path);
        if (type.empty()) type = FileTypeText(module, ".RLE");
    });
    return type;
}

int Pixels(float twips, float twipsPerPixel) {
    return RoundToLong(static_cast<double>(twips) / static_cast<double>(twipsPerPixel));
}

}  // namespace

std::string ImageReport(const MainModule& module, const ReportedImage& image) {
    System& system = module.platform.system;
    std::optional<FileInfo> info;
    SkipFailure([&] { info = module.platform.files.Info(image.path); });
    const std::string size = TextOrUnknown(
        [&] { return info ? GroupedNumber(info->length, system.Numbers()) + " bytes" : Unknown; });
    const std::string date =
        TextOrUnknown([&] { return info ? system.ShortDateTime(info->modified) : Unknown; });

    const std::string line(NewLine);
    const std::string blank(NewLine2);
    return image.heading + blank + image.path + line + Rule + blank + "Image Size:  (pixels)" + blank +
           "Width = " + std::to_string(image.width) + line + "Height = " + std::to_string(image.height) +
           line + Rule + blank + "File size = " + size + line + "File date and time = " + date + line +
           "File type = " + TypeOf(module, image);
}

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
    const forms::Screen& screen = module.Screen();
    const ReportedImage image{"Current Image File:", module.CurrentImage,
                              Pixels(view.MainImage.Width, screen.TwipsPerPixelX()),
                              Pixels(view.MainImage.Height, screen.TwipsPerPixelY()), Unknown};
    module.app.MessageBox({.text = ImageReport(module, image),
                           .title = "Tavrix - [Image Information]",
                           .help = true,
                           .helpContext = HelpContext::ImageInformation});
}

}  // namespace tavrix
