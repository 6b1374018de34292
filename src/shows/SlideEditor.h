#pragma once

#include <string>

#include "platform/forms/Application.h"

namespace tavrix {

/// The editor of the show, as far as the stage works on it. The editor's window is one.
class SlideEditor {
  public:
    virtual ~SlideEditor() = default;

    [[nodiscard]] virtual int RowCount() const = 0;
    /// The path in a row of its list, counted from 0.
    [[nodiscard]] virtual std::string Row(int index) const = 0;
    virtual void RemoveRow(int index) = 0;
    /// Shows how many slides there are, in words.
    virtual void ShowCount(const std::string& text) = 0;
    /// Makes the first row the current one and lets the user edit descriptions, until that is done.
    virtual void EditDescriptions() = 0;
};

/// The editor, or null while it is not loaded: looking for it never loads it.
[[nodiscard]] SlideEditor* LoadedEditor(const forms::Application& app);

}  // namespace tavrix
