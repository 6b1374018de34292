#include "dialogs/FileNameField.h"

#include <string>
#include <string_view>

#include "base/Text.h"

namespace tavrix {
namespace {

bool HasNo(char character, const char* refusal, const MainModule& module, forms::TextBox& field) {
    const std::string& name = field.Text;
    const std::size_t at = name.find(character);
    if (at == std::string::npos) return true;
    const auto caret = static_cast<int>(CharacterCount(std::string_view(name).substr(0, at)));
    module.app.MessageBox({.text = refusal});
    field.SelStart = caret;
    field.SetFocus();
    return false;
}

}  // namespace

bool HoldsBareFileName(const MainModule& module, forms::TextBox& field) {
    return HasNo(':', "A filename may not contain a colon (:), unable to export image...", module, field) &&
           HasNo('\\', "A filename may not contain a backslash (\\), unable to export image...", module,
                 field) &&
           HasNo('/', "A filename may not contain a slash (/), unable to export image...", module, field);
}

}  // namespace tavrix
