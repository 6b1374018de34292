#include "backends/linux/RecentDocuments.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace tavrix {
namespace {

const RecentDocument Photo{"file:///home/me/a&b.jpg", "image/jpeg", 1'000'000'000};

std::size_t Count(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

const std::string Others =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!-- <bookmark href=\"file:///home/me/a&amp;b.jpg\"> -->\n"
    "<xbel version=\"1.0\" xmlns:bookmark=\"b\" xmlns:mime='m'>\n"
    "  <bookmark href=\"file:///other\" "
    "added=\"2001-01-01T00:00:00Z\"><title><![CDATA[<bookmark>]]></title></bookmark>\n";

TEST(RecentDocuments, MakesAList) {
    const std::string list = AddRecentDocument("", Photo).value();
    EXPECT_TRUE(list.starts_with("<?xml"));
    EXPECT_EQ(Count(list, "<bookmark href=\"file:///home/me/a&amp;b.jpg\""), 1U);
    EXPECT_EQ(Count(list, "added=\"2001-09-09T01:46:40Z\""), 1U);
    EXPECT_EQ(Count(list, "<mime:mime-type type=\"image/jpeg\"/>"), 1U);
    EXPECT_EQ(Count(list, "name=\"Tavrix\""), 1U);
    // As the entry in the menus has it: a name that the command line refuses opens from the list, too.
    EXPECT_EQ(Count(list, "exec=\"&apos;tavrix --open %f&apos;\""), 1U);
    EXPECT_EQ(Count(list, "count=\"1\""), 1U);
}

TEST(RecentDocuments, KeepsAllElse) {
    const std::string list = AddRecentDocument(Others + "</xbel>\n", Photo).value();
    EXPECT_TRUE(list.starts_with(Others));
    EXPECT_TRUE(list.ends_with("</xbel>\n"));
    EXPECT_EQ(Count(list, "<bookmark href"), 3U);  // one of them in a comment
}

TEST(RecentDocuments, CountsAnEntryUp) {
    std::string list = AddRecentDocument(Others + "</xbel>\n", Photo).value();
    RecentDocument later = Photo;
    later.used += 60;
    list = AddRecentDocument(list, later).value();
    EXPECT_EQ(Count(list, "<bookmark href"), 3U);
    EXPECT_EQ(Count(list, "count=\"2\""), 1U);
    EXPECT_EQ(Count(list, "added=\"2001-09-09T01:46:40Z\""), 1U);
    EXPECT_EQ(Count(list, "modified=\"2001-09-09T01:47:40Z\""), 2U);
    EXPECT_EQ(Count(list, "visited=\"2001-09-09T01:47:40Z\""), 1U);
}

TEST(RecentDocuments, JoinsTheOtherApplicationsOfAnEntry) {
    const std::string before =
        Others +
        "  <bookmark visited='x' href='file:///home/me/a&amp;b.jpg'>\n    <title>Mine</title>\n"
        "    <info>\n      <metadata owner=\"http://freedesktop.org\">\n"
        "        <mime:mime-type type=\"image/jpeg\"/>\n        <bookmark:applications>\n"
        "          <bookmark:application name=\"Other &quot;x&quot;\" count=\"4\"/>\n"
        "        </bookmark:applications>\n      </metadata>\n    </info>\n  </bookmark>\n</xbel>\n";
    const std::string list = AddRecentDocument(before, Photo).value();
    EXPECT_EQ(Count(list, "<bookmark:application "), 2U);
    EXPECT_EQ(Count(list, "count=\"4\""), 1U);
    EXPECT_EQ(Count(list, "<title>Mine</title>"), 1U);
    EXPECT_EQ(Count(list, "<metadata"), 1U);
    EXPECT_EQ(Count(list, "visited='2001-09-09T01:46:40Z'"), 1U);
}

TEST(RecentDocuments, CompletesBareEntries) {
    const std::string href = "<bookmark href=\"file:///home/me/a&amp;b.jpg\"";
    for (const std::string& entry :
         {href + "/>", href + "></bookmark>", href + "><info></info></bookmark>",
          href + "><info><metadata owner=\"http://freedesktop.org\"></metadata></info></bookmark>",
          href + "><info><metadata owner=\"http://elsewhere\"></metadata></info></bookmark>",
          href + "><info><metadata owner=\"http://freedesktop.org\"/></info></bookmark>"}) {
        const std::string list = AddRecentDocument(Others + entry + "</xbel>", Photo).value();
        EXPECT_EQ(Count(list, "name=\"Tavrix\""), 1U) << list;
        // A second time finds the first.
        const std::string again = AddRecentDocument(list, Photo).value();
        EXPECT_EQ(Count(again, "name=\"Tavrix\""), 1U) << again;
        EXPECT_EQ(Count(again, "count=\"2\""), 1U) << again;
    }
}

TEST(RecentDocuments, LeavesAloneWhatIsNoList) {
    for (const std::string text :
         {"text", "<html></html>", "<xbel>", "<xbel><bookmark></xbel>", "<xbel></xbel><x>", "<xbel/>",
          "<xbel a=\"></xbel>", "<!-- <xbel></xbel>"}) {
        EXPECT_FALSE(AddRecentDocument(text, Photo)) << text;
    }
}

TEST(RecentDocuments, DeclaresItsNamesWhereTheListDoesNot) {
    const std::string list = AddRecentDocument("<xbel></xbel>", Photo).value();
    EXPECT_GE(Count(list, "xmlns:bookmark="), 1U);
    EXPECT_GE(Count(list, "xmlns:mime="), 1U);
}

TEST(RecentDocuments, DamagedListsAreRefusedOrKeptWhole) {
    const std::string whole = AddRecentDocument(Others + "</xbel>\n", Photo).value();
    RecentDocument other = Photo;
    other.address = "file:///elsewhere.jpg";
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::string cut = whole.substr(0, length);
        if (const auto list = AddRecentDocument(cut, other); list && length > 0) {
            EXPECT_EQ(length, whole.size() - 1);  // only the last line end is missing
        }
    }
    std::mt19937 random(1);
    int taken = 0;
    for (int i = 0; i < 20'000; ++i) {
        std::string damaged = whole;
        for (unsigned long k = 0; k < 1 + random() % 3; ++k) {
            damaged[random() % damaged.size()] = "<>/\"'= ax&!-"[random() % 12];
        }
        const auto list = AddRecentDocument(damaged, Photo);
        if (!list) continue;
        ++taken;
        ASSERT_TRUE(AddRecentDocument(*list, Photo)) << damaged;
    }
    EXPECT_GT(taken, 0);
}

TEST(RecentDocuments, KnowsTypesByEnding) {
    EXPECT_EQ(MimeTypeOf("C:\\A.JPG"), "image/jpeg");
    EXPECT_EQ(MimeTypeOf("a.bmp"), "image/bmp");
    EXPECT_EQ(MimeTypeOf("a.jif"), "image/jpeg");
    EXPECT_EQ(MimeTypeOf("a.rle"), "image/rle");
    EXPECT_EQ(MimeTypeOf("tour.tvs"), "application/x-tavrix-show");
    EXPECT_EQ(MimeTypeOf("a"), "application/octet-stream");
}

TEST(RecentDocuments, AClearedListHoldsNothingAndKeepsItsRoot) {
    const std::string list = AddRecentDocument(Others + "</xbel>\n", Photo).value();
    const std::string cleared = ClearedRecentDocuments(list).value();
    EXPECT_EQ(Count(cleared, "href="), 1U);  // in a comment
    EXPECT_EQ(Count(cleared, "xmlns:bookmark="), Count(list, "xmlns:bookmark="));
    EXPECT_TRUE(cleared.ends_with("</xbel>\n"));
    EXPECT_EQ(ClearedRecentDocuments(cleared), cleared);
    EXPECT_TRUE(AddRecentDocument(cleared, Photo));
    EXPECT_EQ(Count(ClearedRecentDocuments("").value(), "<xbel"), 1U);
}

TEST(RecentDocuments, WhatIsNoWholeListIsNotCleared) {
    const std::string list = AddRecentDocument(Others + "</xbel>", Photo).value();
    for (std::size_t length = 1; length < list.size(); ++length)
        EXPECT_FALSE(ClearedRecentDocuments(list.substr(0, length))) << length;
    EXPECT_FALSE(ClearedRecentDocuments("<html></html>"));
    EXPECT_FALSE(ClearedRecentDocuments("<xbel></xbel><xbel></xbel>"));
}

}  // namespace
}  // namespace tavrix
