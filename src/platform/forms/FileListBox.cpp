#include "platform/forms/FileListBox.h"

#include <algorithm>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/forms/SameRows.h"
#include "platform/forms/StartFolder.h"
#include "platform/services/DrivePath.h"

namespace tavrix::forms {

FileListBox::FileListBox(Container& container, std::string name, Files& files, const std::string& pattern)
    : ListControl(container, std::move(name)), files_(files) {
    Path.Store(StartFolder(files));
    Pattern.Store(pattern);
}

void FileListBox::Refresh() {
    names_.reset();
    RowsReset(-1);
}

void FileListBox::RefreshKeepingRows() {
    if (!names_ && ListIndex < 0) {
        Refresh();
        return;
    }
    const std::vector<std::string> before = Names();
    names_.reset();
    const SameRows same(before, Names());
    RowsRenewed(same.Of(ListIndex), same.Of(Selection()));
}

const std::string& FileListBox::List(int index) const {
    return Names().at(static_cast<std::size_t>(index));
}

int FileListBox::IndexOf(const std::string& fileName) const {
    const auto& names = Names();
    const auto found = std::ranges::find_if(
        names, [&fileName](const std::string& name) { return EqualIgnoringCase(name, fileName); });
    return found == names.end() ? -1 : static_cast<int>(found - names.begin());
}

std::string FileListBox::FileName() const {
    return ListIndex >= 0 ? List(ListIndex) : std::string();
}

int FileListBox::RowCount() const {
    return static_cast<int>(Names().size());
}

ListRow FileListBox::Row(int row) const {
    return {List(row)};
}

const std::vector<std::string>& FileListBox::Names() const {
    if (!names_) {
        names_.emplace();
        SkipFailure([this] { names_ = files_.List(Path, Pattern); });
    }
    return *names_;
}

void FileListBox::AssignPath(const std::string& value) {
    const std::string path = PartsOf(value).Text();
    if (path == Path.Get()) return;
    if (!files_.Info(path).folder) throw RuntimeError(ErrorNumber::PathNotFound);
    Path.Store(path);
    Refresh();
    if (OnPathChange) OnPathChange();
}

void FileListBox::AssignPattern(const std::string& value) {
    if (Pattern.Store(value)) Refresh();
}

}  // namespace tavrix::forms
