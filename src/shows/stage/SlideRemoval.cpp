#include "shows/stage/SlideRemoval.h"

#include <vector>

#include "base/Text.h"
#include "shows/SlideEditor.h"

namespace tavrix {

void RemoveSlides(MainModule& module, const std::string& path) {
    SlideShow& show = module.show;
    std::vector<int> indices;
    const int count = show.Count();
    for (int i = 0; i < count; ++i) {
        // What moves up into the place of a removed row is not looked at.
        const bool steppedOver = !indices.empty() && indices.back() == i - 1;
        if (!steppedOver && EqualIgnoringCase(show.SlideFiles[i], path)) indices.push_back(i);
    }
    show.RemoveSlides(indices);
    if (SlideEditor* editor = LoadedEditor(module.app)) editor->SlidesRemoved(indices);
    show.ShowChanged = true;
}

}  // namespace tavrix
