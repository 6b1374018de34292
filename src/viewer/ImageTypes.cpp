#include "viewer/ImageTypes.h"

#include "base/Text.h"
#include "core/ImageKinds.h"

namespace tavrix {

bool IsImportOnly(const std::string& path) {
    const ImageKind* const kind = ImageKindOf(path);
    return kind != nullptr && !kind->opens;
}

std::string ImportFirstText(const std::string& path) {
    return Right(path, 4) +
           " files must be imported into Tavrix and then saved as a supported format first, unable to open:" +
           std::string(NewLine2) + path;
}

}  // namespace tavrix
