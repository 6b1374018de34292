#include "core/FailureText.h"

#include "base/Text.h"

namespace tavrix {

std::string FailureText(std::string_view what, const RuntimeError& error) {
    return std::string(what).append(NewLine2).append(error.Description()).append("...");
}

std::string FailureText(std::string_view what, std::string_view path, const RuntimeError& error) {
    return FailureText(std::string(what).append(NewLine2).append(path), error);
}

void TellFailure(const MainModule& module, std::string_view what, const RuntimeError& error) {
    module.app.MessageBox({.text = FailureText(what, error), .icon = forms::BoxIcon::Stop});
}

void TellFailure(const MainModule& module, std::string_view what, std::string_view path,
                 const RuntimeError& error) {
    module.app.MessageBox({.text = FailureText(what, path, error), .icon = forms::BoxIcon::Stop});
}

}  // namespace tavrix
