#include "backends/shared/help/HelpDesk.h"

#include <array>
#include <span>

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace tavrix {
namespace {

/// The bytes of a file, but no more than one beyond what a help file may have.
std::string Content(Files& files, const std::string& path) {
    std::string content;
    std::array<char, 16'384> block{};
    const auto reader = files.Open(path);
    while (content.size() <= HelpBook::LargestFile) {
        const std::size_t count = reader->Read(std::as_writable_bytes(std::span(block)));
        if (count == 0) break;
        content.append(block.data(), count);
    }
    return content;
}

}  // namespace

std::string HelpDesk::Read(const std::string& path) {
    try {
        std::string found = path;
        if (!files_.FileExists(path)) {
            const std::string other = otherPlace_();
            if (files_.FileExists(other)) found = other;
        }
        std::optional<HelpBook> book = HelpBook::Parse(Content(files_, found));
        if (!book) return "It is not a help file of this program";
        screen_.Close();  // it shows pages of the former book
        book_ = std::move(book);
        path_ = path;
    } catch (const RuntimeError& error) {
        return error.Description();
    }
    return {};
}

void HelpDesk::Show(const std::string& file, HelpCommand command, unsigned data) {
    if (command == HelpCommand::Quit) {
        screen_.Close();
        return;
    }
    if (!book_ || path_ != file) {
        const std::string problem = Read(file);
        if (!problem.empty()) {
            const std::string blank(NewLine2);
            tell_("Unable to open the help file:" + blank + file + blank + problem + "...");
            return;
        }
    }
    screen_.Open(*book_, command == HelpCommand::Context ? data : 0);
}

}  // namespace tavrix
