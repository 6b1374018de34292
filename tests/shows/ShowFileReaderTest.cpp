#include "shows/files/ShowFileReader.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "shows/files/ShowFileWriter.h"
#include "support/ErrorOfCall.h"

namespace tavrix::test {
namespace {

/// A file that gives its bytes in parts of a size, and may fail where they end.
class PartsReader final : public FileReader {
  public:
    explicit PartsReader(std::string content, std::size_t part = 1 << 20, int error = 0)
        : content_(std::move(content)), part_(part), error_(error) {}

    std::size_t Read(std::span<std::byte> into) override {
        const std::size_t count = std::min({into.size(), part_, content_.size() - at_});
        if (count == 0 && error_ != 0) throw RuntimeError(static_cast<ErrorNumber>(error_));
        std::memcpy(into.data(), content_.data() + at_, count);
        at_ += count;
        return count;
    }

  private:
    std::string content_;
    std::size_t part_;
    int error_;
    std::size_t at_ = 0;
};

ShowFileReader ReaderOf(const std::string& content, std::size_t part = 1 << 20, int error = 0) {
    return ShowFileReader(std::make_unique<PartsReader>(content, part, error));
}

std::vector<std::string> ItemsOf(const std::string& content, std::size_t part = 1 << 20) {
    ShowFileReader reader = ReaderOf(content, part);
    std::vector<std::string> items;
    while (!reader.AtEnd())
        items.push_back(reader.Text());
    return items;
}

using Items = std::vector<std::string>;

int ErrorOfInteger(const std::string& content) {
    return ErrorOfCall([&] { static_cast<void>(ReaderOf(content).Integer()); });
}

TEST(ShowFileReaderTest, ItemsEndAtCommasAndLineEnds) {
    EXPECT_EQ(ItemsOf("\"a\"\r\n\"b\",\"c\"\r\nd,e\r\nf"), (Items{"a", "b", "c", "d", "e", "f"}));
}

TEST(ShowFileReaderTest, LinesMayEndInLineFeedsOrCarriageReturnsAlone) {
    EXPECT_EQ(ItemsOf("\"a\"\nb\n\"c\"\rd\r"), (Items{"a", "b", "c", "d"}));
}

TEST(ShowFileReaderTest, BlanksBeforeAnItemAndBehindAQuoteAreSkipped) {
    EXPECT_EQ(ItemsOf("   \"a\"  ,  b c \r\n  \"d\"   \r\n   e"), (Items{"a", "b c ", "d", "e"}));
}

TEST(ShowFileReaderTest, AQuotedItemHoldsCommasBlanksAndLineEnds) {
    EXPECT_EQ(ItemsOf("\" a, b\r\nc \"\r\n\"\"\r\nd"), (Items{" a, b\r\nc ", "", "d"}));
}

TEST(ShowFileReaderTest, AQuoteInsideATextCutsItAndTheRestIsTheNextItem) {
    EXPECT_EQ(ItemsOf("\"say \"hi\" now\"\r\n\"next\"\r\n"), (Items{"say ", "hi\" now\"", "next"}));
}

TEST(ShowFileReaderTest, AnEmptyLineIsAnEmptyItem) {
    EXPECT_EQ(ItemsOf("a\r\n\r\n,b\r\n"), (Items{"a", "", "", "b"}));
    EXPECT_EQ(ItemsOf("\"a\"\r\n\r\n"), (Items{"a", ""}));
}

TEST(ShowFileReaderTest, SoItIsBetweenBareLineEnds) {
    EXPECT_EQ(ItemsOf("a\n\nb\n\n\n\"c\"\n\n"), (Items{"a", "", "b", "", "", "c", ""}));
    EXPECT_EQ(ItemsOf("a\r\rb\r\r\n"), (Items{"a", "", "b", ""}));
    EXPECT_EQ(ItemsOf("\n\n"), (Items{"", ""}));
    EXPECT_EQ(ItemsOf("a,\nb"), (Items{"a", "", "b"}));
}

TEST(ShowFileReaderTest, AByteOrderMarkIsSkippedAtTheStartAlone) {
    const std::string mark = "\xEF\xBB\xBF";
    for (std::size_t part = 1; part < 6; ++part) {
        EXPECT_EQ(ItemsOf(mark + "\"a\"\r\n\xC3\xA4," + mark + "b", part),
                  (Items{"a", "\xC3\xA4", mark + "b"}));
        EXPECT_TRUE(ReaderOf(mark, part).AtEnd());
        EXPECT_EQ(ItemsOf(mark + "\r\na", part), (Items{"", "a"}));
    }
    EXPECT_EQ(ItemsOf("\"" + mark + "a\""), (Items{mark + "a"}));
    // It says nothing about bytes that are no UTF-8.
    EXPECT_EQ(ItemsOf(mark + "a\r\n\xE4"), (Items{"a", "\xC3\xA4"}));
}

TEST(ShowFileReaderTest, AFailureBehindAByteOrderMarkIsOne) {
    ShowFileReader reader = ReaderOf("\xEF\xBB\xBF\"a\"\r\n", 100, 71);
    EXPECT_EQ(reader.Text(), "a");
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(reader.AtEnd()); }), 71);
}

TEST(ShowFileReaderTest, TheEndIsWhereNothingIsLeft) {
    EXPECT_TRUE(ReaderOf("").AtEnd());
    EXPECT_EQ(ErrorOfCall([] { static_cast<void>(ReaderOf("").Text()); }), 62);
    ShowFileReader blanks = ReaderOf("  ");
    EXPECT_FALSE(blanks.AtEnd());
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(blanks.Text()); }), 62);
    ShowFileReader one = ReaderOf("\"a\"");
    EXPECT_EQ(one.Text(), "a");
    EXPECT_TRUE(one.AtEnd());
    EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(one.Text()); }), 62);
}

TEST(ShowFileReaderTest, AQuoteThatIsNeverClosedIsPastTheEnd) {
    EXPECT_EQ(ErrorOfCall([] { static_cast<void>(ReaderOf("\"abc\r\ndef").Text()); }), 62);
    EXPECT_EQ(ErrorOfCall([] { static_cast<void>(ReaderOf("\"").Text()); }), 62);
}

TEST(ShowFileReaderTest, NumbersAreRoundedHalfToEven) {
    const std::vector<std::pair<std::string, int>> numbers{
        {"0", 0},         {"-1", -1},         {"+7", 7},    {"32767", 32767}, {"-32768", -32768},
        {"2.5", 2},       {"3.5", 4},         {"-2.5", -2}, {".5", 0},        {"5.", 5},
        {"\" 12 \"", 12}, {"32767.4", 32767}, {"1e2", 100}, {"12 ", 12},      {"007", 7}};
    for (const auto& [text, value] : numbers)
        EXPECT_EQ(ReaderOf(text + "\r\n").Integer(), value) << text;
}

TEST(ShowFileReaderTest, WhatIsNoNumberOrDoesNotFitFails) {
    for (const char* text :
         {"\"\"", "x", "1x", "--1", "+-1", "-", ".", "nan", "inf", "-inf", "1 2", "#TRUE#", "0x10"})
        EXPECT_EQ(ErrorOfInteger(std::string(text) + "\r\n"), 13) << text;
    for (const char* text : {"32768", "-32769", "32767.5", "99999999999999999999", "1e999", "-1e999"})
        EXPECT_EQ(ErrorOfInteger(std::string(text) + "\r\n"), 6) << text;
    EXPECT_EQ(ErrorOfInteger(""), 62);
}

TEST(ShowFileReaderTest, UmlautsComeFromBothEncodings) {
    EXPECT_EQ(ItemsOf("\"plain\"\r\n\"B\xE4r \x80\"\r\n"), (Items{"plain", "B\xC3\xA4r \xE2\x82\xAC"}));
    EXPECT_EQ(ItemsOf("\"plain\"\r\n\"B\xC3\xA4r \xE6\x97\xA5\"\r\n"),
              (Items{"plain", "B\xC3\xA4r \xE6\x97\xA5"}));
}

TEST(ShowFileReaderTest, TheWholeFileDecidesOnItsEncoding) {
    // The first item alone could be UTF-8; the last cannot.
    EXPECT_EQ(ItemsOf("\xC3\xA9\r\n" + std::string(200'000, 'x') + "\r\n\xE4\r\n", 1000),
              (Items{"\xC3\x83\xC2\xA9", std::string(200'000, 'x'), "\xC3\xA4"}));
}

TEST(ShowFileReaderTest, ACharacterMayLieAcrossTheParts) {
    const std::string content = "\"abc\",\r\n\"B\xC3\xA4r \xE6\x97\xA5\",1\r\n\"x\"";
    const Items items = ItemsOf(content);
    EXPECT_EQ(items.size(), 5U);
    for (std::size_t part = 1; part < 30; ++part)
        EXPECT_EQ(ItemsOf(content, part), items) << part;
}

TEST(ShowFileReaderTest, NulsAreCharacters) {
    const std::string nul("a\0b", 3);
    EXPECT_EQ(ItemsOf("\"" + nul + "\"\r\n" + nul + "\r\n"), (Items{nul, nul}));
}

TEST(ShowFileReaderTest, ALineMayBeAMebibyteLong) {
    const std::string text(1 << 20, 'x');
    EXPECT_EQ(ItemsOf("\"" + text + "\"\r\n" + text + ",y"), (Items{text, text, "y"}));
}

TEST(ShowFileReaderTest, AFailureComesWithTheItemThatItCutsShort) {
    for (const std::string& plain : {std::string("abc"), std::string("\xE4"), std::string("\xC3\xA4")}) {
        ShowFileReader reader = ReaderOf(plain + "\r\n\"next", 100, 71);
        EXPECT_EQ(reader.Text().empty(), false);
        EXPECT_FALSE(reader.AtEnd());
        EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(reader.Text()); }), 71);
        EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(reader.Text()); }), 71);
    }
}

/// Endless lines.
class EndlessReader final : public FileReader {
  public:
    explicit EndlessReader(char byte) : byte_(byte) {}
    std::size_t Read(std::span<std::byte> into) override {
        std::memset(into.data(), byte_, into.size());
        return into.size();
    }

  private:
    char byte_;
};

TEST(ShowFileReaderTest, AnEndlessItemRunsOutOfMemory) {
    for (const char byte : {'x', ' ', '\xFC'}) {
        ShowFileReader reader(std::make_unique<EndlessReader>(byte));
        EXPECT_EQ(ErrorOfCall([&] { static_cast<void>(reader.Text()); }), 7);
    }
}

/// A file in memory.
class StringWriter final : public FileWriter {
  public:
    explicit StringWriter(std::string& content) : content_(content) {}
    void Write(std::span<const std::byte> bytes) override {
        content_.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    }
    void Close() override {}

  private:
    std::string& content_;
};

std::string Written(const ShowOptions& options,
                    const std::vector<std::pair<std::string, std::string>>& slides) {
    ShowFileEncoding encoding;
    encoding.Add(options.SoundFile);
    for (const auto& [path, description] : slides) {
        encoding.Add(path);
        encoding.Add(description);
    }
    std::string content;
    ShowFileWriter writer(std::make_unique<StringWriter>(content), encoding);
    writer.WriteHeader(options);
    for (const auto& [path, description] : slides)
        writer.WriteSlide(path, description);
    writer.Close();
    return content;
}

TEST(ShowFileWriterTest, WritesAnItemALine) {
    ShowOptions options;
    options.SoundMode = 1;
    options.SoundFile = "C:\\Music\\a, b.wav";
    options.CDTrack = 100;
    options.SoundLoop = true;
    options.SlideInterval = -3;
    options.RandomSlides = false;
    options.ShowFilenames = true;
    options.ShowDescription = false;
    options.LoopSlideShow = true;
    options.AnimateGIF89 = false;
    EXPECT_EQ(
        Written(options, {{"C:\\p\\a.bmp", "A"}, {"b.bmp", ""}}),
        "\"Tavrix Slide Show\"\r\n\"Version 1.5\"\r\n1\r\n\"C:\\Music\\a, b.wav\"\r\n100\r\n-1\r\n-3\r\n"
        "0\r\n-1\r\n0\r\n-1\r\n0\r\n\"C:\\p\\a.bmp\"\r\n\"A\"\r\n\"b.bmp\"\r\n\"\"\r\n");
}

TEST(ShowFileWriterTest, WritesASingleByteACharacterWhereThatHoldsAll) {
    const std::string content = Written({}, {{"C:\\B\xC3\xA4r.bmp", "5 \xE2\x82\xAC"}});
    EXPECT_NE(content.find("\"C:\\B\xE4r.bmp\"\r\n\"5 \x80\"\r\n"), std::string::npos);
}

TEST(ShowFileWriterTest, WritesUtf8WhereTheCodePageLacksACharacter) {
    const std::string content = Written({}, {{"C:\\B\xC3\xA4r.bmp", ""}, {"C:\\\xE6\x97\xA5.bmp", ""}});
    EXPECT_NE(content.find("\"C:\\B\xC3\xA4r.bmp\"\r\n"), std::string::npos);
    EXPECT_NE(content.find("\"C:\\\xE6\x97\xA5.bmp\"\r\n"), std::string::npos);
}

TEST(ShowFileWriterTest, WhateverIsWrittenReadsBackTheSame) {
    const std::vector<std::vector<std::string>> shows{
        {"a.bmp"},
        {"\xC3\xA4.bmp", "plain"},
        {"\xE6\x97\xA5", "\xC3\xA4"},
        {"\xC3\x83\xC2\xA9"},              // its single bytes look like UTF-8
        {"\xC3\x83\xC2\xA9", "\xC3\xA4"},  // those of the first do, those of both together do not
        {"\xC3\xA4", "\xC3\x83\xC2\xA9"},
        {"\xC2\x81\xC2\x9D"},
        {"\xF0\x9F\x8C\x84", ""},
    };
    for (const auto& texts : shows) {
        std::vector<std::pair<std::string, std::string>> slides;
        for (const std::string& text : texts)
            slides.emplace_back(text, text);
        const std::string content = Written({}, slides);
        ShowFileReader reader = ReaderOf(content);
        for (int i = 0; i < 12; ++i)
            static_cast<void>(reader.Text());
        for (const std::string& text : texts) {
            EXPECT_EQ(reader.Text(), text);
            EXPECT_EQ(reader.Text(), text);
        }
        EXPECT_TRUE(reader.AtEnd());
    }
}

TEST(ShowFileWriterTest, AnUnfinishedFileReadsBackTheSameToo) {
    // All texts are known, but only the first slide gets written.
    const std::vector<std::string> texts{"\xC3\x83\xC2\xA9", "\xC3\xA4"};
    ShowFileEncoding encoding;
    for (const std::string& text : texts)
        encoding.Add(text);
    std::string content;
    ShowFileWriter writer(std::make_unique<StringWriter>(content), encoding);
    writer.WriteSlide(texts[0], "");
    writer.Close();
    EXPECT_EQ(ReaderOf(content).Text(), texts[0]);
}

}  // namespace
}  // namespace tavrix::test
