#include "windows/ControlFacts.h"

#include <algorithm>
#include <cctype>

#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Label.h"
#include "platform/forms/OptionButton.h"
#include "platform/forms/RowControl.h"
#include "platform/forms/ScrollBar.h"
#include "platform/forms/TextBox.h"
#include "support/AllControls.h"

namespace tavrix::windows {

using namespace forms;

std::vector<Control*> ControlsOf(const Container& container) {
    return test::AllControls(container);
}

std::string CaptionOf(const Control& control) {
    if (const auto* label = dynamic_cast<const Label*>(&control))
        return label->Literal ? "" : label->Caption.Get();
    if (const auto* button = dynamic_cast<const CommandButton*>(&control)) return button->Caption;
    if (const auto* box = dynamic_cast<const CheckBox*>(&control)) return box->Caption;
    if (const auto* option = dynamic_cast<const OptionButton*>(&control)) return option->Caption;
    if (const auto* frame = dynamic_cast<const Frame*>(&control)) return frame->Caption;
    return {};
}

char AcceleratorOf(const std::string& caption) {
    for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != '&') continue;
        if (caption[++i] != '&')
            return static_cast<char>(std::tolower(static_cast<unsigned char>(caption[i])));
    }
    return 0;
}

std::string SpokenNameOf(const Control& control, const std::vector<Control*>& all) {
    if (!control.AccessibleName.Get().empty()) return control.AccessibleName;
    if (!CaptionOf(control).empty()) return CaptionOf(control);
    for (const Control* other : all) {
        const auto* label = dynamic_cast<const Label*>(other);
        if (label != nullptr && label->Buddy() == &control) return label->Caption;
    }
    return {};
}

bool TakesFocus(const Control& control) {
    return dynamic_cast<const CommandButton*>(&control) != nullptr ||
           dynamic_cast<const CheckBox*>(&control) != nullptr ||
           dynamic_cast<const OptionButton*>(&control) != nullptr ||
           dynamic_cast<const TextBox*>(&control) != nullptr ||
           dynamic_cast<const RowControl*>(&control) != nullptr ||
           dynamic_cast<const ScrollBar*>(&control) != nullptr;
}

bool HasItsPlace(const Control& control) {
    return control.Arranged() || control.Visible;
}

std::string ClippedPartOf(const Control& control) {
    const PixelRect bounds = control.PixelBounds();
    const PixelSize natural = control.Peer()->NaturalSize();
    const auto narrow = [&] {
        return bounds.width < natural.width ? std::string("the width") : std::string();
    };
    const std::string low = bounds.height < natural.height ? "the height" : "";
    if (const auto* label = dynamic_cast<const Label*>(&control)) {
        const bool wraps = label->WordWrap || !label->Arranged();
        if (wraps) {
            const auto& peer = dynamic_cast<const LabelPeer&>(*control.Peer());
            return peer.HeightAt(bounds.width) > bounds.height ? "the height" : "";
        }
        // Paths are shown with an ellipsis.
        return label->Literal ? low : low + narrow();
    }
    if (const auto* button = dynamic_cast<const CommandButton*>(&control)) {
        const Picture& picture = button->Picture;
        if (picture.Empty()) return low + narrow();
        return picture.Width() > bounds.width || picture.Height() > bounds.height ? "the picture" : "";
    }
    if (dynamic_cast<const TextBox*>(&control) != nullptr) return low;
    if (const auto* rows = dynamic_cast<const RowControl*>(&control)) {
        return rows->Needs().down == Slack::Wanted ? "" : low + narrow();
    }
    const bool text = !CaptionOf(control).empty();
    return text ? low + narrow() : "";
}

}  // namespace tavrix::windows
