#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace tavrix {

/// The bytes of a wave file.
struct WaveBytes {
    int format = 1;  ///< 1 PCM, 7 mu-law, 17 IMA ADPCM
    int channels = 2;
    int samplesASecond = 44100;
    int bits = 16;
    int blockAlign = 4;
    std::string extra{};  ///< of the format chunk, behind its size
    std::string samples{};

    [[nodiscard]] std::string Bytes() const {
        std::string fmt = Number(format, 2) + Number(channels, 2) + Number(samplesASecond, 4) +
                          Number(samplesASecond * blockAlign, 4) + Number(blockAlign, 2) + Number(bits, 2);
        if (!extra.empty()) fmt += Number(static_cast<std::int64_t>(extra.size()), 2) + extra;
        const std::string body = "WAVE" + Chunk("fmt ", fmt) + Chunk("data", samples);
        return Chunk("RIFF", body);
    }

    /// Little-endian.
    static std::string Number(std::int64_t value, int bytes) {
        std::string text;
        for (int i = 0; i < bytes; ++i)
            text.push_back(static_cast<char>(value >> (8 * i) & 0xFF));
        return text;
    }

  private:
    static std::string Chunk(const char* name, const std::string& content) {
        return name + Number(static_cast<std::int64_t>(content.size()), 4) + content;
    }
};

}  // namespace tavrix
