#include "backends/shared/ShellLink.h"

#include <gtest/gtest.h>

#include "LinkBytes.h"

namespace tavrix {
namespace {

constexpr std::uint32_t IdList = 1;
constexpr std::uint32_t Info = 2;
constexpr std::uint32_t Name = 4;
constexpr std::uint32_t Relative = 8;
constexpr std::uint32_t Working = 0x10;
constexpr std::uint32_t Arguments = 0x20;
constexpr std::uint32_t Icon = 0x40;
constexpr std::uint32_t Wide = 0x80;
constexpr std::uint32_t NoInfo = 0x100;

/// A link that has everything.
LinkBytes WholeLink() {
    LinkBytes link;
    link.flags = IdList | Info | Name | Relative | Working | Arguments | Icon | Wide;
    link.idList = std::string("\x14\0\x1F\x50", 4) + std::string(16, 'x') + std::string(2, '\0');
    link.linkInfo = LinkBytes::Info{.localPath = "C:\\Pictures",
                                    .network = LinkBytes::Network("\\\\server\\share", "Z:"),
                                    .suffix = "summer\\a.jpg"}
                        .Bytes();
    link.strings = LinkBytes::Counted(u"a comment") + LinkBytes::Counted(u"..\\Pictures\\summer\\a.jpg") +
                   LinkBytes::Counted(u"C:\\Pictures\\summer") + LinkBytes::Counted(u"/x") +
                   LinkBytes::Counted(u"shell32.dll");
    link.blocks = LinkBytes::Number(12, 4) + LinkBytes::Number(0xA0000003U, 4) + "abcd" +
                  LinkBytes::VariableBlock("%USERPROFILE%\\a.jpg", u"%USERPROFILE%\\\u00E4.jpg") +
                  LinkBytes::Number(0, 4);
    return link;
}

TEST(ShellLink, TellsAllThatIsStored) {
    const auto link = ParseShellLink(WholeLink().Bytes());
    ASSERT_TRUE(link);
    EXPECT_EQ(link->localPath, "C:\\Pictures\\summer\\a.jpg");
    EXPECT_EQ(link->networkPath, "\\\\server\\share\\summer\\a.jpg");
    EXPECT_EQ(link->devicePath, "Z:\\summer\\a.jpg");
    EXPECT_EQ(link->relativePath, "..\\Pictures\\summer\\a.jpg");
    EXPECT_EQ(link->workingFolder, "C:\\Pictures\\summer");
    EXPECT_EQ(link->variablePath, "%USERPROFILE%\\\xC3\xA4.jpg");
}

TEST(ShellLink, ABareHeaderTellsNothing) {
    const auto link = ParseShellLink(LinkBytes().Bytes());
    ASSERT_TRUE(link);
    EXPECT_TRUE(link->localPath.empty() && link->relativePath.empty() && link->variablePath.empty());
}

TEST(ShellLink, OtherFilesAreNone) {
    EXPECT_FALSE(ParseShellLink(""));
    EXPECT_FALSE(ParseShellLink("L"));
    std::string bytes = WholeLink().Bytes();
    for (std::size_t at = 0; at < 20; ++at) {
        bytes[at] = static_cast<char>(bytes[at] ^ 0x20);
        EXPECT_FALSE(ParseShellLink(bytes)) << at;
        bytes[at] = static_cast<char>(bytes[at] ^ 0x20);
    }
    EXPECT_TRUE(ParseShellLink(bytes));
}

TEST(ShellLink, ThePathIsWholeWithoutASuffixToo) {
    LinkBytes link{.flags = Info, .linkInfo = LinkBytes::Info{.localPath = "C:\\a.jpg"}.Bytes()};
    EXPECT_EQ(ParseShellLink(link.Bytes())->localPath, "C:\\a.jpg");
    link.linkInfo = LinkBytes::Info{.localPath = "C:\\", .suffix = "a.jpg"}.Bytes();
    EXPECT_EQ(ParseShellLink(link.Bytes())->localPath, "C:\\a.jpg");
    link.linkInfo = LinkBytes::Info{.localPath = "C:\\p", .suffix = "\\a.jpg"}.Bytes();
    EXPECT_EQ(ParseShellLink(link.Bytes())->localPath, "C:\\p\\a.jpg");
}

TEST(ShellLink, UnicodeComesBeforeTheCodePage) {
    LinkBytes link{.flags = Info};
    link.linkInfo = LinkBytes::Info{.localPath = "C:\\?",
                                    .wideLocalPath = u"C:\\\u0416\U0001F600",
                                    .suffix = "?",
                                    .wideSuffix = u"\u20AC.bmp"}
                        .Bytes();
    EXPECT_EQ(ParseShellLink(link.Bytes())->localPath, "C:\\\xD0\x96\xF0\x9F\x98\x80\\\xE2\x82\xAC.bmp");
    // One of the two alone is enough.
    link.linkInfo = LinkBytes::Info{.localPath = "C:\\p", .suffix = "?", .wideSuffix = u"\u20AC"}.Bytes();
    EXPECT_EQ(ParseShellLink(link.Bytes())->localPath, "C:\\p\\\xE2\x82\xAC");
}

TEST(ShellLink, CodePageTextIsWindows1252) {
    LinkBytes link{.flags = Info | Relative,
                   .linkInfo = LinkBytes::Info{.localPath = "C:\\\xE4\x80.jpg"}.Bytes(),
                   .strings = LinkBytes::CountedBytes("\xFC.jpg")};
    EXPECT_EQ(ParseShellLink(link.Bytes())->localPath, "C:\\\xC3\xA4\xE2\x82\xAC.jpg");
    EXPECT_EQ(ParseShellLink(link.Bytes())->relativePath, "\xC3\xBC.jpg");
}

TEST(ShellLink, HalfSurrogatesAreReplaced) {
    LinkBytes link{.flags = Relative | Wide};
    link.strings = LinkBytes::Number(4, 2) + LinkBytes::Number(0xD800, 2) + LinkBytes::Number('a', 2) +
                   LinkBytes::Number(0xDC00, 2) + LinkBytes::Number(0xDBFF, 2);
    EXPECT_EQ(ParseShellLink(link.Bytes())->relativePath,
              "\xEF\xBF\xBD"
              "a\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(ShellLink, TextsEndAtANul) {
    LinkBytes link{.flags = Relative | Working | Wide,
                   .strings = LinkBytes::Counted(std::u16string_view(u"a\0b", 3)) + LinkBytes::Counted(u"w")};
    EXPECT_EQ(ParseShellLink(link.Bytes())->relativePath, "a");
    EXPECT_EQ(ParseShellLink(link.Bytes())->workingFolder, "w");
}

TEST(ShellLink, SharesMayHaveUnicodeNames) {
    LinkBytes link{.flags = Info};
    link.linkInfo =
        LinkBytes::Info{.network = LinkBytes::WideNetwork(u"\\\\s\\\u0416", u"Y:"), .suffix = "a.jpg"}
            .Bytes();
    EXPECT_EQ(ParseShellLink(link.Bytes())->networkPath, "\\\\s\\\xD0\x96\\a.jpg");
    EXPECT_EQ(ParseShellLink(link.Bytes())->devicePath, "Y:\\a.jpg");
    link.linkInfo = LinkBytes::Info{.network = LinkBytes::Network("\\\\s\\x", ""), .suffix = "a.jpg"}.Bytes();
    EXPECT_EQ(ParseShellLink(link.Bytes())->networkPath, "\\\\s\\x\\a.jpg");
    EXPECT_EQ(ParseShellLink(link.Bytes())->devicePath, "");
}

TEST(ShellLink, InformationThatIsNotToBeUsedIsSkipped) {
    LinkBytes link = WholeLink();
    link.flags |= NoInfo;
    const auto told = ParseShellLink(link.Bytes());
    EXPECT_EQ(told->localPath, "");
    EXPECT_EQ(told->networkPath, "");
    EXPECT_EQ(told->relativePath, "..\\Pictures\\summer\\a.jpg");
}

TEST(ShellLink, TheVariableBlockFallsBackToTheCodePage) {
    LinkBytes link{.blocks = LinkBytes::VariableBlock("%X%\\a.jpg", u"")};
    EXPECT_EQ(ParseShellLink(link.Bytes())->variablePath, "%X%\\a.jpg");
}

TEST(ShellLink, CutOffAnywhereItTellsWholeTextsOrNone) {
    const std::string bytes = WholeLink().Bytes();
    const ShellLink whole = *ParseShellLink(bytes);
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        const std::string cut(bytes, 0, size);  // of its own, so that a sanitizer sees each step beyond it
        const auto link = ParseShellLink(cut);
        ASSERT_EQ(link.has_value(), size >= 76) << size;
        if (!link) continue;
        for (const auto member :
             {&ShellLink::localPath, &ShellLink::devicePath, &ShellLink::networkPath,
              &ShellLink::variablePath, &ShellLink::relativePath, &ShellLink::workingFolder}) {
            const std::string& text = *link.*member;
            ASSERT_TRUE(text.empty() || text == whole.*member) << size << ": " << text;
        }
    }
}

TEST(ShellLink, LyingNumbersDoNoHarm) {
    const std::string bytes = WholeLink().Bytes();
    for (std::size_t at = 20; at + 4 <= bytes.size(); ++at) {
        for (const std::uint32_t lie :
             {0U, 1U, 0x13U, 0x1CU, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU, 0xFFFFFFF0U}) {
            std::string changed = bytes;
            changed.replace(at, 4, LinkBytes::Number(lie, 4));
            EXPECT_TRUE(ParseShellLink(changed)) << at << " " << lie;
        }
    }
}

TEST(ShellLink, OffsetsOutsideTheirPartGiveNoText) {
    const std::string info = LinkBytes::Info{.localPath = "C:\\a.jpg"}.Bytes();
    LinkBytes link{.flags = Info, .linkInfo = info, .blocks = "C:\\secret.jpg"};
    const auto pathAt = static_cast<std::uint32_t>(info.size());
    link.linkInfo.replace(0x10, 4, LinkBytes::Number(pathAt, 4));
    EXPECT_EQ(ParseShellLink(link.Bytes())->localPath, "");
    link.linkInfo = info;
    link.linkInfo.replace(0, 4, LinkBytes::Number(0x1B, 4));
    EXPECT_EQ(ParseShellLink(link.Bytes())->localPath, "");
    // A path without its end.
    link.linkInfo = info;
    link.linkInfo.pop_back();  // the suffix's
    link.linkInfo.pop_back();  // the path's
    link.linkInfo.replace(0, 4, LinkBytes::Number(pathAt - 2, 4));
    EXPECT_EQ(ParseShellLink(link.Bytes())->localPath, "");
}

}  // namespace
}  // namespace tavrix
