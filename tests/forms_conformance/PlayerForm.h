#pragma once

#include "backends/headless/HeadlessServices.h"
#include "codecs/Decoding.h"
#include "codecs/GifFile.h"
#include "forms_conformance/ConformanceTest.h"
#include "platform/forms/GifPlayer.h"
#include "platform/forms/Twips.h"

namespace tavrix::conformance {

/// A window with a player, and an image above it.
class PlayerForm final : public forms::Form {
  public:
    PlayerForm(forms::Application& application, Pictures& pictures)
        : Form(application, {.name = "PlayerForm"}), Gif89a1(*this, "Gif89a1", pictures) {
        BackColor = Colour{0x400000};
        Image1.Visible = false;
    }

    forms::GifPlayer Gif89a1;
    forms::Image Image1{*this, "Image1"};

    void Form_Load() override { Move(300, 300, 9000, 7500); }
};

/// Tests on such a window, with animations in memory.
class PlayerTest : public ConformanceTest {
  protected:
    static constexpr const char* Path = "C:\\p\\a.gif";

    /// A frame of one colour, so many hundredths of a second long, as large as the screen of the file.
    static test::GifImage Plain(unsigned index, unsigned delay) {
        return {.width = 4,
                .height = 4,
                .pixels = std::vector<unsigned>(16, index),
                .control = true,
                .disposal = 1,
                .delay = delay};
    }
    static test::GifFile FileOf(std::vector<test::GifImage> images) {
        return {.width = 4,
                .height = 4,
                .table = {test::BlackPixel, test::Red, test::Green, test::Blue},
                .images = std::move(images)};
    }
    void Put(const test::GifFile& file, const std::string& path = Path) {
        const std::vector<std::byte> bytes = file.Make();
        platform.disks.PutFile(path, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    }
    void Show() {
        form.Show();
        driver->Settle();
    }
    Pixel Shown(int x = 2, int y = 2) { return Bare(driver->ShownPixel(form.Gif89a1, x, y)); }
    static Pixel Bare(Pixel pixel) { return pixel & 0xFFFFFFU; }
    float Twips(int pixels) { return forms::ToTwips(pixels, app.Screen().TwipsPerPixelX()); }

    static constexpr Pixel RedShown = test::Red & 0xFFFFFFU;
    static constexpr Pixel GreenShown = test::Green & 0xFFFFFFU;
    static constexpr Pixel BlueShown = test::Blue & 0xFFFFFFU;
    static constexpr Pixel BackShown = 0x000040U;

    headless::HeadlessServices platform;
    PlayerForm& form = app.Load<PlayerForm>(platform.pictures);
    forms::GifPlayer& player = form.Gif89a1;
};

}  // namespace tavrix::conformance
