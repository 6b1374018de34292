#include "platform/forms/Application.h"

#include <algorithm>
#include <optional>

#include "platform/forms/BoxText.h"

namespace tavrix::forms {

Application::Application(Toolkit& toolkit) : toolkit_(toolkit), screen_(toolkit), timers_(toolkit) {
    toolkit_.Attach(*this);
}

Application::~Application() {
    unloaded_.clear();
    while (!forms_.empty())
        forms_.pop_back();
}

bool Application::Unload(Form& form) {
    if (form.unloaded_ || form.unloading_) return form.unloaded_;
    const Form::HandlerScope scope(form);
    form.unloading_ = true;
    bool cancel = false;
    form.Form_QueryUnload(cancel);
    if (!cancel) form.Form_Unload(cancel);
    form.unloading_ = false;
    if (cancel) return false;

    form.TakeOffScreen();
    form.unloaded_ = true;
    std::erase(activated_, &form);
    const auto found = std::ranges::find(forms_, &form, &std::unique_ptr<Form>::get);
    unloaded_.push_back(std::move(*found));
    forms_.erase(found);
    return true;
}

void Application::DoEvents() {
    toolkit_.ProcessEvents();
}

Answer Application::MessageBox(const BoxRequest& request) {
    std::optional<Answer> answer;
    ++openBoxes_;
    ++opened_;
    BoxRequest shown = request;
    shown.text = FittingInABox(request.text);
    const auto box = toolkit_.OpenBox(
        shown, [&answer](Answer given) { answer = given; },
        [this, &request] {
            if (OnHelp) OnHelp(request);
        });
    toolkit_.RunUntil([&answer] { return answer.has_value(); });
    --openBoxes_;
    return answer.value_or(EscapeAnswer(request.buttons));
}

std::optional<std::string> Application::InputBox(const InputRequest& request) {
    bool answered = false;
    std::optional<std::string> text;
    ++openBoxes_;
    ++opened_;
    const auto box =
        toolkit_.OpenInputBox(request, [&answered, &text](const std::optional<std::string>& entered) {
            text = entered;
            answered = true;
        });
    toolkit_.RunUntil([&answered] { return answered; });
    --openBoxes_;
    return text;
}

void Application::TellEscaped(const std::string& text) {
    screen_.MousePointer = MousePointer::Default;
    MessageBox({.text = text + "...", .icon = BoxIcon::Stop});
}

void Application::Run() {
    toolkit_.RunUntil([this] { return forms_.empty(); });
}

void Application::MakeActive(Form& form) {
    if (form.unloaded_ || !form.visible_) return;
    if (!activated_.empty() && activated_.back() == &form) return;
    std::erase(activated_, &form);
    activated_.push_back(&form);
    const Form::HandlerScope scope(form);
    form.Form_Activate();
}

void Application::NoteActivated(Form& form) {
    // While a box is up the desktop may pass the activation on as it likes; that is no return from another form.
    if (openBoxes_ == 0) MakeActive(form);
}

void Application::ReturnFrom(Form& form) {
    const bool wasActive = form.unloaded_ || (!activated_.empty() && activated_.back() == &form);
    std::erase(activated_, &form);
    if (!wasActive) return;
    while (!activated_.empty()) {
        Form& before = *activated_.back();
        activated_.pop_back();
        if (before.visible_ && !before.unloaded_) {
            MakeActive(before);
            return;
        }
    }
}

void Application::DestroyUnloaded() {
    // Destroying runs code that may unload further forms, so that the list is taken apart one by one.
    for (;;) {
        const auto idle =
            std::ranges::find_if(unloaded_, [](const auto& form) { return form->handlersRunning_ == 0; });
        if (idle == unloaded_.end()) return;
        const std::unique_ptr<Form> gone = std::move(*idle);
        unloaded_.erase(idle);
    }
}

}  // namespace tavrix::forms
