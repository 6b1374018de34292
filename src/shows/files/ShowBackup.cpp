#include "shows/files/ShowBackup.h"

#include <cstdint>
#include <string_view>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/services/DrivePath.h"
#include "shows/SlideEditor.h"
#include "core/PutAside.h"
#include "shows/files/ReadShowFile.h"

namespace tavrix {
namespace {

/// A number that tells shows of one name in different folders apart (FNV-1a, 64 bits, in hexadecimal digits).
std::string Fingerprint(std::string_view text) {
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const char byte : text)
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
    constexpr int bitsOfADigit = 4;
    std::string digits;
    for (int shift = 64 - bitsOfADigit; shift >= 0; shift -= bitsOfADigit)
        digits.push_back("0123456789ABCDEF"[(hash >> static_cast<unsigned>(shift)) & 0xFU]);
    return digits;
}

std::string BackupPath(const MainModule& module, const std::string& path) {
    constexpr std::size_t charactersThatFit = 50;  // into a name of 255 bytes
    return module.AppPath + "Backup of " + Left(FileNameOf(path), charactersThatFit) + " (" +
           Fingerprint(UpperCase(NormalPath(path))) + ").bak";
}

enum class Content : std::uint8_t {
    Nothing,  ///< there is no file, or it is empty
    Show,     ///< it reads back, all of it
    Cut,      ///< it has more slides than there is room for
    Broken,   ///< there is no whole show in it
    Unknown   ///< it could not be read
};

Content ContentOf(const MainModule& module, const std::string& path) {
    Files& files = module.platform.files;
    ShowRecord record;
    const ShowFileReading reading = ReadShowFile(files, path, record);
    if (reading.Whole()) return Content::Show;
    if (reading.end == ShowFileEnd::Complete) return Content::Cut;
    if (!reading.why) return Content::Broken;
    switch (reading.why->Number()) {
        case ErrorNumber::FileNotFound:
        case ErrorNumber::PathNotFound:
            return Content::Nothing;
        case ErrorNumber::InputPastEnd:
        case ErrorNumber::TypeMismatch:
        case ErrorNumber::Overflow:
        case ErrorNumber::OutOfMemory:
            break;
        default:
            return Content::Unknown;
    }
    bool empty = false;
    SkipFailure([&] { empty = files.Info(path).length == 0; });
    return empty ? Content::Nothing : Content::Broken;
}

}  // namespace

ShowBackup::ShowBackup(const MainModule& module, const std::string& path)
    : module_(module), path_(path), copy_(BackupPath(module, path)) {
    SlideEditor* editor = LoadedEditor(module_.app);
    const Content former = ContentOf(module_, path_);
    const bool seenWhole = editor == nullptr || !editor->HasReadInPart(path_);
    safe_ = former == Content::Nothing;
    if (safe_ || (former == Content::Show && seenWhole)) return;
    PutAside(module_, path_);
    safe_ = true;
    if (editor != nullptr) editor->NoteReading(path_, true);  // what comes there now is the editor's own
}

void ShowBackup::Keep() {
    if (safe_) return;
    const Content kept = ContentOf(module_, copy_);
    safe_ = kept == Content::Show || kept == Content::Cut;
    if (safe_ || kept == Content::Unknown) return;
    SkipFailure([&] {  // the show can be saved as a whole all the same
        module_.platform.files.Copy(path_, copy_);
        safe_ = true;
    });
}

void ShowBackup::Discard() {
    Files& files = module_.platform.files;
    if (files.FileExists(copy_)) SkipFailure([&] { files.Delete(copy_); });
}

}  // namespace tavrix
