#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "platform/forms/Control.h"

namespace tavrix::forms {

/// Controls of one kind under one name, counted from 0: picPreview(0), picPreview(1), ... Their handlers get the index.
template <class Kind, std::size_t Size>
class ControlArray {
  public:
    /// All in one container.
    ControlArray(Container& container, const std::string& name) {
        for (std::size_t i = 0; i < Size; ++i)
            controls_[i] = std::make_unique<Kind>(container, NameOf(name, i));
    }
    /// Each in the one of the same index, such as thumbnails in their cells.
    template <class Around>
    ControlArray(ControlArray<Around, Size>& containers, const std::string& name) {
        for (std::size_t i = 0; i < Size; ++i)
            controls_[i] = std::make_unique<Kind>(containers[i], NameOf(name, i));
    }

    [[nodiscard]] static constexpr std::size_t Count() { return Size; }
    /// `index`: 0 to Count() - 1.
    [[nodiscard]] Kind& operator[](std::size_t index) const { return *controls_.at(index); }

    /// Gives all of them one handler for an event (`&PictureBox::OnMouseDown`, say): its first argument is the index,
    /// the others are those of the event.
    template <class Owner, class... Arguments, class Handler>
    void On(std::function<void(Arguments...)> Owner::*event, const Handler& handler) {
        for (std::size_t i = 0; i < Size; ++i) {
            (*controls_[i]).*event = [handler, index = static_cast<int>(i)](Arguments... arguments) {
                handler(index, std::forward<Arguments>(arguments)...);
            };
        }
    }

  private:
    static std::string NameOf(const std::string& name, std::size_t index) {
        return name + "(" + std::to_string(index) + ")";
    }

    std::array<std::unique_ptr<Kind>, Size> controls_;
};

}  // namespace tavrix::forms
