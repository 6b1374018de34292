#include "shows/files/SavePlan.h"

#include <algorithm>
#include <map>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "platform/services/DrivePath.h"
#include "shows/files/PutAside.h"

namespace tavrix {
namespace {

using Form = StoredFile::Form;

bool HasDrive(const std::string& path) {
    return path.find(':') != std::string::npos;
}

/// "a.bmp" with a number: "a (2).bmp".
std::string Numbered(const std::string& name, int number) {
    const std::size_t dot = name.rfind('.');
    const std::size_t end = dot == std::string::npos || dot == 0 ? name.size() : dot;
    return name.substr(0, end) + " (" + std::to_string(number) + ")" + name.substr(end);
}

/// How files are stored, by the folder that is saved to and the one that they have been seen from.
class Storing {
  public:
    Storing(const MainModule& module, const ShowFolder& folder, const ShowFolder& former)
        : module_(module), folder_(folder), former_(former) {}

    [[nodiscard]] StoredFile Slide(const std::string& path) const {
        StoredFile file = Found(path);
        if (StoreRelative(file)) return file;
        const bool bareName = NormalPath(file.source).find('\\') == std::string::npos;
        if (module_.config.SaveSlides && !bareName) {
            file.form = Form::Copied;
            file.stored = FileNameOf(file.source);
        }
        return file;
    }

    [[nodiscard]] StoredFile Sound() const {
        const AppConfig& config = module_.config;
        StoredFile file = Found(config.SoundFile);
        // What is seen from the folder and not there may still be in the current one.
        const bool here = file.source != file.path && !module_.platform.files.FileExists(file.source);
        if (here) file.source = file.path;
        if (file.path.empty() || config.SoundMode != 1 || !config.SaveSlides || StoreRelative(file))
            return file;
        file.form = Form::Copied;
        file.stored = FileNameOf(file.source);
        return file;
    }

  private:
    /// Where the file is; stored as it is, or by its full path where it would be looked for in another folder from now on.
    [[nodiscard]] StoredFile Found(const std::string& path) const {
        StoredFile file{.path = path, .source = path, .stored = path, .kept = path};
        if (former_.Path().empty() || path.empty() || HasDrive(path)) return file;
        const std::string full = former_.SlidePath(path);
        if (!moves_) {
            file.source = full;
        } else if (module_.platform.files.FileExists(full)) {
            file.source = file.stored = file.kept = full;
        }
        return file;
    }

    [[nodiscard]] bool StoreRelative(StoredFile& file) const {
        auto relative = folder_.Relative(file.source);
        if (!relative) return false;
        file.stored = *std::move(relative);
        file.form = Form::Relative;
        return true;
    }

    const MainModule& module_;
    const ShowFolder& folder_;
    const ShowFolder& former_;
    const bool moves_ = !EqualIgnoringCase(former_.Path(), folder_.Path());  ///< into another folder
};

/// The names in the show's folder, and whose they are once the save is done.
class CopyNames {
  public:
    CopyNames(Files& files, const ShowFolder& folder) : files_(files), folder_(folder) {}

    /// What has this name directly in the folder keeps it.
    void Reserve(const std::string& name) {
        if (name.find('\\') == std::string::npos) owners_.try_emplace(UpperCase(name), folder_.Path() + name);
    }

    /// Gives a file that is copied a name of its own, the same for each place that it has in the show.
    void Name(StoredFile& file) {
        if (!CanName(file.stored)) return;  // to fail when it is copied
        const std::string source = UpperCase(NormalPath(file.source));
        const auto known = given_.find(source);
        file.stored = known == given_.end() ? NewName(file) : known->second;
        given_.try_emplace(source, file.stored);
    }

  private:
    std::string NewName(const StoredFile& file) {
        const std::string& wanted = file.stored;
        const auto [owner, isFree] = owners_.try_emplace(UpperCase(wanted), file.source);
        if (isFree || files_.Same(owner->second, file.source) || Equal(file, owner->second)) return wanted;
        int& number = numbers_.try_emplace(UpperCase(wanted), 1).first->second;
        for (;;) {
            std::string name = Numbered(wanted, ++number);
            const std::string place = folder_.Path() + name;
            const bool used =
                owners_.contains(UpperCase(name)) || (files_.FileExists(place) && !Equal(file, place));
            if (used) continue;
            owners_.try_emplace(UpperCase(name), file.source);
            return name;
        }
    }

    /// Whether one can stand for the other, such as the copy that a former save has made.
    [[nodiscard]] bool Equal(const StoredFile& file, const std::string& other) const {
        bool equal = false;
        SkipFailure([&] { equal = SameContent(files_, file.source, other); });
        return equal;
    }

    Files& files_;
    const ShowFolder& folder_;
    std::map<std::string, std::string> owners_;  ///< by name, in upper case
    std::map<std::string, std::string> given_;   ///< names by source, in upper case
    std::map<std::string, int> numbers_;         ///< the last that was tried, by name
};

}  // namespace

bool CanName(const std::string& name) {
    return !name.empty() && name != "." && name != "..";
}

SavePlan PlanSave(const MainModule& module, const ShowFolder& folder, const std::string& name,
                  const ShowFolder& former) {
    const SlideShow& show = module.show;
    const Storing storing(module, folder, former);
    SavePlan plan{.options = module.config, .sound = storing.Sound(), .slides = {}};
    const int count = std::min<int>(show.SlideCount, SlideTexts::Slots);
    plan.slides.reserve(static_cast<std::size_t>(std::max(count, 0)));
    for (int i = 0; i < count; ++i)
        plan.slides.push_back({storing.Slide(show.SlideFiles[i]), show.SlideDescriptions[i]});

    CopyNames names(module.platform.files, folder);
    names.Reserve(name);
    if (module.config.SaveSlides) {
        for (const StoredSlide& slide : plan.slides) {
            if (slide.file.form != Form::Copied) names.Reserve(slide.file.stored);
        }
        if (plan.sound.form == Form::Copied) {
            names.Name(plan.sound);
        } else {
            names.Reserve(plan.sound.stored);
        }
        for (StoredSlide& slide : plan.slides) {
            if (slide.file.form == Form::Copied) names.Name(slide.file);
        }
    }
    plan.options.SoundFile = plan.sound.stored;
    return plan;
}

}  // namespace tavrix
