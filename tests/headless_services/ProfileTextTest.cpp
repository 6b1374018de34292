#include "backends/shared/ProfileText.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <vector>

namespace tavrix {
namespace {

std::string Merged(const std::string& before, std::vector<ProfileEntry> entries,
                   const std::string& section = "Viewer") {
    return MergeProfileText(before, section, entries);
}

TEST(ProfileText, ReadsKeysWhateverTheirCase) {
    const std::string text =
        "; comment\r\n[viewer]\r\n QualityJPG = 7 \r\nRecent1=\"C:\\a b.bmp\"\r\nX='y'\r\n"
        "QUALITYJPG=9\r\n;Hidden=1\r\nno key\r\nEmpty=\r\n[Package]\r\nOther=1\r\n";
    const ProfileSection section = ReadProfileSection(text, "Viewer");
    EXPECT_EQ(section.Read("qualityjpg"), "7");
    EXPECT_EQ(section.Read("Recent1"), "C:\\a b.bmp");
    EXPECT_EQ(section.Read("X"), "y");
    EXPECT_EQ(section.Read("Hidden"), "");
    EXPECT_EQ(section.Read(";Hidden"), "");
    EXPECT_EQ(section.Read("Other"), "");
    EXPECT_TRUE(section.Has("Empty"));
    EXPECT_FALSE(section.Has("Other"));
}

TEST(ProfileText, ReadsAtMost127Characters) {
    const ProfileSection section = ReadProfileSection("[Viewer]\nA=" + std::string(300, 'x'), "Viewer");
    EXPECT_EQ(section.Read("A").size(), 127U);
    EXPECT_EQ(section.Read("A", 1000).size(), 300U);
}

TEST(ProfileText, ReadsTheFirstOfTwoSections) {
    const std::string text = "[A]\nx=1\n[B]\n[A]\nx=2\ny=3\n";
    EXPECT_EQ(ReadProfileSection(text, "A").Read("x"), "1");
    EXPECT_EQ(ReadProfileSection(text, "A").Read("y"), "");
}

TEST(ProfileText, ReadsFilesWithAByteOrderMarkAndInTheOldCodePage) {
    EXPECT_EQ(ReadProfileSection("\xEF\xBB\xBF[A]\nx=\xC3\xA4\n", "A").Read("x"), "\u00e4");
    EXPECT_EQ(ReadProfileSection("[A]\nx=\xE4\n", "A").Read("x"), "\u00e4");
}

TEST(ProfileText, KeepsAllThatIsForeign) {
    const std::string before =
        "; settings of mine\r\n\r\n[Viewer]\r\n; by hand\r\nMouseSensitivity = 7\r\n"
        "Unknown=kept\r\nQualityJPG=8\r\n\r\n[Package]\r\nPackageName=Holiday\r\n";
    const std::string after =
        "; settings of mine\r\n\r\n[Viewer]\r\n; by hand\r\nMouseSensitivity = 7\r\n"
        "Unknown=kept\r\nQualityJPG=5\r\nCDTrack=2\r\n\r\n[Package]\r\nPackageName=Holiday\r\n";
    EXPECT_EQ(Merged(before, {{"QualityJPG", "5"}, {"CDTrack", "2"}}), after);
}

TEST(ProfileText, KeepsLineEnds) {
    EXPECT_EQ(Merged("[Viewer]\nA=1\n", {{"A", "2"}, {"B", "3"}}), "[Viewer]\nA=2\nB=3\n");
    EXPECT_EQ(Merged("[Viewer]\r\nA=1", {{"A", "2"}}), "[Viewer]\r\nA=2");
    EXPECT_EQ(Merged("[Viewer]\r\nA=1", {{"B", "2"}}), "[Viewer]\r\nA=1\r\nB=2\r\n");
    EXPECT_EQ(Merged("[Viewer]\nA=1\r\nC=1\n", {{"A", "2"}}), "[Viewer]\nA=2\r\nC=1\n");
}

TEST(ProfileText, MakesFileAndSection) {
    EXPECT_EQ(Merged("", {{"A", "1"}}), "[Viewer]\r\nA=1\r\n");
    EXPECT_EQ(Merged("[Package]\r\nX=1\r\n", {{"A", "1"}}), "[Package]\r\nX=1\r\n\r\n[Viewer]\r\nA=1\r\n");
    EXPECT_EQ(Merged("[Package]", {{"A", "1"}}), "[Package]\r\n\r\n[Viewer]\r\nA=1\r\n");
    EXPECT_EQ(Merged("[Viewer]\n\n\n[Package]\n", {{"A", "1"}}), "[Viewer]\nA=1\n\n\n[Package]\n");
}

TEST(ProfileText, ChangesTheKeyThatIsRead) {
    EXPECT_EQ(Merged("[Viewer]\na=1\nA=2\n", {{"A", "3"}}), "[Viewer]\na=3\nA=2\n");
    EXPECT_EQ(Merged("[Viewer]\nA=1\n", {{"A", "2"}, {"a", "3"}}), "[Viewer]\nA=3\n");
    EXPECT_EQ(Merged("[Viewer]\n", {{"B", "2"}, {"b", "3"}}), "[Viewer]\nB=3\n");
    EXPECT_EQ(Merged("[Viewer]\nA=1\n", {{"A", "2"}, {"A", "1"}}), "[Viewer]\nA=1\n");
}

TEST(ProfileText, LeavesEqualValuesUntouched) {
    const std::string text = "[Viewer]\nA =  \"1\"  \nB='x\n";
    EXPECT_EQ(Merged(text, {{"A", "1"}, {"B", "'x"}}), text);
}

TEST(ProfileText, WhatIsWrittenIsRead) {
    for (const std::string value :
         {"", "plain", " blank", "blank ", "\"quoted\"", "'quoted'", "\"", "''", "a=b", ";c", "[d]",
          "C:\\a b.bmp", "\u00e4\u20ac", "\u0416", "\u00c3\u00a4", "\t"}) {
        const std::string text = Merged("; \xE4\r\n[Viewer]\r\nOld=\xFC\r\n", {{"Key", value}});
        EXPECT_EQ(ReadProfileSection(text, "Viewer").Read("Key"), value);
        EXPECT_EQ(ReadProfileSection(text, "Viewer").Read("Old"), "\u00fc");
    }
}

TEST(ProfileText, LineEndsInAValueMakeNoNewLines) {
    const std::string text = Merged("", {{"A", "1\r\nB=2"}});
    EXPECT_EQ(ReadProfileSection(text, "Viewer").Read("A"), "1  B=2");
    EXPECT_FALSE(ReadProfileSection(text, "Viewer").Has("B"));
}

TEST(ProfileText, KeepsTheEncoding) {
    EXPECT_EQ(Merged("; \xC3\xA4\n[Viewer]\n", {{"A", "\u00e4"}}), "; \xC3\xA4\n[Viewer]\nA=\xC3\xA4\n");
    EXPECT_EQ(Merged("; \xE4\n[Viewer]\n", {{"A", "\u00e4"}}), "; \xE4\n[Viewer]\nA=\xE4\n");
    EXPECT_EQ(Merged("; \xE4\n[Viewer]\n", {{"A", "\u0416"}}), "; \xC3\xA4\n[Viewer]\nA=\u0416\n");
    EXPECT_EQ(Merged("[Viewer]\n", {{"A", "\u00e4"}}), "[Viewer]\nA=\xE4\n");
    EXPECT_EQ(Merged("\xEF\xBB\xBF[Viewer]\n", {{"A", "\u00e4"}}), "\xEF\xBB\xBF[Viewer]\nA=\xC3\xA4\n");
}

TEST(ProfileText, WhateverStandsThereWhatIsWrittenIsRead) {
    const std::vector<std::string> pieces{
        "[Viewer]", "[viewer",      "]",         "[",           "=",  "Key", "A",    ";",        "\r\n",
        "\n",       "\r",           " ",         "\t",          "\"", "'",   "\xE4", "\xC3\xA4", "\xFF",
        "[Other]",  "\n[Viewer]\n", "\nKey=1\n", "\xEF\xBB\xBF"};
    std::mt19937 random(1);
    for (int i = 0; i < 20'000; ++i) {
        std::string before;
        for (unsigned long k = random() % 12; k > 0; --k)
            before += pieces[random() % pieces.size()];
        const std::string value = "v" + std::to_string(i);
        const std::string after = Merged(before, {{"Key", value}, {"New", "\u00fc"}});
        const ProfileSection viewer = ReadProfileSection(after, "Viewer");
        ASSERT_EQ(viewer.Read("Key"), value)
            << testing::PrintToString(before) << testing::PrintToString(after);
        ASSERT_EQ(viewer.Read("New"), "\u00fc")
            << testing::PrintToString(before) << testing::PrintToString(after);
        ASSERT_EQ(Merged(after, {{"Key", value}, {"New", "\u00fc"}}), after);
    }
}

TEST(ProfileText, ForeignBytesOfAnyKindStay) {
    std::string before = "[Foreign]\n";
    for (int byte = 1; byte < 256; ++byte) {
        if (byte != '\n' && byte != '\r') before += std::string("k=") + static_cast<char>(byte) + "\n";
    }
    const std::string after = Merged(before, {{"A", "1"}});
    EXPECT_EQ(after, before + "\n[Viewer]\nA=1\n");
}

}  // namespace
}  // namespace tavrix
