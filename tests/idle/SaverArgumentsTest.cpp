#include "app/saver/SaverArguments.h"

#include <gtest/gtest.h>

#include <vector>

namespace tavrix {
namespace {

std::optional<SaverArguments> Read(const std::vector<std::string>& words, const std::string& variable = "") {
    return ReadSaverArguments(words, variable);
}
using Read_ = SaverArguments;

TEST(SaverArgumentsTest, TheVariableNamesTheWindow) {
    EXPECT_EQ(Read({}, "0x2A00007"), (Read_{0x2A00007, false, ""}));
    EXPECT_EQ(Read({"-root"}, "0x2A00007"), (Read_{0x2A00007, false, ""}));
    EXPECT_EQ(Read({"--root", "/p/my show.tvs"}, "123"), (Read_{123, false, "/p/my show.tvs"}));
}

TEST(SaverArgumentsTest, RootAloneIsTheRootWindow) {
    EXPECT_EQ(Read({"-root"}), (Read_{std::nullopt, false, ""}));
    EXPECT_EQ(Read({"-root"}, "none"), (Read_{std::nullopt, false, ""}));
}

TEST(SaverArgumentsTest, AWindowOnTheCommandLineIsAPreview) {
    EXPECT_EQ(Read({"--root", "--window-id", "0x1f"}), (Read_{0x1F, true, ""}));
    EXPECT_EQ(Read({"-window-id", "31", "s.tvs"}, "0x5"), (Read_{31, true, "s.tvs"}));
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
