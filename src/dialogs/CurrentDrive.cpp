#include "dialogs/CurrentDrive.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "dialogs/ContentOf.h"

namespace tavrix {
namespace {

std::string Root(Files& files) {
    return Left(files.CurrentFolder(), 1) + ":\\";
}

}  // namespace

void TouchCurrentDrive(const MainModule& module) {
    constexpr int Instant = 5;  // so that one that is awake has been read when the lists begin
    Files& files = module.platform.files;
    SkipFailure([&] { static_cast<void>(files.Look(Root(files), "*")->Wait(Instant)); });
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
