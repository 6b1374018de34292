#include "shows/SlideEditor.h"

namespace tavrix {

SlideEditor* LoadedEditor(const forms::Application& app) {
    for (int i = 0; i < app.FormCount(); ++i) {
        if (auto* editor = dynamic_cast<SlideEditor*>(&app.FormAt(i))) return editor;
    }
    return nullptr;
}

}  // namespace tavrix
