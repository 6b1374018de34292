#include "setup/Package.h"

#include "SetupTest.h"
#include "support/ErrorOfCall.h"

namespace tavrix::setup {
namespace {

using Texts = std::vector<std::string>;

TEST(PathsIn, OnlyPathsToSomethingInTheFolderCount) {
    EXPECT_EQ(
        PathsIn(
            "a.bmp\r\ndeep/b.bmp\n\n\r\n.\n..\n./a\n../a\nb/../../c\nb/.\n/etc/passwd\nc d\n.hidden\na..b"),
        (Texts{"a.bmp", "deep/b.bmp", "c d", ".hidden", "a..b"}));
    EXPECT_EQ(PathsIn(""), Texts());
}

TEST_F(SetupTest, TheFilesOfAPackageAreThoseThatItNames) {
    EXPECT_EQ(FilesOf(Stick(), names),
              (Texts{"TAVRIX.EXE", "README.TXT", "SETUP.LST", "setup.ini", "tavrix.ini", "TAVRIX.LIB/libx.so",
                     "TAVRIX.LIB/qt=platforms=libq.so", "SLIDES/Größe.tvs", "SLIDES/a.bmp",
                     "SLIDES/deep/er/b.bmp"}));
    EXPECT_EQ(SizeOf(Stick(), Texts{"SLIDES/a.bmp", "README.TXT", "none"}), 11);
}

TEST_F(SetupTest, SlidesThatCannotBeListedAreAFailure) {
    std::filesystem::remove_all(folder.At("stick/SLIDES"));
    folder.Put("stick/SLIDES", "no folder");
    EXPECT_NE(ErrorOfCall([this] { static_cast<void>(FilesOf(Stick(), names)); }), 0);
}

TEST_F(SetupTest, NotesTellTheShow) {
    const PackageNotes notes = ReadNotes(Stick(), names);
    EXPECT_EQ(notes.show, "Größe.tvs");
    EXPECT_EQ(notes.name, "Trip");
    for (const char* show : {"", "deep/er/b.bmp", "none.tvs"}) {
        folder.Put("stick/setup.ini", std::string("[Tavrix Setup]\nSlideShowFile=") + show + "\n");
        EXPECT_EQ(ErrorOfCall([this] { static_cast<void>(ReadNotes(Stick(), names)); }), 53) << show;
    }
}

}  // namespace
}  // namespace tavrix::setup
