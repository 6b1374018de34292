// What each desktop is told of a wallpaper, and what it tells.

#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QGuiApplication>
#include <QScreen>

#include "desktop/DesktopBus.h"
#include "support/ErrorOfCall.h"

namespace tavrix {
namespace {

using Calls = std::vector<std::string>;

constexpr const char* Portal = "org.freedesktop.portal.Desktop";

FakeServices::Answer Saying(const QVariantList& arguments) {
    return [arguments](const QDBusMessage&, const QDBusConnection&) { return arguments; };
}

class PlasmaTest : public DesktopBusTest {
  protected:
    static constexpr const char* Service = "org.kde.plasmashell";
    static constexpr const char* Evaluates = "/PlasmaShell org.kde.PlasmaShell.evaluateScript [";

    void Prints(const QString& text) { services->Offer(Service, {{"evaluateScript", Saying({text})}}); }
    static std::string Showing(int fill, const std::string& address) {
        return std::string(Evaluates) +
               "desktops().forEach(function (d) {"
               " d.wallpaperPlugin = 'org.kde.image';"
               " d.currentConfigGroup = ['Wallpaper', 'org.kde.image', 'General'];"
               " d.writeConfig('FillMode', " +
               std::to_string(fill) +
               ");"
               " d.writeConfig('Image', '');"
               " d.writeConfig('Image', \"" +
               address + "\"); });]";
    }
};

TEST_F(PlasmaTest, IsToldByAScript) {
    Prints("");
    UseDesktop("KDE");
    const std::string file = Put("a \"b\" %1 it's.bmp", "x");
    const std::string address = "file://" + folder.path().toStdString() + "/a%20%22b%22%20%251%20it%27s.bmp";
    Tile(true);
    desktop->SetWallpaper("C:" + file);
    EXPECT_EQ(services->TakeCalls(), Calls{Showing(3, address)});
    EXPECT_EQ(Stored(), "C:" + file);
    Tile(false);
    desktop->SetWallpaper("C:" + file);
    EXPECT_EQ(services->TakeCalls(), Calls{Showing(6, address)});
    desktop->SetWallpaper("");
    EXPECT_EQ(services->TakeCalls(),
              Calls{std::string(Evaluates) +
                    "desktops().forEach(function (d) { d.wallpaperPlugin = 'org.kde.color'; });]"});
    EXPECT_EQ(Stored(), "");
}

TEST_F(PlasmaTest, TellsWhatItShows) {
    Prints("file:///srv/a%20b.png\n");
    UseDesktop("KDE");
    EXPECT_EQ(Told(), "C:/srv/a b.png");
    EXPECT_EQ(services->TakeCalls().size(), 1U);
}

TEST_F(PlasmaTest, APathIsAsGoodAsAnAddress) {
    Prints("/usr/share/wallpapers/x.jpg");
    UseDesktop("kde");
    EXPECT_EQ(Told(), "C:/usr/share/wallpapers/x.jpg");
}

TEST_F(PlasmaTest, NoPictureIsNone) {
    Prints("\n");
    UseDesktop("KDE");
    machine.registry.Put("Control Panel\\desktop", "Wallpaper", {1, "C:\\old.bmp"});
    EXPECT_EQ(Told(), "");
}

class XfceTest : public DesktopBusTest {
  protected:
    static constexpr const char* Service = "org.xfce.Xfconf";
    static constexpr const char* Asks =
        "/org/xfce/Xfconf org.xfce.Xfconf.GetAllProperties [xfce4-desktop] [/backdrop]";

    void Has(const QVariantMap& properties) {
        services->Offer(Service, {{"GetAllProperties", Saying({properties})}, {"SetProperty", Saying({})}});
        UseDesktop("XFCE");
    }
    static std::string Sets(const std::string& property, const std::string& value) {
        return "/org/xfce/Xfconf org.xfce.Xfconf.SetProperty [xfce4-desktop] [" + property + "] [" + value +
               "]";
    }
};

TEST_F(XfceTest, EachWorkspaceOfEachDisplayIsTold) {
    const std::string first = "/backdrop/screen0/monitorHDMI-1/workspace0/";
    const std::string second = "/backdrop/screen0/monitoreDP-1/workspace3/";
    Has({{QString::fromStdString(first + "last-image"), "/old.png"},
         {QString::fromStdString(first + "image-style"), 5},
         {QString::fromStdString(second + "last-image"), "/older.png"},
         {"/backdrop/single-workspace-mode", true}});
    const std::string file = Put("a b.bmp", "x");
    Tile(true);
    desktop->SetWallpaper("C:" + file);
    EXPECT_EQ(services->TakeCalls(),
              (Calls{Asks, Sets(first + "image-style", "2"), Sets(first + "last-image", ""),
                     Sets(first + "last-image", file), Sets(second + "image-style", "2"),
                     Sets(second + "last-image", ""), Sets(second + "last-image", file)}));
    Tile(false);
    desktop->SetWallpaper("C:" + file);
    EXPECT_EQ(services->TakeCalls()[1], Sets(first + "image-style", "1"));
    desktop->SetWallpaper("");
    EXPECT_EQ(services->TakeCalls(),
              (Calls{Asks, Sets(first + "image-style", "0"), Sets(first + "last-image", ""),
                     Sets(second + "image-style", "0"), Sets(second + "last-image", "")}));
}

TEST_F(XfceTest, ADesktopWithoutAnySettingsGetsThemForItsDisplays) {
    Has({});
    const std::string file = Put("x.bmp", "x");
    desktop->SetWallpaper("C:" + file);
    Calls expected{Asks};
    for (const QScreen* display : QGuiApplication::screens()) {
        const std::string place =
            "/backdrop/screen0/monitor" + display->name().toStdString() + "/workspace0/";
        for (const std::string& call : {Sets(place + "image-style", "1"), Sets(place + "last-image", ""),
                                        Sets(place + "last-image", file)})
            expected.push_back(call);
    }
    ASSERT_GT(expected.size(), 1U);
    EXPECT_EQ(services->TakeCalls(), expected);
}

TEST_F(XfceTest, TellsTheFirstPictureThatIsShown) {
    Has({{"/backdrop/screen0/monitor0/workspace0/last-image", "/hidden.png"},
         {"/backdrop/screen0/monitor0/workspace0/image-style", 0},
         {"/backdrop/screen0/monitor1/workspace0/last-image", ""},
         {"/backdrop/screen0/monitor2/workspace0/last-image", "/srv/a b.png"},
         {"/backdrop/screen0/monitor2/workspace0/image-style", 3}});
    EXPECT_EQ(Told(), "C:/srv/a b.png");
}

TEST_F(XfceTest, NoPictureIsNone) {
    Has({{"/backdrop/screen0/monitor0/workspace0/last-image", "/hidden.png"},
         {"/backdrop/screen0/monitor0/workspace0/image-style", 0}});
    EXPECT_EQ(Told(), "");
}

class PortalTest : public DesktopBusTest {
  protected:
    static constexpr const char* Sets =
        "/org/freedesktop/portal/desktop org.freedesktop.portal.Wallpaper.SetWallpaperFile [] [] "
        "[set-on=background show-preview=false]";

    void Takes() {
        services->Offer(Portal,
                        {{"SetWallpaperFile", [this](const QDBusMessage& call, const QDBusConnection&) {
                              QFile file;
                              const auto passed = call.arguments().at(1).value<QDBusUnixFileDescriptor>();
                              if (file.open(passed.fileDescriptor(), QIODevice::ReadOnly))
                                  content = file.readAll().toStdString();
                              return QVariantList{QVariant::fromValue(QDBusObjectPath("/request/1"))};
                          }}});
    }
    std::string content;  ///< of the file that was passed
};

TEST_F(PortalTest, GetsThePictureItself) {
    Takes();
    UseDesktop("sway");
    const std::string file = Put("x.bmp", "the picture");
    desktop->SetWallpaper("C:" + file);
    EXPECT_EQ(services->TakeCalls(), Calls{Sets});
    EXPECT_EQ(content, "the picture");
    EXPECT_EQ(Told(), "C:" + file);  // what was stored: the portal tells nothing
}

TEST_F(PortalTest, CannotSwitchAWallpaperOff) {
    Takes();
    UseDesktop("sway");
    machine.registry.Put("Control Panel\\desktop", "Wallpaper", {1, "C:\\old.bmp"});
    EXPECT_EQ(ErrorOfCall([&] { desktop->SetWallpaper(""); }), 68);
    EXPECT_EQ(services->TakeCalls(), Calls{});
    EXPECT_EQ(Stored(), "C:\\old.bmp");
}

TEST_F(PortalTest, IsTheLastResortOfEachDesktop) {
    Takes();
    const std::string file = Put("x.bmp", "the picture");
    for (const char* name : {"KDE", "XFCE"}) {
        content.clear();
        UseDesktop(name);
        desktop->SetWallpaper("C:" + file);
        EXPECT_EQ(content, "the picture") << name;
    }
}

TEST_F(PortalTest, WithoutAnyWayItIsAFailureAndNothingIsStored) {
    const std::string file = Put("x.bmp", "x");
    for (const char* name : {"", "KDE", "XFCE", "sway"}) {
        UseDesktop(name);
        EXPECT_EQ(ErrorOfCall([&] { desktop->SetWallpaper("C:" + file); }), 68) << name;
        EXPECT_EQ(ErrorOfCall([&] { desktop->SetWallpaper(""); }), 68) << name;
    }
    EXPECT_EQ(Stored(), "(no value)");
    EXPECT_EQ(Told(), "(no value)");
}

TEST_F(PortalTest, AFileThatIsNotThere) {
    Takes();
    EXPECT_EQ(ErrorOfCall([&] { desktop->SetWallpaper("C:/nowhere/x.bmp"); }), 53);
    EXPECT_EQ(services->TakeCalls(), Calls{});
}

TEST_F(PortalTest, OtherValuesOfTheRegistryAreTheStoredOnes) {
    registry->Write("Control Panel\\desktop", "TileWallpaper", "1");
    EXPECT_EQ(registry->Read("Control Panel\\desktop", "TileWallpaper")->text, "1");
    EXPECT_EQ(machine.registry.Read("Control Panel\\desktop", "TileWallpaper")->text, "1");
    EXPECT_FALSE(registry->Read("Control Panel\\desktop", "ScreenSaveUsePassword"));
}

class GnomeTest : public DesktopBusTest {
  protected:
    void SetUp() override {
        DesktopBusTest::SetUp();
        qputenv("GSETTINGS_BACKEND", "keyfile");
        qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
        UseDesktop("GNOME-Classic:GNOME");
    }
    void TearDown() override {
        qputenv("PATH", path_);
        qunsetenv("GSETTINGS_BACKEND");
        qunsetenv("XDG_CONFIG_HOME");
    }
    std::string Settings() const {
        QFile file(folder.filePath("glib-2.0/settings/keyfile"));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "";
    }

  private:
    const QByteArray path_ = qgetenv("PATH");
};

TEST_F(GnomeTest, NamesWithStrangeCharactersGoBothWays) {
    const std::string file = Put("a \"b\" \\ it's \xC3\xA4.bmp", "x");
    Tile(true);
    desktop->SetWallpaper("C:" + file);
    const std::string address =
        "'file://" + folder.path().toStdString() + "/a%20%22b%22%20%5C%20it%27s%20%C3%A4.bmp'";
    for (const std::string& line : {"picture-uri=" + address, "picture-uri-dark=" + address,
                                    std::string("picture-options='wallpaper'")})
        EXPECT_NE(Settings().find(line + "\n"), std::string::npos) << Settings();
    EXPECT_EQ(Told(), "C:" + file);
}

TEST_F(GnomeTest, TellsThePictureOfTheAppearanceInUse) {
    QDir().mkpath(folder.filePath("glib-2.0/settings"));
    Put("glib-2.0/settings/keyfile",
        "[org/gnome/desktop/background]\npicture-uri='file:///light.png'\npicture-uri-dark='file:///"
        "dark.png'\n");
    EXPECT_EQ(Told(), "C:/light.png");
    Put("glib-2.0/settings/keyfile",
        "[org/gnome/desktop/background]\npicture-uri='file:///light.png'\npicture-uri-dark='file:///"
        "dark.png'\n"
        "[org/gnome/desktop/interface]\ncolor-scheme='prefer-dark'\n");
    EXPECT_EQ(Told(), "C:/dark.png");
    Put("glib-2.0/settings/keyfile",
        "[org/gnome/desktop/background]\npicture-uri='file:///light.png'\npicture-options='none'\n");
    EXPECT_EQ(Told(), "");
    Put("glib-2.0/settings/keyfile", "[org/gnome/desktop/background]\npicture-uri='https://host/x.png'\n");
    EXPECT_EQ(Told(), "");
}

TEST_F(GnomeTest, WithoutItsToolItIsAFailure) {
    qputenv("PATH", "/nowhere");
    const std::string file = Put("x.bmp", "x");
    EXPECT_EQ(ErrorOfCall([&] { desktop->SetWallpaper("C:" + file); }), 68);
    EXPECT_EQ(Told(), "(no value)");
}

/// Desktops that are told by tools of theirs: each notes what it was asked, and answers as the test says.
class ToolTest : public DesktopBusTest {
  protected:
    void SetUp() override {
        DesktopBusTest::SetUp();
        QDir().mkpath(folder.filePath("tools"));
        qputenv("PATH", folder.filePath("tools").toUtf8() + ":/usr/bin:/bin");
        qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
    }
    void TearDown() override {
        qputenv("PATH", path_);
        qunsetenv("XDG_CONFIG_HOME");
    }
    /// `answers`: lines of a shell's case statement over the arguments.
    void Tool(const QString& name, const QByteArray& answers = {}) const {
        const std::string file =
            Put("tools/" + name, "#!/bin/sh\nfor a in \"$@\"; do printf '[%s]' \"$a\"; done >> '" +
                                     folder.filePath("calls").toUtf8() + "'\necho >> '" +
                                     folder.filePath("calls").toUtf8() + "'\ncase \"$*\" in\n" + answers +
                                     "esac\n");
        QFile::setPermissions(QString::fromStdString(file),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    Calls TakeToolCalls() const {
        QFile file(folder.filePath("calls"));
        Calls calls;
        if (!file.open(QIODevice::ReadOnly)) return calls;
        while (!file.atEnd())
            calls.push_back(file.readLine().trimmed().toStdString());
        file.remove();
        return calls;
    }

  private:
    const QByteArray path_ = qgetenv("PATH");
};

TEST_F(ToolTest, CinnamonHasSettingsOfItsOwn) {
    Tool("gsettings",
         "'get org.cinnamon.desktop.background picture-uri') echo \"'file:///srv/a%20b.png'\";;\n"
         "'get org.cinnamon.desktop.background picture-options') echo \"'zoom'\";;\n");
    UseDesktop("X-Cinnamon");
    EXPECT_EQ(Told(), "C:/srv/a b.png");
    static_cast<void>(TakeToolCalls());
    const std::string file = Put("x y.bmp", "x");
    desktop->SetWallpaper("C:" + file);
    const std::string sets = "[set][org.cinnamon.desktop.background]";
    const std::string address = "file://" + folder.path().toStdString() + "/x%20y.bmp";
    EXPECT_EQ(TakeToolCalls(),
              (Calls{sets + "[picture-options][\"centered\"]", sets + "[picture-uri][\"" + address + "\"]"}));
    Tile(true);
    desktop->SetWallpaper("C:" + file);
    EXPECT_EQ(TakeToolCalls().at(0), sets + "[picture-options][\"wallpaper\"]");
    desktop->SetWallpaper("");
    EXPECT_EQ(TakeToolCalls(), (Calls{sets + "[picture-options][\"none\"]", sets + "[picture-uri][\"\"]"}));
}

TEST_F(ToolTest, MateHasPathsAmongItsSettings) {
    Tool("gsettings",
         "'get org.mate.background picture-filename') echo \"'/srv/a b.png'\";;\n"
         "'get org.mate.background picture-options') echo \"'stretched'\";;\n");
    UseDesktop("MATE");
    EXPECT_EQ(Told(), "C:/srv/a b.png");
    static_cast<void>(TakeToolCalls());
    const std::string file = Put("x \"y\" \\ z.bmp", "x");
    desktop->SetWallpaper("C:" + file);
    const std::string sets = "[set][org.mate.background]";
    EXPECT_EQ(
        TakeToolCalls(),
        (Calls{sets + "[picture-options][\"centered\"]", sets + "[picture-filename][\"\"]",
               sets + "[picture-filename][\"" + folder.path().toStdString() + "/x \\\"y\\\" \\\\ z.bmp\"]"}));
    desktop->SetWallpaper("");
    EXPECT_EQ(TakeToolCalls(), (Calls{sets + "[picture-filename][\"\"]"}));
}

TEST_F(ToolTest, LxqtAsksItsFileManager) {
    Tool("pcmanfm-qt");
    UseDesktop("LXQt");
    EXPECT_EQ(Told(), "(no value)");
    const std::string file = Put("x y.bmp", "x");
    Tile(true);
    desktop->SetWallpaper("C:" + file);
    EXPECT_EQ(TakeToolCalls(),
              (Calls{"[--wallpaper-mode=color]", "[--wallpaper-mode=tile][--set-wallpaper=" + file + "]"}));
    desktop->SetWallpaper("");
    EXPECT_EQ(TakeToolCalls(), (Calls{"[--wallpaper-mode=color]"}));
    QDir().mkpath(folder.filePath("pcmanfm-qt/lxqt"));
    Put("pcmanfm-qt/lxqt/settings.conf", "[Desktop]\nWallpaper=/srv/a b.png\nWallpaperMode=stretch\n");
    EXPECT_EQ(Told(), "C:/srv/a b.png");
    Put("pcmanfm-qt/lxqt/settings.conf", "[Desktop]\nWallpaper=/srv/a b.png\nWallpaperMode=none\n");
    EXPECT_EQ(Told(), "");
}

TEST_F(ToolTest, LxdeAsksItsFileManager) {
    Tool("pcmanfm");
    UseDesktop("LXDE");
    const std::string file = Put("x y.bmp", "x");
    desktop->SetWallpaper("C:" + file);
    EXPECT_EQ(TakeToolCalls(),
              (Calls{"[--wallpaper-mode=color]", "[--wallpaper-mode=center][--set-wallpaper=" + file + "]"}));
    QDir().mkpath(folder.filePath("pcmanfm/LXDE"));
    Put("pcmanfm/LXDE/desktop-items-0.conf", "[*]\nwallpaper_mode=crop\nwallpaper=/srv/a = b.png\n");
    EXPECT_EQ(Told(), "C:/srv/a = b.png");
    Put("pcmanfm/LXDE/desktop-items-0.conf", "[*]\nwallpaper_mode=color\nwallpaper=/srv/a b.png\n");
    EXPECT_EQ(Told(), "");
}

TEST_F(ToolTest, WithoutItsToolThePortalIsAskedAndWithoutThatItIsAFailure) {
    qputenv("PATH", "/nowhere");
    const std::string file = Put("x.bmp", "x");
    for (const char* name : {"X-Cinnamon", "MATE", "LXQt", "LXDE", "Enlightenment"}) {
        UseDesktop(name);
        EXPECT_EQ(ErrorOfCall([&] { desktop->SetWallpaper("C:" + file); }), 68) << name;
    }
    services->Offer(Portal,
                    {{"SetWallpaperFile", Saying({QVariant::fromValue(QDBusObjectPath("/request/1"))})}});
    for (const char* name : {"X-Cinnamon", "MATE", "LXQt", "LXDE", "Enlightenment"}) {
        UseDesktop(name);
        desktop->SetWallpaper("C:" + file);
        EXPECT_EQ(services->TakeCalls().size(), 1U) << name;
    }
}

}  // namespace
}  // namespace tavrix
