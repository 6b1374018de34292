#include "backends/linux/LateLibrary.h"

#include <dlfcn.h>

namespace tavrix {

LateLibrary::LateLibrary(const char* file) : handle_(::dlopen(file, RTLD_NOW | RTLD_LOCAL)) {}

void* LateLibrary::Symbol(const char* name) const {
    return handle_ == nullptr ? nullptr : ::dlsym(handle_, name);
}

}  // namespace tavrix
