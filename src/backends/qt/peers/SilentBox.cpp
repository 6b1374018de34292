#include "backends/qt/peers/SilentBox.h"

#include <cstdio>
#include <string>

namespace tavrix::qt {
namespace {

/// In one line.
std::string LineOf(const std::string& text) {
    std::string line;
    for (const char c : text) {
        if (c == '\n' || c == '\r' || c == '\t') {
            if (!line.empty() && line.back() != ' ') line += ' ';
        } else {
            line += c;
        }
    }
    return line;
}

}  // namespace

SilentBox::SilentBox(const forms::BoxRequest& request, const std::function<void(forms::Answer)>& answered,
                     LogicCalls& calls) {
    std::fprintf(stderr, "tavrix: %s\n", LineOf(request.text).c_str());
    QMetaObject::invokeMethod(
        &context_,
        [answered, &calls, answer = forms::EscapeAnswer(request.buttons)] {
            const LogicCalls::Scope scope(calls);
            answered(answer);
        },
        Qt::QueuedConnection);
}

}  // namespace tavrix::qt
