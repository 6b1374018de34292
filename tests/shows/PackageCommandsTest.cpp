#include "shows/package/DelPackageFrm.h"
#include "shows/package/PackageFrm.h"
#include "support/MainViewFixture.h"

namespace tavrix::test {
namespace {

class PackageCommandsTest : public MainViewFixture {
  protected:
    /// Whether an entry opens a window of this class.
    template <class Dialog>
    bool Opens(forms::Menu& entry, const std::string& name) {
        bool opened = false;
        toolkit.OnModal(name, [&] {
            opened = true;
            EXPECT_FALSE(module.Busy());
            app.Unload(*app.Loaded<Dialog>());
        });
        Choose(entry);
        return opened;
    }
};

TEST_F(PackageCommandsTest, TheMenuOpensBothWindows) {
    platform.disks.PutFile("C:\\Tavrix\\TAVRIX.EXE", "");
    Start();
    EXPECT_TRUE(Opens<PackageFrm>(View().menu.mnuPackage, "PackageFrm"));
    EXPECT_TRUE(Opens<DelPackageFrm>(View().menu.mnuDeletePackage, "DelPackageFrm"));
}

TEST_F(PackageCommandsTest, NoPackageIsOfferedWithoutTheProgramsFiles) {
    Start();
    EXPECT_FALSE(Opens<PackageFrm>(View().menu.mnuPackage, "PackageFrm"));
    EXPECT_TRUE(Opens<DelPackageFrm>(View().menu.mnuDeletePackage, "DelPackageFrm"));
}

TEST_F(PackageCommandsTest, NothingOpensBesideAnotherOperation) {
    platform.disks.PutFile("C:\\Tavrix\\TAVRIX.EXE", "");
    Start();
    const forms::BusyGuard busy(module.Screen());
    EXPECT_FALSE(Opens<PackageFrm>(View().menu.mnuPackage, "PackageFrm"));
    EXPECT_FALSE(Opens<DelPackageFrm>(View().menu.mnuDeletePackage, "DelPackageFrm"));
}

}  // namespace
}  // namespace tavrix::test
