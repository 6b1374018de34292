#include "backends/shared/help/HelpDesk.h"

#include <gtest/gtest.h>

#include "backends/headless/HeadlessServices.h"

namespace tavrix::test {
namespace {

using headless::Service;

class HelpDeskTest : public ::testing::Test, protected HelpScreen {
  protected:
    static constexpr const char* Path = "C:\\Tavrix\\TAVRIX.HLP";
    static constexpr const char* Other = "C:\\Program\\TAVRIX.HLP";

    void Open(const HelpBook& book, unsigned context) override {
        opened.push_back(book.PageOrContents(context).title + " " + std::to_string(context));
    }
    void Close() override { ++closed; }

    void Put(const std::string& path, const std::string& title) {
        platform.disks.PutFile(path, "TAVRIX HELP 1\n@page 0 " + title + "\nx\n@page 410 Moved\ny\n");
    }
    void ExpectFailure(const std::string& path, const std::string& problem) {
        ASSERT_EQ(told.size(), 1U);
        EXPECT_EQ(told[0], "Unable to open the help file:\r\n\r\n" + path + "\r\n\r\n" + problem + "...");
        EXPECT_TRUE(opened.empty());
        told.clear();
    }

    headless::HeadlessServices platform;
    std::string otherPlace = Other;
    std::vector<std::string> told;
    std::vector<std::string> opened;
    int closed = 0;
    HelpDesk desk{platform.files, *this, [this] { return otherPlace; },
                  [this](const std::string& text) { told.push_back(text); }};
};

TEST_F(HelpDeskTest, OpensThePageOfAContextOrTheContents) {
    Put(Path, "Contents");
    desk.Show(Path, HelpCommand::Context, 410);
    desk.Show(Path, HelpCommand::Contents, 0);
    desk.Show(Path, HelpCommand::Context, 99);
    EXPECT_EQ(opened, (std::vector<std::string>{"Moved 410", "Contents 0", "Contents 99"}));
    EXPECT_TRUE(told.empty());
}

TEST_F(HelpDeskTest, TheFileIsReadOnceAndNotBeforeItIsNeeded) {
    Put(Path, "Contents");
    desk.Show(Path, HelpCommand::Quit, 0);
    EXPECT_EQ(platform.faults.Calls(Service::Files), 0);
    EXPECT_EQ(closed, 1);
    desk.Show(Path, HelpCommand::Contents, 0);
    const int calls = platform.faults.Calls(Service::Files);
    EXPECT_GT(calls, 0);
    desk.Show(Path, HelpCommand::Contents, 0);
    desk.Show(Path, HelpCommand::Quit, 0);
    desk.Show(Path, HelpCommand::Contents, 0);
    EXPECT_EQ(platform.faults.Calls(Service::Files), calls);
    EXPECT_EQ(opened.size(), 3U);
}

TEST_F(HelpDeskTest, AFileThatIsNotThereIsLookedForAtTheOtherPlace) {
    Put(Other, "Elsewhere");
    desk.Show(Path, HelpCommand::Contents, 0);
    EXPECT_EQ(opened, std::vector<std::string>{"Elsewhere 0"});
}

TEST_F(HelpDeskTest, TheFileThatWasNamedComesFirst) {
    Put(Path, "Here");
    Put(Other, "Elsewhere");
    desk.Show(Path, HelpCommand::Contents, 0);
    EXPECT_EQ(opened, std::vector<std::string>{"Here 0"});
}

TEST_F(HelpDeskTest, AMissingFileIsToldAndMayComeLater) {
    desk.Show(Path, HelpCommand::Context, 410);
    ExpectFailure(Path, "File not found");
    Put(Path, "Contents");
    desk.Show(Path, HelpCommand::Context, 410);
    EXPECT_EQ(opened, std::vector<std::string>{"Moved 410"});
}

TEST_F(HelpDeskTest, AFileOfAnotherKindIsTold) {
    for (const char* content : {"", "no help", "TAVRIX HELP 1\nno page"}) {
        platform.disks.PutFile(Path, content);
        desk.Show(Path, HelpCommand::Contents, 0);
        ExpectFailure(Path, "It is not a help file of this program");
    }
    platform.disks.PutFile(Path, "TAVRIX HELP 1\n@page 0 x\n" + std::string(5 * 1024 * 1024, 'x'));
    desk.Show(Path, HelpCommand::Contents, 0);
    ExpectFailure(Path, "It is not a help file of this program");
}

TEST_F(HelpDeskTest, EveryFailureOfReadingIsTold) {
    Put(Path, "Contents");
    for (const char* operation : {"Open", "Read"}) {
        platform.faults.Clear();
        platform.faults.FailAlways(Service::Files, operation, ErrorNumber::PermissionDenied);
        desk.Show(Path, HelpCommand::Contents, 0);
        ExpectFailure(Path, "Permission denied");
    }
}

TEST_F(HelpDeskTest, AnotherFileTakesTheWindowOver) {
    Put(Path, "First");
    Put("C:\\other.hlp", "Second");
    desk.Show(Path, HelpCommand::Contents, 0);
    const int before = closed;
    desk.Show("C:\\other.hlp", HelpCommand::Contents, 0);
    EXPECT_EQ(closed, before + 1);
    desk.Show("C:\\none.hlp", HelpCommand::Contents, 0);
    EXPECT_EQ(told.size(), 1U);
    EXPECT_EQ(closed, before + 1) << "the window that is open stays";
    EXPECT_EQ(opened, (std::vector<std::string>{"First 0", "Second 0"}));
}

}  // namespace
}  // namespace tavrix::test
