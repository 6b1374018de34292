#include "setup/MenuEntry.h"

#include <gtest/gtest.h>

namespace tavrix::setup {
namespace {

TEST(MenuEntry, AnEntryStartsAScriptOfTheShell) {
    EXPECT_EQ(TextOf({.name = "Trip",
                      .comment = "A show",
                      .icon = "/home/me/T.ICO",
                      .arguments = {"/home/me/TAVRIX.EXE", "-viewer"},
                      .remover = {}}),
              "[Desktop Entry]\nType=Application\nName=Trip\nComment=A show\nExec=sh \"/home/me/TAVRIX.EXE\" "
              "\"-viewer\"\nIcon=/home/me/T.ICO\nTerminal=false\nCategories=Graphics;Viewer;\n");
}

TEST(MenuEntry, ItOffersToRemoveWhatItIsOf) {
    const std::string text =
        TextOf({.name = "Trip", .comment = {}, .icon = {}, .arguments = {"/a"}, .remover = "/b c"});
    EXPECT_NE(
        text.find(
            "Actions=remove;\n\n[Desktop Action remove]\nName=Remove from this computer\nExec=sh \"/b c\"\n"),
        std::string::npos)
        << text;
}

TEST(MenuEntry, NoNameOrPathBreaksOutOfItsLine) {
    const std::string text = TextOf({.name = "a\nExec=evil\\",
                                     .comment = "\r\t\\",
                                     .icon = "/i\\c\no",
                                     .arguments = {"/$HOME/`x`/\"%f\\\n"},
                                     .remover = {}});
    EXPECT_NE(text.find("\nName=a Exec=evil\\\\\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\nComment=  \\\\\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\nIcon=/i\\\\c o\n"), std::string::npos) << text;
    // Quoted for the command line, and the backslashes once more as a value.
    EXPECT_NE(text.find("\nExec=sh \"/\\\\$HOME/\\\\`x\\\\`/\\\\\"%%f\\\\\\\\\\n\"\n"), std::string::npos)
        << text;
}

}  // namespace
}  // namespace tavrix::setup
