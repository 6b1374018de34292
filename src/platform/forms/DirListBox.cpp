#include "platform/forms/DirListBox.h"

#include <utility>

#include "base/Text.h"
#include "platform/forms/StartFolder.h"
#include "platform/services/DrivePath.h"

namespace tavrix::forms {
namespace {

/// The folders from the root of the drive to a folder, both included.
std::vector<std::string> WayTo(const std::string& path) {
    const DrivePathParts parts = PartsOf(path);
    std::vector<std::string> way;
    DrivePathParts upTo{parts.letter, {}};
    way.push_back(upTo.Text());
    for (const std::string& name : parts.names) {
        upTo.names.push_back(name);
        way.push_back(upTo.Text());
    }
    return way;
}

bool IsDriveAlone(const std::string& path) {
    return !path.empty() && IsDriveLetter(path[0]) &&
           (path.size() == 1 || (path.size() == 2 && path[1] == ':'));
}

}  // namespace

DirListBox::DirListBox(Container& container, std::string name, Files& files)
    : ListControl(container, std::move(name)), files_(files) {
    Path.Store(StartFolder(files));
    above_ = WayTo(Path);
    Refresh();
}

void DirListBox::Refresh() {
    const std::vector<std::string> way = WayTo(Path);
    for (auto folder = way.rbegin(); folder != way.rend(); ++folder) {
        try {
            Show(*folder);
            if (folder != way.rbegin() && OnChange) OnChange();
            return;
        } catch (const RuntimeError&) {  // then the one above it
        }
    }
    // The drive itself has gone: the user still sees where the list was.
    folders_.clear();
    above_ = way;
    RowsReset(static_cast<int>(above_.size()) - 1);
}

int DirListBox::RowCount() const {
    return static_cast<int>(above_.size() + folders_.size());
}

std::string DirListBox::PathOfRow(int row) const {
    const auto index = static_cast<std::size_t>(row);
    return index < above_.size() ? above_[index] : folders_.at(index - above_.size());
}

ListRow DirListBox::Row(int row) const {
    const int depth = static_cast<int>(above_.size());
    const std::string path = PathOfRow(row);
    ListRow shown;
    shown.text = row == 0 ? path : FileNameOf(path);
    shown.icon = row < depth ? RowIcon::OpenFolder : RowIcon::Folder;
    shown.indent = row < depth ? row : depth;
    return shown;
}

void DirListBox::RowDoubleClicked() {
    ListControl::RowDoubleClicked();
    OpenRow(ListIndex);
}

void DirListBox::KeyPressed(int& keyCode, int shift) {
    // On the folder that is open already, Enter is left for the window's default button.
    ListControl::KeyPressed(keyCode, shift);
    if (keyCode != KeyCode::Return || shift != ShiftMask::None || ListIndex < 0) return;
    if (PathOfRow(ListIndex) == Path.Get()) return;
    keyCode = 0;
    OpenRow(ListIndex);
}

void DirListBox::OpenRow(int row) {
    const std::string path = PathOfRow(row);
    try {
        Path = path;
    } catch (const RuntimeError& error) {
        if (OnOpenFailure) OnOpenFailure(path, error);
    }
}

std::string DirListBox::CurrentFolderOf(char drive) const {
    const std::string letter(1, drive);
    const std::string current = files_.ShortPath(letter + ":");
    return current.empty() ? letter + ":\\" : current;
}

void DirListBox::AssignPath(const std::string& value) {
    if (IsDriveAlone(value) && EqualIgnoringCase(value.substr(0, 1), Path.Get().substr(0, 1))) return;
    const std::string path = PartsOf(IsDriveAlone(value) ? CurrentFolderOf(value[0]) : value).Text();
    if (path == Path.Get()) return;
    Show(path);
    if (OnChange) OnChange();
}

void DirListBox::Show(const std::string& path) {
    folders_ = files_.Folders(path);
    above_ = WayTo(path);
    Path.Store(path);
    RowsReset(static_cast<int>(above_.size()) - 1);
}

}  // namespace tavrix::forms
