#include "shows/EditorTest.h"

namespace tavrix::test {
namespace {

class SlideLoadInformationTest : public EditorTest {
  protected:
    static constexpr const char* Rule = "\r\n_____________________\r\n\r\n";
    static constexpr const char* ShowTitle = "Tavrix - [Slide Show Information]";
    static constexpr const char* ImageTitle = "Tavrix - [Image Information]";

    void PutFile(const std::string& path, std::size_t length) {
        platform.disks.PutFile(path, std::string(length, 'x'), DateTime{2001, 12, 24, 18, 30, 5});
    }
    static std::string Facts(const std::string& name, const std::string& size) {
        return name + " = " + size + " bytes\r\nFile date and time = 12/24/2001 6:30:05 PM";
    }
    /// What the box says about one slide.
    void ExpectImage(const std::string& path, const std::string& facts, const std::string& type) {
        ExpectTold("Complete path to image file:\r\n\r\n" + path + Rule + facts + "\r\nFile type = " + type,
                   ImageTitle);
    }
};

TEST_F(SlideLoadInformationTest, AShowThatWasNeverSaved) {
    ExpectTold(std::string("Untitled.tvs") + Rule +
                   "Slide show file size = (File has not been saved yet.)\r\n"
                   "File date and time = (No file date and time.)" +
                   Rule + "Sound file = (Sound file has not been specified.)" + Rule +
                   "Zero slides (images) total...\r\nTotal size of slide show = 0 bytes",
               ShowTitle);
    Run(Editor().Menu2.mnuSlideShowInfo);
}

TEST_F(SlideLoadInformationTest, ASavedShowWithItsSoundAndItsSlides) {
    PutFile("C:\\Shows\\s.tvs", 1234);
    PutFile("C:\\Shows\\m.wav", 56789);
    PutFile("C:\\Shows\\x.bmp", 2000);
    PutFile("C:\\Pictures\\y.bmp", 345);
    for (int i = 0; i < 3; ++i)
        module.show.SlideFiles.Set(
            i, Texts{"x.bmp", "C:\\Pictures\\y.bmp", "gone.bmp"}[static_cast<std::size_t>(i)]);
    Editor().ShowLoaded("C:\\Shows\\s.tvs");
    module.config.SoundMode = 1;
    module.config.SoundFile = "m.wav";
    const std::string head = "C:\\Shows\\s.tvs" + (Rule + Facts("Slide show file size", "1,234")) + Rule;
    const std::string tail =
        std::string(Rule) + "3 slides (images) total...\r\nTotal size of slide show = 2,345 bytes";
    ExpectTold(
        head + "Sound file = m.wav\r\nSound file size = 56,789 bytes" + tail + "\r\n(One slide is missing.)",
        ShowTitle);
    Run(Editor().Menu2.mnuSlideShowInfo);

    platform.disks.Remove("C:\\Shows\\m.wav");
    platform.disks.PutFolder("C:\\Shows\\no file.bmp");
    module.show.SlideFiles.Set(3, "no file.bmp");
    Editor().ShowLoaded("C:\\Shows\\s.tvs");
    ExpectTold(
        head + "Sound file = m.wav\r\nSound file size = (Size of sound file is unknown.)" + Rule +
            "4 slides (images) total...\r\nTotal size of slide show = 2,345 bytes\r\n(2 slides are missing.)",
        ShowTitle);
    Run(Editor().Menu2.mnuSlideShowInfo);
    EXPECT_FALSE(module.Busy());
}

TEST_F(SlideLoadInformationTest, AFileThatHasGoneAndCdAudio) {
    PutSlides("", "C:\\Gone\\s.tvs");
    module.config.SoundMode = 2;
    module.config.SoundFile = "m.wav";
    ExpectTold(std::string("C:\\Gone\\s.tvs") + Rule +
                   "Slide show file size = (File size is unknown.)\r\n"
                   "File date and time = (Unable to get file date and time.)" +
                   Rule + "Sound file = (CD Audio has been specified.)" + Rule +
                   "Zero slides (images) total...\r\nTotal size of slide show = 0 bytes",
               ShowTitle);
    Run(Editor().Menu2.mnuSlideShowInfo);
}

TEST_F(SlideLoadInformationTest, TheSourceFolder) {
    PutFile("C:\\Other\\x.bmp", 1000);
    PutFile("C:\\Other\\y.jpg", 234);
    PutFile("C:\\Other\\z.txt", 5000);
    Editor().Lists.GoTo("C:\\Other");
    ExpectTold(std::string("Current source file folder:\r\n\r\nC:\\Other\\") + Rule +
                   "Number of valid files = 2\r\nTotal file size = 1,234 bytes",
               "Tavrix - [Source Folder Information]");
    Run(Editor().Menu1.mnuSourceInfo);
}

TEST_F(SlideLoadInformationTest, EachTypeOfImageIsNamed) {
    const std::vector<std::pair<std::string, std::string>> types{
        {"a.jpg", "JPEG (.JPG, .JIF, .JPE or .JPEG)"},
        {"a.jif", "JPEG (.JPG, .JIF, .JPE or .JPEG)"},
        {"a.JPE", "JPEG (.JPG, .JIF, .JPE or .JPEG)"},
        {"a.jpeg", "JPEG (.JPG, .JIF, .JPE or .JPEG)"},
        {"a.wmf", "Windows Meta File (.WMF)"},
        {"a.emf", "Enhanced Metafile (.EMF)"},
        {"a.ico", "Windows Icon (.ICO)"},
        {"a.bmp", "Windows Bitmap (.BMP)"},
        {"a.dib", "Device Independent Bitmap (.DIB)"},
        {"a.cur", "Mouse Cursor (.CUR)"},
        {"a.rle", "RLE4 or RLE8 Compressed Bitmap (.RLE)"},
        {"a.xyz", "Unknown"}};
    for (const auto& [name, type] : types) {
        PutFile("C:\\Other\\" + name, 1234);
        module.show.SlideFiles.Set(0, name);
        Editor().ShowLoaded("C:\\Other\\s.tvs");
        Editor().ListView.ListIndex = 0;
        ExpectImage("C:\\Other\\" + name, Facts("File size", "1,234"), type);
        Run(Editor().Menu2.mnuShowImagePath);
    }
}

TEST_F(SlideLoadInformationTest, AGifIsNamedWithItsVersion) {
    platform.disks.PutFile("C:\\Other\\a.gif", "GIF87a and more", DateTime{2001, 12, 24, 18, 30, 5});
    Editor().Lists.GoTo("C:\\Other");
    SelectSources({0});
    ExpectImage("C:\\Other\\a.gif", Facts("File size", "15"), "Graphics Interchange Format (GIF87a)");
    Run(Editor().Menu1.mnuShowFileInfo);
    platform.disks.Remove("C:\\Other\\a.gif");
    ExpectImage(
        "C:\\Other\\a.gif",
        "File size = (File size is unknown.)\r\nFile date and time = (Unable to get file date and time.)",
        "Unknown");
    Run(Editor().Menu1.mnuShowFileInfo);
}

TEST_F(SlideLoadInformationTest, WithoutASelectedImageThatIsTold) {
    ExpectTold("An image has not been selected, unable to view image information...", ImageTitle);
    Run(Editor().Menu1.mnuShowFileInfo);
    PutSlides("ab");
    SelectSlides({0});
    ExpectTold("An image has not been selected, unable to view image information...", ImageTitle);
    Run(Editor().Menu2.mnuShowImagePath);
}

}  // namespace
}  // namespace tavrix::test
