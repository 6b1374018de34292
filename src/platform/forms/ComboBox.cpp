#include "platform/forms/ComboBox.h"

namespace tavrix::forms {

void ComboBox::AddItem(const std::string& text) {
    items_.push_back(text);
    RowsChanged(ListIndex);
}

}  // namespace tavrix::forms
