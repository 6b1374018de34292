#include "app/saver/SaverArguments.h"

#include <gtest/gtest.h>

#include <vector>

namespace tavrix {
namespace {

std::optional<SaverArguments> Read(const std::vector<std::string>& words, const std::string& variable = "") {
    return ReadSaverArguments(words, variable);
}
using Call = SaverArguments;

TEST(SaverArgumentsTest, TheVariableNamesTheWindow) {
    EXPECT_EQ(Read({}, "0x2A00007"), (Call{0x2A00007, false, ""}));
    EXPECT_EQ(Read({"-root"}, "0x2A00007"), (Call{0x2A00007, false, ""}));
    EXPECT_EQ(Read({"--root", "/p/my show.tvs"}, "123"), (Call{123, false, "/p/my show.tvs"}));
}

TEST(SaverArgumentsTest, RootAloneIsTheRootWindow) {
    EXPECT_EQ(Read({"-root"}), (Call{std::nullopt, false, ""}));
    EXPECT_EQ(Read({"-root"}, "none"), (Call{std::nullopt, false, ""}));
}

TEST(SaverArgumentsTest, AWindowOnTheCommandLineIsAPreview) {
    EXPECT_EQ(Read({"--root", "--window-id", "0x1f"}), (Call{0x1F, true, ""}));
    EXPECT_EQ(Read({"-window-id", "31", "s.tvs"}, "0x5"), (Call{31, true, "s.tvs"}));
}

TEST(SaverArgumentsTest, TheShowIsNamedWithAWordOrWithout) {
    EXPECT_EQ(Read({"--root", "--show", "/p/-x.tvs"}), (Call{std::nullopt, false, "/p/-x.tvs"}));
    EXPECT_EQ(Read({"-show", "-x.tvs"}, "5"), (Call{5, false, "-x.tvs"}));
    EXPECT_EQ(Read({"-root", "-show"}), std::nullopt);
    EXPECT_EQ(Read({"-root", "a.tvs", "-show", "b.tvs"}), std::nullopt);
}

TEST(SaverArgumentsTest, EverythingElseIsNoCallOfAModule) {
    EXPECT_EQ(Read({}), std::nullopt);
    EXPECT_EQ(Read({"s.tvs"}), std::nullopt);
    EXPECT_EQ(Read({"-root", "-fps"}), std::nullopt);
    EXPECT_EQ(Read({"-root", "a.tvs", "b.tvs"}), std::nullopt);
    EXPECT_EQ(Read({"-window-id"}, "0x5"), std::nullopt);
    for (const char* id : {"0", "x", "-4", "12q", "0x", "0xg", "99999999999", ""})
        EXPECT_EQ(Read({"-window-id", id}), std::nullopt) << id;
}

}  // namespace
}  // namespace tavrix
