#include "shows/stage/SlideRemoval.h"

#include <vector>

#include "base/Text.h"
#include "core/NumberText.h"
#include "shows/stage/SlideEditor.h"

namespace tavrix {
namespace {

std::vector<std::string> RowsOf(const MainModule& module, const SlideEditor* editor) {
    std::vector<std::string> rows;
    const int count = editor != nullptr ? editor->RowCount() : module.show.SlideFiles.FirstEmpty();
    for (int i = 0; i < count; ++i)
        rows.push_back(editor != nullptr ? editor->Row(i) : module.show.SlideFiles[i]);
    return rows;
}

}  // namespace

bool IsLastSlide(const MainModule& module) {
    const SlideEditor* editor = LoadedEditor(module.app);
    const int count = editor != nullptr ? editor->RowCount() : module.show.SlideFiles.FirstEmpty();
    return count == 1;
}

void RemoveSlides(MainModule& module, const std::string& path) {
    SlideEditor* editor = LoadedEditor(module.app);
    std::vector<std::string> rows = RowsOf(module, editor);
    // What moves up into the place of a removed row is not looked at.
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!EqualIgnoringCase(rows[i], path)) continue;
        const int index = static_cast<int>(i);
        module.show.SlideDescriptions.Remove(index);
        rows.erase(rows.begin() + index);
        if (editor != nullptr) editor->RemoveRow(index);
    }
    module.show.SlideFiles.Erase();
    for (std::size_t i = 0; i < rows.size(); ++i)
        module.show.SlideFiles.Set(static_cast<int>(i), rows[i]);
    if (editor != nullptr) editor->ShowCount(SlideCountText(module, static_cast<int>(rows.size())));
    module.show.ShowChanged = true;
}

std::string SlideCountText(const MainModule& module, int count) {
    if (count == 0) return "Zero slides (images) total...";
    if (count == 1) return "One slide (image) total...";
    return GroupedNumber(count, module.platform.system.Numbers()) + " slides (images) total...";
}

}  // namespace tavrix
