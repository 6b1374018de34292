#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <regex>
#include <set>
#include <sstream>

#include "backends/headless/HeadlessToolkit.h"
#include "backends/shared/help/HelpBook.h"
#include "platform/forms/ComboBox.h"
#include "platform/forms/DirListBox.h"
#include "platform/forms/FileListBox.h"
#include "platform/forms/Label.h"
#include "platform/forms/ListBox.h"
#include "platform/forms/Menu.h"
#include "platform/forms/TextBox.h"
#include "scenes/HelpScenes.h"
#include "viewer/MainViewFrm.h"
#include "windows/ControlFacts.h"

namespace tavrix::scenes {

void PrintTo(const HelpScene& scene, std::ostream* out) {
    *out << scene.name;
}

}  // namespace tavrix::scenes

namespace tavrix::test {
namespace {

using windows::CaptionOf;
using windows::ControlsOf;

std::string ContentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::filesystem::path PictureFile(const std::string& name) {
    return std::filesystem::path(PICTURES) / (name + ".png");
}

std::filesystem::path LayoutFile(const std::string& name) {
    return std::filesystem::path(PICTURES) / (name + ".txt");
}

/// What a control holds, beside its caption.
std::string HeldBy(const forms::Control& control) {
    std::string held;
    if (const auto* label = dynamic_cast<const forms::Label*>(&control); label != nullptr && label->Literal)
        held = label->Caption;
    const auto add = [&held](const std::string& text) { held += " | " + text; };
    if (const auto* field = dynamic_cast<const forms::TextBox*>(&control)) add(field->Text);
    if (const auto* combo = dynamic_cast<const forms::ComboBox*>(&control)) {
        if (combo->ListIndex >= 0) add(combo->List(combo->ListIndex));
    }
    const auto addRows = [&add](const auto* list) {
        for (int row = 0; list != nullptr && row < list->ListCount(); ++row)
            add(list->List(row));
    };
    addRows(dynamic_cast<const forms::ListBox*>(&control));
    addRows(dynamic_cast<const forms::FileListBox*>(&control));
    addRows(dynamic_cast<const forms::DirListBox*>(&control));
    if (const auto* list = dynamic_cast<const forms::ListControl*>(&control))
        add(std::to_string(list->SelectedCount()) + " selected");
    return held;
}

/// What is to be seen on a window, where fonts and themes make no difference: a line a control.
std::string LayoutOf(const forms::Form& form) {
    std::ostringstream text;
    text << form.Name() << ' ' << form.Width << 'x' << form.Height << '\n';
    for (const forms::Menu* menu : form.MenuBar()) {
        if (menu->Visible) text << "menu " << menu->State().caption << '\n';
    }
    for (const forms::Control* control : ControlsOf(form)) {
        if (!control->Visible) continue;
        const PixelRect place = control->PixelBoundsInWindow();
        text << control->Name() << ' ' << place.left << ',' << place.top << ' ' << place.width << 'x'
             << place.height << (control->Enabled ? " " : " disabled ") << CaptionOf(*control)
             << HeldBy(*control) << '\n';
    }
    return text.str();
}

/// A number that no other file of this size is likely to have.
std::string MarkOf(const std::string& bytes) {
    std::uint64_t mark = 14695981039346656037U;
    for (const char byte : bytes)
        mark = (mark ^ static_cast<unsigned char>(byte)) * 1099511628211U;
    std::ostringstream text;
    text << "picture " << bytes.size() << ' ' << std::hex << mark << '\n';
    return text.str();
}

bool Renewing() {
    return std::getenv("TAVRIX_RENEW") != nullptr;
}

class HelpPicturesTest : public testing::TestWithParam<scenes::HelpScene> {};

TEST_P(HelpPicturesTest, IsThatOfTheWindowAsItIsNow) {
    const std::string& name = GetParam().name;
    headless::HeadlessToolkit toolkit;
    scenes::Scenery scenery(toolkit);
    forms::Form& form = GetParam().load(scenery);
    form.Show();
    scenery.app.DoEvents();
    const std::string bytes = ContentOf(PictureFile(name));
    const std::string layout = MarkOf(bytes) + LayoutOf(form);
    if (Renewing()) std::ofstream(LayoutFile(name), std::ios::binary) << layout;
    EXPECT_EQ(layout, ContentOf(LayoutFile(name))) << "The window is another one than the help shows. Run "
                                                      "scripts/help-pictures, look at docs/help/pictures/"
                                                   << name << ".png, and commit both files.";
    EXPECT_TRUE(bytes.starts_with("\x89PNG"));
    EXPECT_LT(bytes.size(), HelpBook::LargestPicture / 2);
    EXPECT_EQ(toolkit.Failures(), std::vector<std::string>());
    if (&form != scenery.app.Loaded<MainViewFrm>()) scenery.app.Unload(form);
}

INSTANTIATE_TEST_SUITE_P(Scenes, HelpPicturesTest, testing::ValuesIn(scenes::HelpScenes()),
                         [](const auto& instance) {
                             std::string name = instance.param.name;
                             std::erase(name, '-');
                             return name;
                         });

HelpBook BuiltBook() {
    auto book = HelpBook::Parse(ContentOf(BUILT_HELP_FILE));
    if (!book) throw std::runtime_error("no help file");
    return *book;
}

TEST(HelpFilePicturesTest, EachOneIsOnAPageAndIsDescribedThere) {
    const HelpBook book = BuiltBook();
    static const std::regex link(R"(!\[([^\]]*)\]\(picture:([^)]*)\))");
    std::set<std::string> shown;
    for (const HelpPage& page : book.Pages()) {
        for (std::sregex_iterator i(page.body.begin(), page.body.end(), link), end; i != end; ++i) {
            EXPECT_GT((*i)[1].length(), 30) << page.title << ": who does not see it reads this";
            shown.insert((*i)[2].str());
        }
    }
    std::set<std::string> made;
    for (const scenes::HelpScene& scene : scenes::HelpScenes())
        made.insert(scene.name);
    EXPECT_EQ(shown, made);
}

TEST(HelpFilePicturesTest, TheBuildPutsThemIntoTheHelpFile) {
    const HelpBook book = BuiltBook();
    std::size_t all = 0;
    for (const scenes::HelpScene& scene : scenes::HelpScenes()) {
        const std::string bytes = ContentOf(PictureFile(scene.name));
        EXPECT_FALSE(bytes.empty()) << scene.name;
        EXPECT_EQ(book.PictureAt("picture:" + scene.name), bytes) << scene.name;
        all += bytes.size();
    }
    EXPECT_LT(all, 400U * 1024) << "of all pictures";
}

TEST(HelpFilePicturesTest, NoOtherFilesLieAmongThem) {
    std::set<std::string> names;
    for (const scenes::HelpScene& scene : scenes::HelpScenes()) {
        names.insert(scene.name + ".png");
        names.insert(scene.name + ".txt");
    }
    for (const auto& entry : std::filesystem::directory_iterator(PICTURES))
        EXPECT_TRUE(names.contains(entry.path().filename().string())) << entry.path();
}

}  // namespace
}  // namespace tavrix::test
