// The rows of the View List: adding, removing, descriptions.

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "core/SlideCountText.h"
#include "shows/editor/SlideLoadFrm.h"
#include "shows/editor/frmDescription.h"

namespace tavrix {
namespace {

std::vector<int> IndicesOf(const forms::RowRanges& rows) {
    std::vector<int> indices;
    indices.reserve(static_cast<std::size_t>(rows.Count()));
    for (const forms::RowRange& range : rows.Ranges()) {
        for (int row = range.first; row < range.end; ++row)
            indices.push_back(row);
    }
    return indices;
}

}  // namespace

std::string SlideLoadFrm::SourceFolder() const {
    return WithBackslash(File1.Path.Get());
}

std::vector<std::string> SlideLoadFrm::SelectedSources() const {
    std::vector<std::string> paths;
    const std::string folder = SourceFolder();
    for (const int row : IndicesOf(File1.Selection()))
        paths.push_back(folder + File1.List(row));
    return paths;
}

int SlideLoadFrm::FirstSelectedSource() const {
    const forms::RowRanges selected = File1.Selection();
    return selected.Empty() ? -1 : selected.Ranges().front().first;
}

void SlideLoadFrm::CmdAdd_Click() {
    if (File1.ListCount() == 0) {
        Tell("There are no files in the selected directory to add...");
    } else if (File1.SelectedCount() == 0) {
        Tell("No files are selected, nothing to add...");
    } else {
        AddSlides(SelectedSources());
    }
}

void SlideLoadFrm::CmdAddAll_Click() {
    const int count = File1.ListCount();
    if (count == 0) {
        Tell("There are no files in the selected directory to add...");
        return;
    }
    std::vector<std::string> paths;
    paths.reserve(static_cast<std::size_t>(count));
    const std::string folder = SourceFolder();
    for (int row = 0; row < count; ++row)
        paths.push_back(folder + File1.List(row));
    AddSlides(std::move(paths));
}

void SlideLoadFrm::AddSlides(std::vector<std::string> paths) {
    const int current = ListView.ListIndex;
    const int added = InsertSlides(current < 0 ? ListView.ListCount() : current + 1, std::move(paths));
    if (current >= 0) ListView.ListIndex = current + added;
}

int SlideLoadFrm::InsertSlides(int at, std::vector<std::string> paths) {
    const auto room = static_cast<std::size_t>(SlideTexts::Slots - ListView.ListCount());
    const bool tooMany = paths.size() > room;
    if (tooMany) paths.resize(room);
    const int added = static_cast<int>(paths.size());
    if (added > 0) {
        module_.show.InsertSlides(at, paths);
        ListView.AddItems(std::move(paths), at);
        ShowCount();
        module_.show.ShowChanged = true;
    }
    if (tooMany) {
        App().MessageBox({.text = "The maximum of 30,000 slides has been loaded. Any remaining images in the "
                                  "Slide Show file will be ignored...",
                          .icon = forms::BoxIcon::Exclamation,
                          .systemModal = true});
    }
    return added;
}

void SlideLoadFrm::CmdRemove_Click() {
    if (ListView.ListCount() == 0) {
        Tell("There are no files in the View List to remove...");
    } else if (ListView.SelectedCount() == 0) {
        Tell("No files are selected, nothing to remove...");
    } else {
        RemoveSlides(ListView.Selection());
    }
}

void SlideLoadFrm::CmdRemoveAll_Click() {
    if (ListView.ListCount() == 0) {
        Tell("There are no files in the View List to remove...");
    } else if (Ask("Remove all of the images from the current slide show?")) {
        module_.show.EraseSlides();
        ListView.Clear();
        ShowCount();
        module_.show.ShowChanged = true;
    }
}

void SlideLoadFrm::RemoveSlides(const forms::RowRanges& rows) {
    module_.show.RemoveSlides(IndicesOf(rows));
    ListView.RemoveItems(rows);
    ShowCount();
    module_.show.ShowChanged = true;
}

void SlideLoadFrm::EditDescriptions() {
    if (ListView.ListCount() == 0) return;
    ListView.ListIndex = 0;
    EditDescriptionsFrom(0);
}

void SlideLoadFrm::mnuEditDescription_Click() {
    if (ListView.ListCount() == 0) {
        Tell("There are no slides in the View List, unable to edit file descriptions...");
    } else {
        EditDescriptionsFrom(ListView.ListIndex);
    }
}

void SlideLoadFrm::EditDescriptionsFrom(int row) {
    module_.show.SlideCount = static_cast<std::int16_t>(ListView.ListCount());
    ShowDialog<frmDescription>(module_, ShowPath(), row);
}

void SlideLoadFrm::mnuClearDescriptions_Click() {
    const int count = ListView.ListCount();
    if (count == 0) {
        Tell("There are no slides in the View List, nothing to clear...");
        return;
    }
    SlideTexts& descriptions = module_.show.SlideDescriptions;
    int first = 0;
    while (first < count && descriptions[first].empty())
        ++first;
    if (first == count) {
        Tell("There are no descriptions to clear...");
        return;
    }
    if (!Ask("You are about to clear ALL of the image descriptions for this slide show." +
             std::string(NewLine2) + "Are you sure?"))
        return;
    descriptions.Erase();
    module_.show.ShowChanged = true;
}

void SlideLoadFrm::ShowCount() {
    lblNumSlides.Caption = SlideCountText(ListView.ListCount(), module_.platform.system.Numbers());
}

void SlideLoadFrm::ShowLoaded(const std::string& path) {
    const int count = module_.show.Count();
    std::vector<std::string> rows;
    rows.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        rows.push_back(module_.show.SlideFiles[i]);
    ListView.SetItems(std::move(rows));
    SetFilename(path);
    ShowCount();
    saveFailed_ = false;
}

void SlideLoadFrm::SlidesRemoved(std::span<const int> indices) {
    forms::RowRanges gone;
    for (const int index : indices)
        gone.Add(index);
    ListView.RemoveItems(gone);
    ShowCount();
}

void SlideLoadFrm::PathsChanged() {
    for (int row = 0; row < ListView.ListCount(); ++row) {
        const std::string& path = module_.show.SlideFiles[row];
        if (ListView.List(row) != path) ListView.SetList(row, path);
    }
}

void SlideLoadFrm::SetFilename(const std::string& path) {
    lblFilename.Caption = path;
    lblFilename.ToolTip = path;
    folder_ = ShowFolder::Of(HasFile() ? path : std::string());
}

}  // namespace tavrix
