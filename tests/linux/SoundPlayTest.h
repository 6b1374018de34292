#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

#include "TestFolder.h"
#include "WaveBytes.h"
#include "backends/linux/DriveMap.h"
#include "backends/linux/HostFiles.h"
#include "backends/linux/HostSound.h"

namespace tavrix {

/// Sounds go to a file in place of a device: what is in it was played.
class SoundPlayTest : public testing::Test {
  protected:
    static constexpr const char* SystemFonts = "/usr/share/sounds/sf2";

    SoundPlayTest() {
        files.ChangeDrive("C");
        sound.OnFailure = [this](const std::string& text) { told.push_back(text); };
    }

    /// Waits for a condition of the driver's thread.
    static bool Comes(const std::function<bool()>& condition) {
        const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!condition()) {
            if (std::chrono::steady_clock::now() > limit) return false;
            const timespec millisecond{0, 1'000'000};
            ::nanosleep(&millisecond, nullptr);
        }
        return true;
    }
    /// What was played, from the first sound on: the device plays silence until it is told to begin.
    [[nodiscard]] std::string Played(char silence = '\0') const {
        const std::string all = folder.Content("played");
        return all.substr(std::min(all.find_first_not_of(silence), all.size()));
    }
    /// The file grows while it is waited for, and is begun anew with each device: so it is read again only once it has
    /// grown by a half, or grows no more.
    [[nodiscard]] bool ComesToPlay(std::size_t bytes, char silence = '\0') const {
        std::uintmax_t next = bytes;
        std::uintmax_t last = 0;
        int still = 0;
        return Comes([&] {
            constexpr int Ended = 100;  // milliseconds
            std::error_code error;
            const std::uintmax_t size = std::filesystem::file_size(folder.At("played"), error);
            still = size == last ? still + 1 : 0;
            last = size;
            if (error || size < bytes || (size < next && still != Ended)) return false;
            next = size + size / 2;
            return Played(silence).size() >= bytes;
        });
    }
    /// 16-bit samples that all differ, so that a shift by one shows.
    static std::string Samples(int count, int first = 1) {
        std::string bytes;
        for (int i = 0; i < count; ++i)
            bytes += WaveBytes::Number(first + i, 2);
        return bytes;
    }
    static std::string Repeated(const std::string& text, std::size_t bytes) {
        std::string all;
        while (all.size() < bytes)
            all += text;
        return all.substr(0, bytes);
    }
    void PutWave(const std::string& name, const std::string& samples) const {
        folder.Put(name, WaveBytes{.samples = samples}.Bytes());
    }
    /// A note of a second and a half, after which the file ends.
    void PutMidi(const std::string& name) const {
        const std::string track = {'\0', '\x90', 60, 127,    '\x8B', '\x20', '\x80',
                                   60,   0,      0,  '\xFF', '\x2F', 0};
        folder.Put(name, std::string("MThd\0\0\0\6\0\0\0\1\1\xE0", 14) + std::string("MTrk\0\0\0", 7) +
                             static_cast<char>(track.size()) + track);
    }

    TestFolder folder;
    ScopedVariable driver{"SDL_AUDIODRIVER", "disk"};
    ScopedVariable output{"SDL_DISKAUDIOFILE", folder.At("played")};
    ScopedVariable delay{"SDL_DISKAUDIODELAY", "2"};
    DriveMap drives{[this] {
        DriveMap::Sources sources;
        sources.drives = "C=" + folder.Path();
        return sources;
    }()};
    HostFiles files{drives, {}};
    HostSound::Places places{folder.At("snd"), "", SystemFonts, "disk"};
    HostSound sound{files, drives, places};
    std::vector<std::string> told;
};

}  // namespace tavrix
