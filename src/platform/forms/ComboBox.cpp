#include "platform/forms/ComboBox.h"

namespace tavrix::forms {

void ComboBox::AddItem(const std::string& text) {
    items_.push_back(text);
    RowsInserted(ListCount() - 1, 1);
}

void ComboBox::Clear() {
    items_.clear();
    RowsReset(-1);
}

}  // namespace tavrix::forms
