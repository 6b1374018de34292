/// tavrix-gallery [--dark] [--accent=COLOUR] [--font-scale=FACTOR] [--contrast] DIR [PICTURE...]
/// tavrix-gallery --help-pictures DIR
///
/// With --dark the windows are drawn in dark colours, with --accent (such as #e01b24) what is selected in them is of that
/// colour, and with --font-scale their texts are larger. --contrast tells texts that are not read well enough on what is
/// behind them; the letters have no smooth edges then, but for fonts of a fixed width, of which it tells too much.
///
/// Draws every window of the program to a PNG file in DIR, or with pictures the main view with each of them, and all of
/// these on one sheet, pictures.png; or the pictures of the help, for which scripts/help-pictures calls it. The windows stand
/// on services in memory, so that nothing of the user's is read or written; set QT_SCALE_FACTOR=2 to see them at 200 %.

#include <QApplication>
#include <QFont>
#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/ContactSheet.h"
#include "app/FewColours.h"
#include "app/PaintedTexts.h"
#include "backends/linux/FileSource.h"
#include "backends/qt/QtProcess.h"
#include "backends/qt/QtToolkit.h"
#include "backends/qt/desktop/Look.h"
#include "backends/qt/help/HelpWindow.h"
#include "backends/shared/help/HelpBook.h"
#include "base/RuntimeError.h"
#include "imaging/loading/DecodePicture.h"
#include "imaging/loading/Decoders.h"
#include "scenes/HelpScenes.h"
#include "scenes/WindowScenes.h"
#include "viewer/MainViewFrm.h"

namespace {

using namespace tavrix;

class Gallery {
  public:
    Gallery(std::filesystem::path folder, bool measuring)
        : folder_(std::move(folder)), measuring_(measuring) {}

    void Draw() {
        for (const scenes::WindowScene& scene : scenes::EveryWindow())
            DrawScene(scene.name, [&scene](scenes::Scenery& scenery) -> forms::Form& {
                scenes::Furnish(scenery);
                return scene.load(scenery);
            });
        DrawBoxes();
        DrawHelp();
        Write(sheet_.Draw(), "every-window");
    }

    void DrawHelpPictures() {
        for (const scenes::HelpScene& scene : scenes::HelpScenes()) {
            DrawScene(scene.name, scene.load);
            const QString file = QString::fromStdString((folder_ / (scene.name + ".png")).string());
            WithFewColours(lastDrawn_.toImage()).save(file, "PNG", 0);
        }
    }

    void DrawPictures(std::span<char* const> files) {
        ContactSheet sheet;
        for (const std::filesystem::path file : files) {
            const Picture picture = LoadedFrom(file);
            // What is imported stands in the main view as a bitmap.
            const bool imported = DirectlyOpened(file) == nullptr;
            const std::string path =
                "C:\\Pictures\\" + (imported ? file.stem().string() + ".bmp" : file.filename().string());
            DrawScene("picture-" + file.filename().string(), [&](scenes::Scenery& scenery) -> forms::Form& {
                scenery.platform.pictures.SetPicture(path, picture);
                return scenery.Start(path);
            });
            sheet.Add(lastDrawn_, QString::fromStdString(file.filename().string() + "  " +
                                                         std::to_string(picture.Width()) + " x " +
                                                         std::to_string(picture.Height())));
        }
        Write(sheet.Draw(), "pictures");
    }

  private:
    static const DecoderEntry* DirectlyOpened(const std::filesystem::path& file) {
        FileSource source(file.string());
        return DecoderFor(source);
    }

    static Picture LoadedFrom(const std::filesystem::path& file) {
        FileSource source(file.string());
        DecodedPicture decoded = DecodePicture(source, ImportDecoderFor(source, file.string()));
        if (!decoded.error) return std::move(decoded.picture);
        std::fprintf(stderr, "tavrix-gallery: %s: %s\n", file.c_str(), RuntimeError(*decoded.error).what());
        std::exit(1);
    }

    /// A window of a program of its own, alone.
    void DrawScene(const std::string& name, const std::function<forms::Form&(scenes::Scenery&)>& load) {
        qt::QtToolkit toolkit([](const std::string& path) { return path; });
        scenes::Scenery scenery(toolkit);
        forms::Form& form = load(scenery);
        for (int i = 0; i < scenery.app.FormCount(); ++i) {
            if (&scenery.app.FormAt(i) != &form) scenery.app.FormAt(i).Hide();
        }
        form.Show();
        Settle(toolkit);
        if (auto* focused = QApplication::focusWidget()) focused->clearFocus();  // no blinking caret
        Save(name);
        if (&form != &scenery.View()) scenery.app.Unload(form);
    }

    void DrawBoxes() {
        DrawBox("box-invalid-command", {.text = "An invalid command (P) was passed at the command prompt...",
                                        .icon = forms::BoxIcon::Exclamation});
        DrawBox("box-discard",
                {.text = "The current file has not been saved.\r\n\r\nDiscard changes and continue?",
                 .icon = forms::BoxIcon::Question,
                 .buttons = forms::BoxButtons::YesNo});
        DrawBox("box-moved", {.text = "Do you want to make this your default one?",
                              .icon = forms::BoxIcon::Question,
                              .buttons = forms::BoxButtons::YesNoCancel,
                              .help = true});
        DrawBox("box-open-failure", {.text = "Unable to open the selected file.\r\n\r\nInvalid picture...",
                                     .icon = forms::BoxIcon::Stop});
    }

    void DrawBox(const std::string& name, const forms::BoxRequest& request) {
        qt::QtToolkit toolkit([](const std::string& path) { return path; });
        forms::Application app(toolkit);
        QTimer::singleShot(300, [this, name] {
            Save(name);
            if (QWidget* box = QApplication::activeModalWidget()) box->close();
        });
        app.MessageBox(request);
    }

    /// The help file that the build puts beside the program.
    void DrawHelp() {
        const auto here = std::filesystem::read_symlink("/proc/self/exe").parent_path();
        std::ifstream file(here.parent_path() / "app" / "TAVRIX.HLP", std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        const auto book = HelpBook::Parse(bytes);
        if (!book) {
            std::fputs("tavrix-gallery: there is no help file to draw\n", stderr);
            return;
        }
        qt::QtToolkit toolkit([](const std::string& path) { return path; });
        for (const HelpPage& page : book->Pages()) {
            qt::HelpWindow window([] { return false; });
            window.Open(*book, page.context);
            Settle(toolkit);
            Save("help-" + std::to_string(page.context));
        }
    }

    /// Lets the window come to rest, wait windows that are shown late too.
    static void Settle(qt::QtToolkit& toolkit) {
        bool over = false;
        QTimer::singleShot(400, [&over] { over = true; });
        toolkit.RunUntil([&over] { return over; });
    }

    void Save(const std::string& name) {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (!window->isVisible() || window->windowType() == Qt::Popup) continue;
            lastDrawn_ = window->grab();
            Write(lastDrawn_, name);
            sheet_.Add(lastDrawn_, QString::fromStdString(name));
            if (measuring_) Measure(*window, name);
        }
    }

    void Measure(QWidget& window, const std::string& name) {
        for (const PaintedText& text : PaintedTextsOf(window)) {
            if (text.contrast >= text.least) continue;
            std::fprintf(stderr, "%s: \"%s\" has a contrast of %.2f\n", name.c_str(),
                         text.text.toStdString().c_str(), text.contrast);
        }
    }

    void Write(const QPixmap& pixmap, const std::string& name) const {
        const std::string file = (folder_ / (name + ".png")).string();
        if (!pixmap.save(QString::fromStdString(file))) {
            std::fprintf(stderr, "tavrix-gallery: cannot write %s\n", file.c_str());
            std::exit(1);
        }
        std::printf("%s\n", file.c_str());
    }

    std::filesystem::path folder_;
    bool measuring_;
    ContactSheet sheet_;
    QPixmap lastDrawn_;
};

/// What is told before the folder.
struct Options {
    qt::Look look;
    bool helpPictures = false;
    bool contrast = false;
    std::vector<char*> rest;  ///< the folder, and pictures; empty: the options are none
};

Options OptionsOf(std::span<char*> arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view word = arguments[i];
        const std::string value(word.substr(std::min(word.find('=') + 1, word.size())));
        if (word == "--dark") {
            options.look.scheme = qt::Look::Scheme::Dark;
        } else if (word.starts_with("--accent=") && QColor::isValidColor(QString::fromStdString(value))) {
            options.look.accent = QColor(QString::fromStdString(value));
        } else if (word.starts_with("--font-scale=") && std::atof(value.c_str()) > 0) {
            options.look.textScale = std::atof(value.c_str());
        } else if (word == "--contrast") {
            options.contrast = true;
        } else if (word == "--help-pictures") {
            options.helpPictures = true;
        } else if (!word.starts_with("--")) {
            options.rest.assign(arguments.begin() + static_cast<std::ptrdiff_t>(i), arguments.end());
            return options;
        } else {
            return {};
        }
    }
    return options;
}

}  // namespace

int main(int argc, char** argv) {
    const Options options = OptionsOf(std::span(argv + 1, static_cast<std::size_t>(std::max(argc - 1, 0))));
    if (options.rest.empty() || (options.helpPictures && options.rest.size() > 1)) {
        std::fputs(
            "usage: tavrix-gallery [--dark] [--accent=COLOUR] [--font-scale=FACTOR] [--contrast] DIR "
            "[PICTURE...]\n"
            "       tavrix-gallery --help-pictures DIR\n",
            stderr);
        return 2;
    }
    if (std::getenv("QT_QPA_PLATFORM") == nullptr) ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
    // Whatever the desktop wishes, the pictures are to be the same everywhere.
    ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
    ::unsetenv("XDG_RUNTIME_DIR");
    qt::QtProcess windowSystem(argv[0]);
    windowSystem.Follow(options.look);
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * options.look.textScale);
    if (options.contrast) font.setStyleStrategy(QFont::NoAntialias);
    QApplication::setFont(font);
    const char* const folder = options.rest.front();
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    Gallery gallery(folder, options.contrast);
    if (options.helpPictures)
        gallery.DrawHelpPictures();
    else if (options.rest.size() > 1)
        gallery.DrawPictures(std::span(options.rest).subspan(1));
    else
        gallery.Draw();
    std::fflush(stdout);
    std::_Exit(0);
}
