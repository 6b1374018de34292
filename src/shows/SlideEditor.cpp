#include "shows/SlideEditor.h"

#include "base/Text.h"
#include "platform/services/DrivePath.h"

namespace tavrix {

void SlideEditor::NoteReading(const std::string& path, bool whole) {
    const std::string key = UpperCase(NormalPath(path));
    if (whole) {
        readInPart_.erase(key);
    } else {
        readInPart_.insert(key);
    }
}

bool SlideEditor::HasReadInPart(const std::string& path) const {
    return readInPart_.contains(UpperCase(NormalPath(path)));
}

SlideEditor* LoadedEditor(const forms::Application& app) {
    for (int i = 0; i < app.FormCount(); ++i) {
        if (auto* editor = dynamic_cast<SlideEditor*>(&app.FormAt(i))) return editor;
    }
    return nullptr;
}

}  // namespace tavrix
