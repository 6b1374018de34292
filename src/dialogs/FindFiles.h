#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/MainModule.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/DriveListBox.h"
#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "platform/forms/ListBox.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/TextBox.h"

namespace tavrix {

/// What a window that finds files finds, and how it tells so.
struct FindWords {
    std::string title;      ///< of its boxes
    std::string patterns;   ///< of the files, as in Files::List
    std::string kind;       ///< the files in the plural
    std::string label;      ///< of the search text
    std::string searching;  ///< the status when a search begins
    std::string findAll;    ///< the question whether to find all of them on a drive, up to the drive
    std::string canceled;   ///< the status after a search that was stopped
    std::string noFiles;    ///< there is nothing to open
    std::string deletion;   ///< the title of the box about a file that was not deleted
};

/// A window that finds files on a drive by a part of their names, lists them, opens one, and deletes one by its Delete key.
/// The window stays usable meanwhile: its Cancel button and its frame stop a search, and close it otherwise.
class FindFiles {
  public:
    /// Rows of the list; the count tells of all that was found.
    static constexpr std::size_t MostListed = 32767;

    /// To be a member of the form, which hands on its Form_Load, Form_QueryUnload, Form_Resize and Form_Unload. `helpContext`
    /// is the page of the Help button.
    FindFiles(forms::Form& form, const MainModule& module, FindWords words, unsigned helpContext);
    FindFiles(const FindFiles&) = delete;
    FindFiles& operator=(const FindFiles&) = delete;

  private:
    forms::Form& form_;
    const MainModule& module_;
    FindWords words_;

  public:
    forms::Label lblDrives;
    forms::DriveListBox Drive1;
    forms::Label lblSearch;
    forms::TextBox txtSearch;
    forms::Label lblFound;
    forms::ListBox ListFiles;
    forms::PictureBox PicFound;
    forms::CommandButton CmdFind;
    forms::CommandButton CmdOpen;
    forms::CommandButton CmdCancel;
    forms::CommandButton CmdHelp;

    bool FindRunning = false;
    bool FindCancelled = false;
    std::vector<std::string> FoundPaths;  ///< what the list is filled with
    std::int32_t FoundCount = 0;          ///< of all hits, listed or not

    /// The button, or a double click on a row.
    std::function<void()> OnOpen = [] {};
    /// Whether a file may be deleted; who says no has told why.
    std::function<bool(const std::string& path)> MayDelete = [](const std::string&) { return true; };
    /// The user has deleted a file.
    std::function<void(const std::string& path)> OnDeleted = [](const std::string&) {};

    [[nodiscard]] forms::Layout Arrangement();

    void Form_Load();
    void Form_QueryUnload(bool& cancel);
    void Form_Resize();
    void Form_Unload();

    /// The path of the selected row. Nothing when there is none, which the user is told.
    [[nodiscard]] std::optional<std::string> Selected() const;
    /// A box with the title of the window's boxes.
    void Tell(const std::string& text, forms::BoxIcon icon = forms::BoxIcon::Information) const;

  private:
    void Drive1_Change();
    void txtSearch_Change();
    void ListFiles_KeyDown(int keyCode);
    void CmdFind_Click();
    void CmdCancel_Click();

    /// Brings the search text into its form; false when there is nothing to search for.
    bool Prepare();
    /// Refuses a text with this character.
    bool HoldsNo(char character, const std::string& refusal);
    void Search();
    void TellResult();
    void Enable(bool enabled);
    void ShowStatus(const std::string& text);
    void ShowHint();
    void ShowFound();
    void ShowTotal();
    void DeleteSelected();
    [[nodiscard]] std::string Number() const;

    bool preparing_ = false;  ///< changes of the search text are the search's own
};

}  // namespace tavrix
