#include "editing/frame/Undo.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "core/Folders.h"
#include "core/UnsavedImage.h"
#include "editing/frame/EditFrame.h"
#include "viewer/MainViewFrm.h"

namespace tavrix {
namespace {

bool SameContent(Files& files, const std::string& a, const std::string& b) {
    if (files.Info(a).length != files.Info(b).length) return false;
    constexpr std::size_t PieceBytes = std::size_t{1} << 16U;
    std::array<std::vector<std::byte>, 2> pieces{std::vector<std::byte>(PieceBytes),
                                                 std::vector<std::byte>(PieceBytes)};
    const std::unique_ptr<FileReader> first = files.Open(a);
    const std::unique_ptr<FileReader> second = files.Open(b);
    for (;;) {
        const auto ofFirst = std::span(pieces[0]).first(first->Read(pieces[0]));
        const auto ofSecond = std::span(pieces[1]).first(second->Read(pieces[1]));
        if (!std::ranges::equal(ofFirst, ofSecond)) return false;
        if (ofFirst.empty()) return true;
    }
}

/// Whether the edit was refused after its undo copy had been made. The image is then still the user's own file, which
/// an undo must not turn into a bitmap.
bool NothingWasEdited(const MainModule& module, const std::string& undoFile) {
    return !IsUnsavedImage(module) && SameContent(module.platform.files, module.CurrentImage, undoFile);
}

/// Loads the undo file and writes it to the image's own; the failure where there is one.
std::optional<RuntimeError> BringBack(MainViewFrm& view) {
    const MainModule& module = view.Module();
    try {
        const std::string undoFile = GetTempFolder(module) + UndoFile;
        view.MainImage.Picture = module.platform.pictures.Load(undoFile);
        if (!NothingWasEdited(module, undoFile)) WriteMainImage(view);
    } catch (const RuntimeError& error) {
        return error;
    }
    return std::nullopt;
}

}  // namespace

void mnuUndo_Click(MainViewFrm& view) {
    const MainModule& module = view.Module();
    if (module.Busy()) return;
    const forms::BusyGuard busy(module.Screen());
    module.DoEvents();
    if (const auto error = BringBack(view)) {
        view.App().MessageBox(
            {.text = "Unable to undo changes." + std::string(NewLine2) + error->Description() + "...",
             .icon = forms::BoxIcon::Exclamation});
        return;
    }
    view.Form_Resize();
    view.ScrollHome();
    view.menu.mnuUndo.Caption = "Can't Undo";
    view.menu.mnuUndo.Enabled = false;
    module.DoEvents();
}

}  // namespace tavrix
