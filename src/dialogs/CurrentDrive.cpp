#include "dialogs/CurrentDrive.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "dialogs/ContentOf.h"
#include "dialogs/LookedFiles.h"

namespace tavrix {
namespace {

std::string Root(Files& files) {
    return Left(files.CurrentFolder(), 1) + ":\\";
}

}  // namespace

void TouchCurrentDrive(const MainModule& module) {
    Files& files = module.platform.files;
    SkipFailure([&] { static_cast<void>(files.Look(Root(files), "*")->Wait(LookedFiles::Moment)); });
}

std::string FirstFileOfCurrentDrive(const MainModule& module, const forms::Form& form) {
    std::string name;
    SkipFailure([&] {
        const auto content = ContentOf(module, form, Root(module.platform.files));
        if (content && !content->files.empty()) name = content->files.front();
    });
    return name;
}

}  // namespace tavrix
