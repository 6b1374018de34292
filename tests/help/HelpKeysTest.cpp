// Every key that a page of the help tells is one that the program knows, and the other way round.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <regex>
#include <set>
#include <sstream>

#include "backends/headless/HeadlessToolkit.h"
#include "backends/shared/help/HelpBook.h"
#include "core/HelpContexts.h"
#include "editing/creating/BackColorFrm.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/ListBox.h"
#include "shows/EditorTest.h"
#include "shows/StageTest.h"
#include "windows/ControlFacts.h"
#include "windows/EveryWindow.h"

namespace tavrix::test {
namespace {

namespace KeyCode = forms::KeyCode;
namespace ShiftMask = forms::ShiftMask;
using Keys = std::set<std::string>;

struct KeyPress {
    int code = 0;
    int shift = 0;
};

/// The keys that have a name, as the help calls them.
const std::map<std::string, int>& NamedKeys() {
    static const std::map<std::string, int> named{
        {"Delete", KeyCode::Delete},  {"Insert", KeyCode::Insert},  {"Home", KeyCode::Home},
        {"End", KeyCode::End},        {"Page Up", KeyCode::PageUp}, {"Page Down", KeyCode::PageDown},
        {"Escape", KeyCode::Escape},  {"Tab", KeyCode::Tab},        {"Space", KeyCode::Space},
        {"Backspace", KeyCode::Back}, {"Pause", KeyCode::Pause},    {"Enter", KeyCode::Return},
        {"Left", KeyCode::Left},      {"Right", KeyCode::Right},    {"Up", KeyCode::Up},
        {"Down", KeyCode::Down}};
    return named;
}

/// What is pressed for "Shift+F8", "Page Up" or "5".
KeyPress PressOf(const std::string& key) {
    KeyPress press;
    std::string name = key;
    for (const auto& [word, mask] :
         {std::pair{"Ctrl+", ShiftMask::Ctrl}, {"Alt+", ShiftMask::Alt}, {"Shift+", ShiftMask::Shift}}) {
        if (name.size() > std::string(word).size() && name.starts_with(word)) {
            press.shift |= mask;
            name.erase(0, std::string(word).size());
        }
    }
    const auto named = NamedKeys().find(name);
    static const std::regex function(R"(F(\d+))");
    std::smatch number;
    if (named != NamedKeys().end()) {
        press.code = named->second;
    } else if (std::regex_match(name, number, function)) {
        press.code = KeyCode::F1 - 1 + std::stoi(number[1].str());
    } else if (name == "!" || name == "@") {
        press = {KeyCode::Digit0 + (name == "!" ? 1 : 2), ShiftMask::Shift};
    } else {
        press.code = static_cast<unsigned char>(name.front());
    }
    return press;
}

HelpBook OwnBook() {
    std::ifstream file(HELP_FILE, std::ios::binary);
    auto book = HelpBook::Parse(std::string{std::istreambuf_iterator<char>(file), {}});
    if (!book) throw std::runtime_error("no help file");
    return *book;
}

const std::string& TextOf(unsigned page) {
    static const HelpBook book = OwnBook();
    return book.Find(page)->body;
}

/// The keys of the first column of a table, by the heading that the column has.
Keys KeysOfTable(unsigned page, const std::string& heading) {
    std::istringstream text(TextOf(page));
    std::string cells;
    bool inTable = false;
    for (std::string line; std::getline(text, line);) {
        if (line.starts_with("| " + heading + " |")) {
            inTable = true;
        } else if (!line.starts_with("|")) {
            inTable = false;
        } else if (inTable && !line.starts_with("|---")) {
            cells += line.substr(2, line.find(" |") - 2) + ", ";
        }
    }
    EXPECT_FALSE(cells.empty()) << heading;
    Keys keys;
    static const std::regex separator(", or |, | and | or ");
    for (std::sregex_token_iterator i(cells.begin(), cells.end(), separator, -1), end; i != end; ++i) {
        if (i->length() > 0) keys.insert(i->str());
    }
    return keys;
}

/// The keys that a text tells of outside its tables.
Keys KeysOfText(const std::string& body) {
    std::istringstream text(body);
    std::string prose;
    for (std::string line; std::getline(text, line);) {
        if (line.starts_with("|")) continue;
        std::erase(line, '*');
        prose += line + ' ';
    }
    Keys keys;
    const auto add = [&](const char* pattern, int group, const std::string& before = "") {
        const std::regex known(pattern);
        for (std::sregex_iterator i(prose.begin(), prose.end(), known), end; i != end; ++i)
            keys.insert(before + (*i)[group].str());
    };
    add(R"((?:Ctrl|Alt|Shift)\+(?:F\d+|\w+))", 0);
    add(R"((?:^|[^+\w])(F\d+)\b)", 1);
    add(R"(\b(Delete|Insert|Home|End|Page Up|Page Down|Escape|Tab|Space|Backspace|Pause|Enter|Left|Right|Up|Down) keys?\b)",
        1);
    add(R"(\b[Kk]eys? ([!@\d+P-])(?=[\s,.):]))", 1);
    add(R"(\bkeys [!@\d+P-] and ([!@\d+P-])(?=[\s,.):]))", 1);
    add(R"(\b(?:the|The) (\d) key\b)", 1);
    add(R"(\b(Escape|Tab|Page Up|Page Down)[ ,])", 1);
    add(R"(\b(?:Page Down|Page Up), (Home)\b)", 1);
    add(R"(\bHome and (End) )", 1);
    return keys;
}

Keys KeysOfProse(unsigned page) {
    return KeysOfText(TextOf(page));
}

/// What the main view does with keys: a counter in the place of each command, and a large image.
class MainViewKeysTest : public ViewerTest {
  protected:
    void SetUp() override {
        StartWithPicture(4000, 3000);
        Collect(View().MenuBar());
    }
    /// The entry that a key runs, "scrolls" and so on; empty: nothing.
    std::string EffectOf(const KeyPress& press) {
        View().hsbPict.Value = 1000;
        View().vsbPict.Value = 1000;
        ran_.clear();
        const std::size_t helps = platform.help.calls.size();
        View().Deliver(forms::KeyEvent{true, press.code, press.shift, nullptr});
        if (!ran_.empty()) return ran_;
        if (platform.help.calls.size() > helps) return "help";
        if (View().hsbPict.Value != 1000 || View().vsbPict.Value != 1000) return "scrolls";
        return "";
    }

    std::map<std::string, std::string> keyOf_;  ///< by the entry, as its caption tells it

  private:
    void Collect(const std::vector<forms::Menu*>& entries) {
        static const std::regex key(R"(\[(.*?)( Key| Arrow)?\])");
        for (forms::Menu* entry : entries) {
            Collect(entry->Entries());
            if (!entry->Entries().empty() || entry->IsSeparator()) continue;
            entry->Install([this, entry] { ran_ += entry->Name(); });
            const std::string caption = entry->Caption;
            std::smatch found;
            if (std::regex_search(caption, found, key)) keyOf_[entry->Name()] = found[1].str();
        }
    }

    std::string ran_;
};

TEST_F(MainViewKeysTest, TheKeysOfTheCaptionsRunTheirEntriesAndAreTold) {
    Keys told = KeysOfTable(HelpContext::MainView, "Key");
    ASSERT_EQ(keyOf_.size(), 13U);
    for (const auto& [entry, key] : keyOf_) {
        EXPECT_EQ(EffectOf(PressOf(key)), entry) << key;
        EXPECT_TRUE(told.contains(key)) << key << " is not told";
    }
}

TEST_F(MainViewKeysTest, EveryKeyThatThePageTellsDoesSomething) {
    Keys told = KeysOfTable(HelpContext::MainView, "Key");
    // These stand for more than one key, or are the window system's.
    for (const char* group : {"Arrow keys", "Ctrl with an arrow key", "F10", "Alt with a letter", "Tab"})
        EXPECT_EQ(told.erase(group), 1U) << group;
    for (const std::string& key : told)
        EXPECT_NE(EffectOf(PressOf(key)), "") << key;
    for (const int arrow : {KeyCode::Left, KeyCode::Up, KeyCode::Right, KeyCode::Down}) {
        EXPECT_EQ(EffectOf({arrow, ShiftMask::None}), "scrolls") << arrow;
        EXPECT_EQ(EffectOf({arrow, ShiftMask::Ctrl}), "scrolls") << arrow;
    }
}

TEST_F(MainViewKeysTest, EveryKeyThatDoesSomethingIsTold) {
    std::set<std::pair<int, int>> told;
    for (const std::string& key : KeysOfTable(HelpContext::MainView, "Key")) {
        const KeyPress press = PressOf(key);
        told.emplace(press.code, press.shift);
    }
    const auto isArrow = [](int code) { return code >= KeyCode::Left && code <= KeyCode::Down; };
    for (int code = KeyCode::Back; code < KeyCode::Other; ++code) {
        const std::string plain = EffectOf({code, ShiftMask::None});
        for (const int shift : {ShiftMask::None, ShiftMask::Shift, ShiftMask::Ctrl, ShiftMask::Alt}) {
            const std::string effect = EffectOf({code, shift});
            const bool alike = shift != ShiftMask::None && effect == plain;
            const bool keypad = code >= KeyCode::Numpad0 && code <= KeyCode::Numpad0 + 9;
            if (effect.empty() || alike || keypad || (isArrow(code) && effect == "scrolls")) continue;
            EXPECT_TRUE(told.contains({code, shift})) << code << " with " << shift << ": " << effect;
        }
    }
}

/// The popup menus of the editor.
class EditorKeysTest : public EditorTest {
  protected:
    /// The keys that the captions of a popup tell are those of the page's table and run their entries in the list.
    void ExpectKeys(forms::Menu& popup, forms::ListControl& list, const std::string& heading) {
        static const std::regex key(R"(\[(.*)\]$)");
        Keys inCaptions;
        std::string ran;
        std::map<std::string, std::string> entries;
        for (forms::Menu* entry : popup.Entries()) {
            if (entry->IsSeparator()) continue;
            const std::string caption = entry->Caption;
            std::smatch found;
            ASSERT_TRUE(std::regex_search(caption, found, key)) << caption;
            EXPECT_TRUE(inCaptions.insert(found[1].str()).second) << caption;
            entry->Install([&ran, entry] { ran += entry->Name(); });
            entries[found[1].str()] = entry->Name();
        }
        EXPECT_EQ(KeysOfTable(HelpContext::SlideShowEditor, heading), inCaptions);
        for (const auto& [name, entry] : entries) {
            const KeyPress press = PressOf(name);
            const bool typed = name.size() == 1;
            // Letters with Alt are those of buttons, which the window system presses.
            if (press.shift == ShiftMask::Alt && typed == false && std::isalpha(press.code) != 0 &&
                name.size() == 5)
                continue;
            ran.clear();
            list.SetFocus();
            if (typed) {
                list.OnCharacter(name);
                list.OnKeyUp(0, 0);
            } else {
                Type(list, press.code, press.shift);
            }
            EXPECT_EQ(ran, entry) << name;
        }
    }
};

TEST_F(EditorKeysTest, OfTheFileList) {
    PutSlides("abc");
    ExpectKeys(Editor().Menu1.mnuMenu1, Editor().File1, "Key in the file list");
}

TEST_F(EditorKeysTest, OfTheViewList) {
    PutSlides("abc");
    ExpectKeys(Editor().Menu2.mnuMenu2, Editor().ListView, "Key in the View List");
}

TEST_F(EditorKeysTest, ThePageOnMakingAShowTellsKeysOfTheViewList) {
    const Keys known = KeysOfTable(HelpContext::SlideShowEditor, "Key in the View List");
    Keys told = KeysOfProse(HelpContext::CreateShow);
    EXPECT_EQ(told.erase("P"), 1U) << "of the stage";
    EXPECT_GE(told.size(), 5U);
    for (const std::string& key : told)
        EXPECT_TRUE(known.contains(key)) << key;
}

/// A show of twelve slides, opened from the editor.
class StageKeysHelpTest : public StageTest {
  protected:
    static constexpr int Middle = 6;

    void SetUp() override {
        PutSlides(12);
        OpenEditor();
        module.config.SlideInterval = 5;
    }
    /// What a key does in the middle of the show.
    std::string EffectOf(int code) {
        if (Playing()) Stage().FormUnload();
        Play();
        Press(KeyCode::Home);
        while (Stage().CurrentSlide != Middle)
            Press(KeyCode::Right);
        const bool runs = Stage().SlideTimer.Enabled;
        Press(code);
        if (!Playing()) return "ends";
        if (Stage().SlideTimer.Enabled != runs) return "pauses";
        return Stage().CurrentSlide == Middle ? "nothing" : std::to_string(Stage().CurrentSlide - Middle);
    }
};

TEST_F(StageKeysHelpTest, TheTableTellsTheTruth) {
    const std::map<std::string, std::string> effects{{"Right", "1"},    {"Down", "1"},   {"Space", "1"},
                                                     {"Left", "-1"},    {"Up", "-1"},    {"Backspace", "-1"},
                                                     {"Home", "-6"},    {"End", "5"},    {"Page Down", "5"},
                                                     {"Page Up", "-5"}, {"P", "pauses"}, {"Pause", "pauses"}};
    Keys told = KeysOfTable(300, "Key or button");
    for (const char* other : {"6", "2 of the keypad", "4", "8 of the keypad", "right mouse button",
                              "any other key", "left mouse button"})
        EXPECT_EQ(told.erase(other), 1U) << other;
    EXPECT_EQ(told.erase("Delete"), 1U);
    std::set<int> codes{KeyCode::Delete};
    for (const auto& [key, effect] : effects) {
        EXPECT_EQ(told.erase(key), 1U) << key;
        EXPECT_EQ(EffectOf(PressOf(key).code), effect) << key;
        codes.insert(PressOf(key).code);
    }
    EXPECT_EQ(told, Keys()) << "nobody checks these";
    for (const auto& [digit, effect] : {std::pair{6, "1"}, {2, "1"}, {4, "-1"}, {8, "-1"}}) {
        EXPECT_EQ(EffectOf(KeyCode::Numpad0 + digit), effect) << digit;
        codes.insert(KeyCode::Numpad0 + digit);
    }
    for (int code = KeyCode::Back; code <= KeyCode::Other; ++code) {
        const std::string effect = codes.contains(code) ? "ends" : EffectOf(code);
        EXPECT_EQ(effect, "ends") << code;
    }
}

/// Where the Delete key deletes, the page of the window tells it, and where the page tells it, it does.
TEST(DeleteKeyTest, IsToldWhereItIs) {
    std::map<unsigned, bool> deletes;
    for (const windows::Window& window : windows::EveryWindow()) {
        // The editor and the stage have tables.
        if (window.name == "SlideLoadFrm" || window.name == "FullViewFrm" || window.name == "frmToolbar")
            continue;
        const auto toolkit = windows::MakeToolkit();
        auto& headlessToolkit = dynamic_cast<headless::HeadlessToolkit&>(*toolkit);
        windows::Program program(*toolkit);
        program.platform.disks.PutFile("C:\\Pictures\\waves.wav", "");
        forms::Form& form = window.load(program);
        form.Show();
        program.app.DoEvents();
        bool& known = deletes.try_emplace(form.HelpContext, false).first->second;
        for (forms::Control* control : windows::ControlsOf(form)) {
            auto* list = dynamic_cast<forms::ListControl*>(control);
            if (list == nullptr || !list->Visible || !list->Enabled) continue;
            if (auto* rows = dynamic_cast<forms::ListBox*>(list); rows != nullptr && rows->ListCount() == 0)
                rows->AddItem("C:\\Pictures\\picture number 1.bmp");
            const int before = headlessToolkit.BoxesShown();
            try {
                list->ListIndex = 0;
                list->Select(0);
            } catch (const std::exception&) {
                continue;  // it has no row
            }
            list->SetFocus();
            for (const bool down : {true, false})
                form.Deliver(forms::KeyEvent{down, KeyCode::Delete, ShiftMask::None, nullptr});
            known = known || headlessToolkit.BoxesShown() > before;
        }
        if (&form != &program.View()) program.app.Unload(form);
    }
    int count = 0;
    for (const auto& [page, does] : deletes) {
        if (page == 0) continue;  // windows without a page
        const bool told = KeysOfProse(page).contains("Delete");
        EXPECT_EQ(told, does) << "page " << page;
        count += does ? 1 : 0;
    }
    EXPECT_GE(count, 8);
}

TEST(ScrollBarKeysTest, ThePageOnColoursTellsThem) {
    const auto toolkit = windows::MakeToolkit();
    windows::Program program(*toolkit);
    auto& dialog = program.app.Load<BackColorFrm>(program.module, program.View().picFrame);
    dialog.Show();
    EXPECT_EQ(KeysOfProse(HelpContext::BackgroundColor), (Keys{"Page Up", "Page Down", "Home", "End"}));
    for (const int code :
         {KeyCode::Left, KeyCode::Right, KeyCode::PageUp, KeyCode::PageDown, KeyCode::Home, KeyCode::End}) {
        dialog.HScrollG.Value = 100;
        dialog.HScrollG.SetFocus();
        dialog.Deliver(forms::KeyEvent{true, code, ShiftMask::None, nullptr});
        EXPECT_NE(dialog.HScrollG.Value.Get(), 100) << code;
    }
    program.app.Unload(dialog);
}

/// The other pages name keys of windows that have a table or a test.
TEST(HelpKeysTest, NoPageTellsAnyOtherKey) {
    Keys mainView = KeysOfTable(HelpContext::MainView, "Key");
    mainView.insert({"Alt+Up", "F1"});
    const Keys deletes{"Delete"};
    const std::map<unsigned, Keys> allowed{
        {HelpContext::Contents,
         {"Alt+Home", "Alt+Left", "Alt+Right", "Ctrl+0", "Ctrl+F", "Escape", "F1"}},  // HelpWindowTest
        {HelpContext::Search,
         {"Alt+Left", "Alt+Right", "Ctrl+F", "Down", "Escape", "Tab"}},  // HelpWindowTest
        {HelpContext::GettingStarted, mainView},
        {HelpContext::MainView, mainView},
        {HelpContext::FavoriteFiles, mainView},
        {HelpContext::ResizeImage, mainView},
        {HelpContext::RotateImage, mainView},
        {HelpContext::CropImage, mainView},
        {HelpContext::CreateShow, {"-", "+", "F7", "F8", "F3", "Delete", "P"}},
        {HelpContext::SlideShowEditor, {}},
        {300, {"P", "Pause", "Delete"}},
        {HelpContext::BackgroundColor, {"Page Up", "Page Down", "Home", "End"}},
        {HelpContext::Thumbnails, {"Escape"}},
    };
    const HelpBook book = OwnBook();
    for (const HelpPage& page : book.Pages()) {
        const auto known = allowed.find(page.context);
        const Keys& keys = known == allowed.end() ? deletes : known->second;
        for (const std::string& key : KeysOfProse(page.context))
            EXPECT_TRUE(keys.contains(key)) << page.title << ": " << key;
    }
}

TEST(HelpKeysTest, TheTipsTellKeysOfTheMainViewAndTheStage) {
    Keys known = KeysOfTable(HelpContext::MainView, "Key");
    known.insert({"P", "3", "4"});
    std::ifstream file(TIP_FILE, std::ios::binary);
    const Keys told = KeysOfText(std::string{std::istreambuf_iterator<char>(file), {}});
    EXPECT_GE(told.size(), 6U);
    for (const std::string& key : told)
        EXPECT_TRUE(known.contains(key)) << key;
}

/// F1 in a window.
TEST(WindowPagesTest, EveryWindowButThoseWithoutKeysHasOne) {
    const HelpBook book = OwnBook();
    const std::set<std::string> withoutKeys{"WaitFrm", "WaitCopyFrm", "FullViewFrm", "frmToolbar"};
    for (const windows::Window& window : windows::EveryWindow()) {
        const auto toolkit = windows::MakeToolkit();
        windows::Program program(*toolkit);
        forms::Form& form = window.load(program);
        EXPECT_EQ(form.HelpContext == 0, withoutKeys.contains(window.name)) << window.name;
        EXPECT_NE(book.Find(form.HelpContext), nullptr) << window.name;
        if (&form != &program.View()) program.app.Unload(form);
    }
}

}  // namespace
}  // namespace tavrix::test
