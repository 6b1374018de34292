#include "core/CommandWords.h"

#include <algorithm>

#include "base/Text.h"

namespace tavrix {

const CommandWord* CommandOf(std::string_view text) {
    const auto* const found = std::ranges::find_if(CommandWords, [text](const CommandWord& command) {
        return std::ranges::any_of(command.Words(),
                                   [text](std::string_view word) { return EqualIgnoringCase(word, text); });
    });
    return found == CommandWords.end() ? nullptr : found;
}

}  // namespace tavrix
