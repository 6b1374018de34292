#include "viewer/ImageInformation.h"

#include <optional>
#include <string>

#include "ViewerTest.h"

namespace tavrix::test {
namespace {

using headless::Service;

class ImageInformationTest : public ViewerTest {
  protected:
    static constexpr DateTime Moment{2026, 3, 9, 14, 5, 7};

    /// What the box says, but for the fields that a test is about.
    struct Fields {
        std::string path = ImagePath;
        std::string width = "640";
        std::string height = "480";
        std::string size = "1,234,567 bytes";
        std::string date = "3/9/2026 2:05:07 PM";
        std::string type = "JPEG (.JPG, .JIF, .JPE or .JPEG)";
    };
    static headless::ExpectedBox BoxOf(const Fields& fields) {
        return {.text = "Current Image File:\r\n\r\n" + fields.path +
                        "\r\n_____________________\r\n\r\nImage Size:  (pixels)\r\n\r\nWidth = " +
                        fields.width + "\r\nHeight = " + fields.height +
                        "\r\n_____________________\r\n\r\nFile size = " + fields.size +
                        "\r\nFile date and time = " + fields.date + "\r\nFile type = " + fields.type,
                .title = "Tavrix - [Image Information]",
                .help = true,
                .helpContext = 140};
    }
    void PutContent(const std::string& path, const std::string& content) {
        platform.disks.PutFile(path, content, Moment);
    }
    /// Shows a picture of 640 by 480 pixels, and gives its file this content.
    void Open(const std::string& path, const std::string& content) {
        PutPicture(path, 640, 480);
        ASSERT_TRUE(Start(path));
        PutContent(path, content);
    }
    void OpenLarge(const std::string& path = ImagePath) { Open(path, std::string(1234567, 'x')); }
    bool ChooseIt() { return Choose(View().menu.mnuImageSize); }
};

TEST_F(ImageInformationTest, TheBoxTellsPathSizesDateAndType) {
    OpenLarge();
    Expect(BoxOf({}));
    EXPECT_FALSE(ChooseIt());
    ExpectIdle();
}

TEST_F(ImageInformationTest, PixelsDoNotDependOnTheScale) {
    toolkit.screen.twipsPerPixelX = toolkit.screen.twipsPerPixelY = 7.5;
    OpenLarge();
    Expect(BoxOf({}));
    EXPECT_FALSE(ChooseIt());
}

TEST_F(ImageInformationTest, TheLocaleHasItsSay) {
    platform.system.numbers = {.thousands = ".", .decimal = ","};
    platform.system.shortDateTime = [](const DateTime& moment) {
        EXPECT_EQ(moment, Moment);
        return std::string("09.03.26 14:05");
    };
    OpenLarge();
    Expect(BoxOf({.size = "1.234.567 bytes", .date = "09.03.26 14:05"}));
    EXPECT_FALSE(ChooseIt());
}

TEST_F(ImageInformationTest, AnEmptyFileHasZeroBytes) {
    OpenLarge();
    PutContent(ImagePath, "");
    Expect(BoxOf({.size = "0 bytes"}));
    EXPECT_FALSE(ChooseIt());
}

TEST_F(ImageInformationTest, TheTypeGoesByTheEnding) {
    ASSERT_TRUE(Start());
    const std::pair<const char*, const char*> types[] = {
        {"x.jpg", "JPEG (.JPG, .JIF, .JPE or .JPEG)"},
        {"x.JIF", "JPEG (.JPG, .JIF, .JPE or .JPEG)"},
        {"x.jpe", "JPEG (.JPG, .JIF, .JPE or .JPEG)"},
        {"x.jpeg", "JPEG (.JPG, .JIF, .JPE or .JPEG)"},
        {"x.WMF", "Windows Meta File (.WMF)"},
        {"x.emf", "Enhanced Metafile (.EMF)"},
        {"x.ico", "Windows Icon (.ICO)"},
        {"x.bmp", "Windows Bitmap (.BMP)"},
        {"x.Dib", "Device Independent Bitmap (.DIB)"},
        {"x.cur", "Mouse Cursor (.CUR)"},
        {"x.rle", "RLE4 or RLE8 Compressed Bitmap (.RLE)"},
        {"bmp", "RLE4 or RLE8 Compressed Bitmap (.RLE)"},
    };
    for (const auto& [name, type] : types) {
        const std::string path = std::string("C:\\p\\") + name;
        PutPicture(path, 640, 480);
        View().Deliver(forms::DropEvent{{path}});
        PutContent(path, "12345");
        Expect(BoxOf({.path = path, .size = "5 bytes", .type = type}));
        EXPECT_FALSE(ChooseIt());
    }
}

TEST_F(ImageInformationTest, AGifTellsItsSignatureAsItIsInTheFile) {
    const std::string path = "C:\\p\\x.Gif";
    Open(path, "GIF87a and more");
    Fields fields{.path = path, .size = "15 bytes", .type = "Graphics Interchange Format (GIF87a)"};
    Expect(BoxOf(fields));
    EXPECT_FALSE(ChooseIt());
    const std::pair<std::string, std::string> signatures[] = {
        {"gif89A", "gif89A"},
        {"GIF", "GIF"},
        {"", ""},
        {std::string("BM\0\r\n\x7F", 6), "BM????"},
        {"\xE4\xF6 GIF", "\u00E4\u00F6 GIF"},
    };
    for (const auto& [content, shown] : signatures) {
        PutContent(path, content);
        fields.size = std::to_string(content.size()) + " bytes";
        fields.type = "Graphics Interchange Format (" + shown + ")";
        Expect(BoxOf(fields));
        EXPECT_FALSE(ChooseIt());
    }
}

TEST_F(ImageInformationTest, AFileThatHasGoneLeavesWhatIsKnownWithoutIt) {
    OpenLarge();
    platform.disks.Remove(ImagePath);
    Expect(BoxOf({.size = "Unknown...", .date = "Unknown..."}));
    EXPECT_FALSE(ChooseIt());
}

TEST_F(ImageInformationTest, EachFieldIsUnknownByItself) {
    const std::string path = "C:\\p\\x.gif";
    Open(path, "GIF89a");
    const Fields known{.path = path, .size = "6 bytes", .type = "Graphics Interchange Format (GIF89a)"};
    for (const char* operation : {"Open", "Read"}) {
        platform.faults.Clear();
        platform.faults.FailAlways(Service::Files, operation, ErrorNumber::DiskNotReady);
        Fields fields = known;
        fields.type = "Unknown...";
        Expect(BoxOf(fields));
        EXPECT_FALSE(ChooseIt());
    }
    platform.faults.Clear();
    platform.faults.FailAlways(Service::Files, "Info", ErrorNumber::DiskNotReady);
    Fields fields = known;
    fields.size = fields.date = "Unknown...";
    Expect(BoxOf(fields));
    EXPECT_FALSE(ChooseIt());

    platform.faults.Clear();
    platform.faults.FailAlways(Service::System, "ShortDateTime", ErrorNumber::OutOfMemory);
    fields = known;
    fields.date = "Unknown...";
    Expect(BoxOf(fields));
    EXPECT_FALSE(ChooseIt());
}

TEST_F(ImageInformationTest, WithoutAnImageThereIsNothingToTell) {
    ASSERT_TRUE(Start());
    Expect({.text = "An image has not been opened yet, unable to view image information..."});
    mnuImageSize_Click(View());
}

TEST_F(ImageInformationTest, ABusyProgramSaysNothing) {
    OpenLarge();
    const forms::BusyGuard busy(module.Screen());
    EXPECT_FALSE(ChooseIt());
    EXPECT_EQ(toolkit.BoxesShown(), 0);
}

TEST_F(ImageInformationTest, ATopmostWindowMakesRoomForTheBox) {
    Setting("TopMostWindow", "True");
    OpenLarge();
    headless::ExpectedBox box = BoxOf({});
    bool topmost = true;
    box.whileOpen = [&] { topmost = Window().topmost; };
    Expect(std::move(box));
    EXPECT_FALSE(ChooseIt());
    EXPECT_FALSE(topmost);
    EXPECT_TRUE(Window().topmost);
}

// Help

TEST_F(ImageInformationTest, HelpContentsAreAskedForByTheMenu) {
    ASSERT_TRUE(Start());
    EXPECT_FALSE(Choose(View().menu.mnuHelpContents));
    EXPECT_EQ(platform.help.calls.back(),
              (headless::RecordingHelp::Call{"C:\\Tavrix\\TAVRIX.HLP", HelpCommand::Contents, 0}));
    platform.faults.FailAlways(Service::Help, "Show", ErrorNumber::FileNotFound);
    EXPECT_NO_THROW(Choose(View().menu.mnuHelpContents));
}

TEST_F(ImageInformationTest, F1AsksForThePageOfTheMainView) {
    ASSERT_TRUE(Start());
    std::optional<unsigned> asked;
    app.OnHelpKey = [&](unsigned context) { asked = context; };
    EXPECT_FALSE(Press(forms::KeyCode::F1));
    EXPECT_EQ(asked, 100U);
}

}  // namespace
}  // namespace tavrix::test
