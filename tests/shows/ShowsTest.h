#pragma once

#include <string>
#include <vector>

#include "support/ProgramFixture.h"

namespace tavrix::test {

/// A program with shows on its disk.
class ShowsTest : public ProgramFixture {
  protected:
    static constexpr const char* ShowPath = "C:\\Shows\\s.tvs";

    using Texts = std::vector<std::string>;

    static std::string Lines(const Texts& lines) {
        std::string text;
        for (const std::string& line : lines)
            text += line + "\r\n";
        return text;
    }
    static std::string Quoted(const std::string& text) { return "\"" + text + "\""; }

    /// Signature, version and options of a show, each option unlike what the settings begin with.
    static std::string Header() {
        return Lines({Quoted("Tavrix Slide Show"), Quoted("Version 1.5"), "1", Quoted("C:\\m\\a.wav"), "3",
                      "-1", "7", "-1", "-1", "-1", "0", "0"});
    }
    static std::string OldHeader() {
        return Lines({Quoted("Tavrix Slide Show"), Quoted("Version 1.X"), "2", Quoted(""), "12", "-1", "9",
                      "-1", "-1"});
    }
    /// The lines of slides and their descriptions, in turns.
    static std::string Slides(const Texts& texts) {
        std::string lines;
        for (const std::string& text : texts)
            lines += Quoted(text) + "\r\n";
        return lines;
    }

    void PutShow(const std::string& content, const std::string& path = ShowPath) {
        platform.disks.PutFile(path, content);
    }

    [[nodiscard]] Texts SlideFiles() const { return TextsOf(module.show.SlideFiles); }
    /// As many as there are slides.
    [[nodiscard]] Texts SlideDescriptions() const { return TextsOf(module.show.SlideDescriptions); }

    void ExpectStop(const std::string& text, bool systemModal = false) {
        Expect({.text = text, .icon = forms::BoxIcon::Stop, .systemModal = systemModal});
    }
    void ExpectExclamation(const std::string& text) {
        Expect({.text = text, .icon = forms::BoxIcon::Exclamation, .systemModal = true});
    }

    [[nodiscard]] static bool SameOptions(const AppConfig& a, const AppConfig& b) {
        const auto options = [](const AppConfig& c) {
            return std::tie(c.SoundMode, c.SoundFile, c.CDTrack, c.SoundLoop, c.SlideInterval, c.RandomSlides,
                            c.ShowFilenames, c.ShowDescription, c.LoopSlideShow, c.AnimateGIF89);
        };
        return options(a) == options(b);
    }

  private:
    [[nodiscard]] Texts TextsOf(const SlideTexts& slots) const {
        Texts texts;
        for (int i = 0; i < module.show.SlideFiles.FirstEmpty(); ++i)
            texts.push_back(slots[i]);
        return texts;
    }
};

}  // namespace tavrix::test
