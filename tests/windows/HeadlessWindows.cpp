#include <cstdlib>

#include "backends/headless/HeadlessToolkit.h"
#include "windows/EveryWindow.h"

namespace tavrix::windows {

bool HasLargeFont() {
    return std::getenv("TAVRIX_TEST_LARGE_FONT") != nullptr;
}

std::unique_ptr<forms::Toolkit> MakeToolkit() {
    auto toolkit = std::make_unique<headless::HeadlessToolkit>();
    if (HasLargeFont()) toolkit->font = {13, 30};
    return toolkit;
}

}  // namespace tavrix::windows
