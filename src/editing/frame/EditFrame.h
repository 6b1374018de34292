#pragma once

#include <cstdint>
#include <functional>

namespace tavrix {

class MainViewFrm;

/// The copy of the image's file before the last edit, in GetTempFolder.
inline constexpr const char* UndoFile = "~undo.tmp";

/// What an edit says.
struct EditWords {
    const char* undo;  ///< caption of mnuUndo
    /// Where its result cannot be written.
    const char* notWritten = "Unable to write edited image to a temporary file.";
};

/// What has become of the image.
enum class EditResult : std::uint8_t {
    Made,    ///< MainImage shows what is to be kept
    Refused  ///< nothing to be kept, and the user knows why; the undo stays on offer
};

/// The frame in which every edit of the image on show runs. The edit hands in its work, which puts the new picture into
/// MainImage; the frame makes the undo copy before it and the working file after it.
///
/// The copy is made while the work is, where the files service can do that: it stands before the working file is written.
///
///     EditFrame edit(view, {.undo = "&Undo Flip Vertically"});
///     edit.RunFromMenu([&] { return edit.Redraw([&] { ... }); });
class EditFrame {
  public:
    /// The edit's own work. It skips its own failures, or tells them and ends with Refused.
    using Work = std::function<EditResult()>;

    EditFrame(MainViewFrm& view, const EditWords& words) : view_(view), words_(words) {}

    /// The edit, for commands with a guard and an hourglass of their own: the caption and the undo copy, the work, the
    /// working file. Nothing of that for a picture that came without a part of its file that could not be read; that is
    /// told then, and the picture stays on show: no edit takes it for the whole. Where the undo copy fails the caption
    /// becomes "Can't Undo", whether the entry is enabled stays as it was, and the edit goes on.
    void Run(const Work& work) const;

    /// The edit as an entry of the menu that asks for nothing: nothing while another operation runs or without an image;
    /// else Run under the hourglass, with the selection wiped before the work.
    void RunFromMenu(const Work& work) const;

    /// For the work: what is on show goes to PictureTemp, which `plan` may measure; MainImage is cleared and keeps its size;
    /// `transform` draws into it from PictureTemp, which then is cleared. Made.
    [[nodiscard]] EditResult Redraw(
        const std::function<void()>& transform, const std::function<void()>& plan = [] {}) const;

  private:
    /// Whether the picture is one that no edit takes.
    [[nodiscard]] bool RefuseUnread() const;
    /// Does the work while the copy for the undo is made.
    [[nodiscard]] EditResult SaveUndoCopy(const Work& work) const;

    MainViewFrm& view_;
    EditWords words_;
};

/// Gives MainImage a size in twips. Both sides at once, so that the window is laid out for no size between.
void SizeMainImage(MainViewFrm& view, float width, float height);

}  // namespace tavrix
