#include "filing/FilingDialog.h"

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace tavrix {

std::string FirstFileOfCurrentDrive(const MainModule& module) {
    std::string name;
    SkipFailure(
        [&] { name = module.platform.files.First(Left(module.platform.files.CurrentFolder(), 1) + ":\\*"); });
    return name;
}

}  // namespace tavrix
