#pragma once

#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "codecs/GifFile.h"
#include "codecs/PcxFile.h"
#include "codecs/TgaFile.h"
#include "core/HelpContexts.h"
#include "editing/Accelerators.h"
#include "editing/saving/FileTarget.h"
#include "platform/forms/Application.h"
#include "viewer/ViewerTest.h"

namespace tavrix::test {

inline std::string TextOf(const std::vector<std::byte>& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// A GIF file whose pixels are all of one colour.
inline std::string PlainGif(int width, int height, Pixel colour) {
    GifImage image{.width = width, .height = height};
    image.pixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0);
    return TextOf(
        GifFile{.width = width, .height = height, .table = std::vector<Pixel>(256, colour), .images = {image}}
            .Make());
}

/// A Targa file with pixels of 24 bits; the first is `first`, all others are `others`.
inline std::string PlainTga(int width, int height, Pixel first, Pixel others) {
    TgaFile file{.width = static_cast<unsigned>(width), .height = static_cast<unsigned>(height)};
    for (int i = 0; i < width * height; ++i) {
        const Pixel pixel = i == 0 ? first : others;
        file.pixels.U8({pixel & 0xFFU, (pixel >> 8U) & 0xFFU, (pixel >> 16U) & 0xFFU});
    }
    return TextOf(file.Make());
}

/// A PCX file of 4 by 1 pixels of one colour.
inline std::string PlainPcx(Pixel colour) {
    PcxFile file;
    file.lines.U8({0, 0, 0, 0});
    file.palette = {colour};
    return TextOf(file.Make());
}

/// A main view with a user who saves, exports and imports. There are A: without a disk, C: and D:; C:\p, the current
/// folder, holds the real GIF file a.gif of 30 by 20 pixels.
class SavingTest : public ViewerTest {
  protected:
    static constexpr const char* Gif = "C:\\p\\a.gif";
    static constexpr const char* Working = "C:\\Temp\\Untitled.BMP";
    static constexpr Pixel GifColour = OpaquePixel(20, 120, 220);

    SavingTest() : gifBytes(PlainGif(30, 20, GifColour)) {
        platform.disks.AddDrive('D', DriveType::Fixed);
        platform.disks.InsertDisk('D');
        platform.disks.PutFolder("D:\\out");
        platform.disks.PutFolder("C:\\q");
        platform.disks.PutFile(Gif, gifBytes);
        platform.files.ChangeFolder("C:\\p");
    }

    static void Press(forms::CommandButton& button) { button.Deliver(forms::ClickEvent{}); }
    static void Enter(forms::TextBox& field, const std::string& text) {
        const int length = static_cast<int>(CharacterCount(text));
        field.Deliver(forms::TextEvent{text, length, 0});
    }

    /// The user chooses an entry, does something in the dialog of this class and closes it where it is open still.
    template <class Dialog>
    void InDialog(forms::Menu& entry, const char* name, const std::function<void(Dialog&)>& action) {
        int shown = 0;
        toolkit.OnModal(name, [&] {
            ++shown;
            EXPECT_FALSE(module.Busy());
            action(*app.Loaded<Dialog>());
            if (auto* dialog = app.Loaded<Dialog>()) app.Unload(*dialog);
        });
        EXPECT_FALSE(Choose(entry));
        EXPECT_EQ(shown, 1) << "shows of the dialog";
        EXPECT_EQ(app.Loaded<Dialog>(), nullptr);
        ExpectIdle();
    }

    void ExpectTold(const std::string& text, std::function<void()> whileOpen = {}) {
        Expect({.text = text, .whileOpen = std::move(whileOpen)});
    }
    void ExpectStop(const std::string& text) { Expect({.text = text, .icon = forms::BoxIcon::Stop}); }
    void ExpectQuestion(const std::string& text, forms::Answer reply, std::function<void()> whileOpen = {}) {
        Expect({.text = text,
                .icon = forms::BoxIcon::Question,
                .buttons = forms::BoxButtons::YesNo,
                .reply = reply,
                .whileOpen = std::move(whileOpen)});
    }
    void ExpectReplace(const std::string& path, forms::Answer reply) {
        ExpectQuestion("The following filename already exists:\r\n\r\n" + path + "\r\n\r\nReplace this file?",
                       reply);
    }
    void ExpectDiscard(forms::Answer reply) {
        ExpectQuestion("The current file has not been saved.\r\n\r\nDiscard changes and continue?", reply);
    }

    [[nodiscard]] std::string Content(const std::string& path) const {
        return platform.disks.Content(path).value_or("(none)");
    }
    /// A picture as the loader reads it.
    Picture Loaded(const std::string& path) { return platform.pictures.Load(path); }
    /// The current image and the title that goes with it.
    void ExpectCurrent(const std::string& path) {
        EXPECT_EQ(module.CurrentImage, path);
        EXPECT_EQ(View().Caption.Get(), path.empty() ? "Tavrix" : "Tavrix - [" + path + "]");
    }
    static void ExpectCaret(const forms::TextBox& field, int at) {
        EXPECT_EQ(field.SelStart.Get(), at);
        EXPECT_EQ(field.SelLength.Get(), 0);
        EXPECT_EQ(field.OwnerForm().ActiveControl(), &field);
    }
    /// All of the name is selected, and typing replaces it.
    static void ExpectProposed(const FileTarget& target, const std::string& name) {
        EXPECT_EQ(target.txtFilename.Text.Get(), name);
        EXPECT_EQ(target.txtFilename.SelStart.Get(), 0);
        EXPECT_EQ(target.txtFilename.SelLength.Get(), static_cast<int>(CharacterCount(name)));
        EXPECT_EQ(target.txtFilename.OwnerForm().ActiveControl(), &target.txtFilename);
    }
    static void ExpectPlace(const FileTarget& target, const std::string& folder) {
        EXPECT_EQ(target.Dir1.Path.Get(), folder);
        EXPECT_EQ(target.Drive1.Drive.Get(), folder.substr(0, 2));
    }
    /// About one colour everywhere: JPEG is not exact.
    static void ExpectColour(const Picture& picture, Pixel wanted) {
        ASSERT_FALSE(picture.Empty());
        for (const Pixel pixel : picture.pixels->Whole().Pixels()) {
            for (const unsigned shift : {0U, 8U, 16U}) {
                const int difference =
                    static_cast<int>((pixel >> shift) & 0xFFU) - static_cast<int>((wanted >> shift) & 0xFFU);
                ASSERT_LE(std::abs(difference), 6) << std::hex << pixel;
            }
        }
    }
    /// Makes the image on show one that has not been saved, with this colour.
    void MakeUnsaved(int width, int height, Pixel colour) {
        View().MainImage.Picture = PlainPicture(width, height, colour);
        platform.pictures.SaveBitmap(View().MainImage.Image().pixels->Whole(), Working);
        View().imageOnShow.Become(Working);
    }
    /// How often a service was asked for something, counted by the start of the note.
    [[nodiscard]] long Asked(const std::string& start) const {
        return std::ranges::count_if(platform.faults.Log(),
                                     [&start](const std::string& call) { return call.starts_with(start); });
    }

    const std::string gifBytes;
};

}  // namespace tavrix::test
