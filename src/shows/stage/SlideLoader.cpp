#include "shows/stage/SlideLoader.h"

#include "base/Text.h"
#include "core/FileServices.h"
#include "core/Folders.h"
#include "platform/forms/Form.h"

namespace tavrix {

std::string SlideLoader::FileOf(const std::string& storedPath) const {
    return module_.platform.files.FileExists(storedPath) ? storedPath : FileNameOf(storedPath);
}

void SlideLoader::LoadSlide(const std::string& storedPath) {
    LoadFile(FileOf(storedPath));
}

void SlideLoader::ExpectSlide(const std::string& storedPath) {
    SkipFailure([&] {
        const std::string path = FileOf(storedPath);
        const bool still = !IsGif89File(module_, path);
        module_.platform.pictures.Expect(still ? FullPath(module_, path) : std::string());
    });
}

void SlideLoader::LoadFile(const std::string& path) {
    if (IsGif89File(module_, path)) {
        image_.Picture = {};
        module_.DoEvents();
        image_.Move(0, 0, image_.OwnerForm().Width, image_.OwnerForm().Height);
        LoadAnimated(path);
    } else {
        player_.FileName = "";
        player_.Visible = false;
        module_.DoEvents();
        LoadStill(path);
    }
}

void SlideLoader::LoadStill(const std::string& path) {
    image_.Picture = {};  // two large pictures at a time would be one too many
    image_.Picture = module_.platform.pictures.Load(FullPath(module_, path));
}

void SlideLoader::LoadAnimated(const std::string& path) {
    player_.FileName = FullPath(module_, path);
    player_.Visible = true;
}

}  // namespace tavrix
