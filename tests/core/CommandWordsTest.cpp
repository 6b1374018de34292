#include "core/CommandWords.h"

#include <gtest/gtest.h>

#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tavrix {
namespace {

std::optional<Command> Of(std::string_view text) {
    const CommandWord* const word = CommandOf(text);
    return word != nullptr ? std::optional(word->command) : std::nullopt;
}

TEST(CommandWords, AreComparedAsAWholeInAnyCase) {
    EXPECT_EQ(Of("ABOUT"), Command::About);
    EXPECT_EQ(Of("slide Show"), Command::SlideShowEditor);
    EXPECT_EQ(Of("?"), Command::Help);
    for (const char* text : {"", " A", "A ", "SLIDE  SHOW", "ABOU", "ABOUTS"})
        EXPECT_EQ(Of(text), std::nullopt) << text;
}

TEST(CommandWords, AreTheseInTheOrderInWhichTheyAreTold) {
    using Words = std::vector<std::string_view>;
    const std::vector<std::pair<Command, Words>> wanted{
        {Command::About, {"ABOUT", "A"}},
        {Command::SlideShowEditor, {"SHOW", "S", "SLIDE", "SLIDE SHOW", "SLIDES"}},
        {Command::Open, {"OPEN", "O"}},
        {Command::ThumbnailBrowser, {"THUMBNAIL", "T"}},
        {Command::Help, {"HELP", "H", "?"}},
        {Command::Saver, {"SCRNSAVE"}},
        {Command::SaverSettings, {"C"}}};
    std::vector<std::pair<Command, Words>> found;
    for (const CommandWord& command : CommandWords) {
        found.emplace_back(command.command, Words(command.Words().begin(), command.Words().end()));
        EXPECT_EQ(command.argument.empty(), command.command != Command::Saver);
    }
    EXPECT_EQ(found, wanted);
}

TEST(CommandWords, EachWordIsForOneCommand) {
    std::set<std::string_view> words;
    std::set<Command> commands;
    for (const CommandWord& command : CommandWords) {
        EXPECT_TRUE(commands.insert(command.command).second);
        EXPECT_FALSE(command.Words().empty());
        EXPECT_FALSE(command.does.empty());
        EXPECT_EQ(WordOf(command.command), command.Words().front());
        for (const std::string_view word : command.Words()) {
            EXPECT_TRUE(words.insert(word).second) << word;
            EXPECT_EQ(Of(word), command.command);
        }
    }
    EXPECT_EQ(words.size(), 16U);
}

}  // namespace
}  // namespace tavrix
