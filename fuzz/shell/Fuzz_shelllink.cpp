#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "backends/shared/ShellLink.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto link = tavrix::ParseShellLink({reinterpret_cast<const char*>(data), size});
    if (!link) return 0;
    for (const std::string* text : {&link->localPath, &link->devicePath, &link->networkPath,
                                    &link->variablePath, &link->relativePath, &link->workingFolder}) {
        // Paths end at their first NUL, and no byte becomes more than three.
        if (text->find('\0') != std::string::npos || text->size() > 3 * size + 2) std::abort();
    }
    return 0;
}
