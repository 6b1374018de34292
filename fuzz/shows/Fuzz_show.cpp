#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "backends/headless/HeadlessServices.h"
#include "backends/headless/HeadlessToolkit.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "shows/files/LoadShowFile.h"
#include "shows/files/SaverFile.h"
#include "shows/files/ShowFileFormat.h"
#include "shows/files/ShowFileReader.h"

namespace {

using namespace tavrix;

constexpr const char* Path = "C:\\Shows\\s.tvs";

void Require(bool condition) {
    if (!condition) std::abort();
}

/// A file that comes in parts of a size.
class PartsReader final : public FileReader {
  public:
    PartsReader(const std::string& content, std::size_t part) : content_(content), part_(part) {}

    std::size_t Read(std::span<std::byte> into) override {
        const std::size_t count = std::min({into.size(), part_, content_.size() - at_});
        if (count != 0) std::memcpy(into.data(), content_.data() + at_, count);
        at_ += count;
        return count;
    }

  private:
    const std::string& content_;
    std::size_t part_;
    std::size_t at_ = 0;
};

std::vector<std::string> Items(const std::string& content, std::size_t part) {
    ShowFileReader reader(std::make_unique<PartsReader>(content, part));
    std::vector<std::string> items;
    try {
        while (!reader.AtEnd())
            items.push_back(reader.Text());
    } catch (const RuntimeError& error) {
        Require(error.Number() == ErrorNumber::InputPastEnd);
    }
    return items;
}

/// A program with nothing but shows.
struct Machine {
    Machine() { platform.disks.PutFolder("C:\\Shows"); }

    headless::HeadlessServices platform;
    headless::HeadlessToolkit toolkit;
    forms::Application app{toolkit};
    MainModule module{app, platform.services};
};

/// A show that was read is written and read again; the slides must be the same then.
void WriteAndReadAgain(Machine& machine) {
    MainModule& module = machine.module;
    const SlideShow before = module.show;
    const int count = before.SlideFiles.FirstEmpty();
    if (count > SlideTexts::LastIndex) return;
    for (int i = 0; i < count; ++i) {
        if (before.SlideFiles[i].find('"') != std::string::npos) return;
        if (before.SlideDescriptions[i].find('"') != std::string::npos) return;
        Require(CharacterCount(before.SlideDescriptions[i]) <= ShowFileFormat::LongestDescription);
    }
    if (module.config.SoundFile.find('"') != std::string::npos) return;
    const std::string sound = module.config.SoundFile;
    const auto interval = module.config.SlideInterval;

    const int boxes = machine.toolkit.BoxesShown();
    WriteSaverFile(module, Path);
    Require(ReadSaverFile(module, Path).whole);
    Require(machine.toolkit.BoxesShown() == boxes);
    for (int i = 0; i <= count; ++i) {
        const bool last = i == count;
        Require(module.show.SlideFiles[i] == (last ? "" : before.SlideFiles[i]));
        Require(module.show.SlideDescriptions[i] == (last ? "" : before.SlideDescriptions[i]));
    }
    Require(module.config.SoundFile == sound && module.config.SlideInterval == interval);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string content(reinterpret_cast<const char*>(data), size);
    Require(Items(content, 1 + size % 7) == Items(content, content.size() + 1));

    Machine machine;
    machine.platform.disks.PutFile(Path, content);
    ShowRecord record;
    const ShowFileReading reading = ReadShowFile(machine.platform.files, Path, record);
    Require(reading.why.has_value() ==
            (reading.end == ShowFileEnd::NotOpened || reading.end == ShowFileEnd::HeaderFailed ||
             reading.end == ShowFileEnd::SlidesFailed));
    Require(machine.module.show.Empty());
    const bool holdsSlides = LoadShowFile(machine.module, Path);
    Require(holdsSlides == !machine.module.show.Empty());
    Require(record == ShowRecord{machine.module.show, machine.module.config});
    Require(machine.toolkit.BoxesShown() <= 2);
    Require(machine.platform.disks.Content(Path) == content);
    WriteAndReadAgain(machine);
    return 0;
}
