#include "shows/files/SavePlan.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "platform/services/DrivePath.h"
#include "shows/files/CopyNames.h"

namespace tavrix {
namespace {

using Form = StoredFile::Form;

bool HasDrive(const std::string& path) {
    return path.find(':') != std::string::npos;
}

StoredFile Unplanned(const std::string& path) {
    StoredFile file;
    file.path = path;
    return file;
}

/// How files are stored, by the folder that is saved to and the one that they have been seen from.
class Storing {
  public:
    Storing(Files& files, bool copies, const ShowFolder& folder, const ShowFolder& former)
        : files_(files), copies_(copies), folder_(folder), former_(former) {}

    [[nodiscard]] StoredFile Slide(const std::string& path) const {
        StoredFile file = Found(path);
        if (StoreRelative(file)) return file;
        const bool bareName = NormalPath(file.source).find('\\') == std::string::npos;
        if (copies_ && !bareName) {
            file.form = Form::Copied;
            file.stored = FileNameOf(file.source);
        }
        return file;
    }

    [[nodiscard]] StoredFile Sound(const ShowOptions& options) const {
        StoredFile file = Found(options.SoundFile);
        // What is seen from the folder and not there may still be in the current one.
        const bool here = file.source != file.path && !files_.FileExists(file.source);
        if (here) file.source = file.path;
        if (file.path.empty() || options.SoundMode != 1 || !copies_ || StoreRelative(file)) return file;
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
        } else if (files_.FileExists(full)) {
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

    Files& files_;
    bool copies_;
    const ShowFolder& folder_;
    const ShowFolder& former_;
    const bool moves_ = !EqualIgnoringCase(former_.Path(), folder_.Path());  ///< into another folder
};

}  // namespace

SavePlan TakeShow(const MainModule& module) {
    const SlideShow& show = module.show;
    SavePlan plan{.options = module.config,
                  .sound = Unplanned(module.config.SoundFile),
                  .slides = {},
                  .copies = module.config.SaveSlides};
    const int count = std::min<int>(show.SlideCount, SlideTexts::Slots);
    plan.slides.reserve(static_cast<std::size_t>(std::max(count, 0)));
    for (int i = 0; i < count; ++i)
        plan.slides.push_back({Unplanned(show.SlideFiles[i]), show.SlideDescriptions[i]});
    return plan;
}

bool PlanFiles(SavePlan& plan, const MainModule& module, const ShowFolder& folder, const std::string& name,
               const ShowFolder& former, const GoOn& goOn) {
    Files& files = module.platform.files;
    const Storing storing(files, plan.copies, folder, former);
    plan.sound = storing.Sound(plan.options);
    for (StoredSlide& slide : plan.slides) {
        slide.file = storing.Slide(slide.file.path);
        if (!goOn()) return false;
    }
    plan.options.SoundFile = plan.sound.stored;
    if (!plan.copies) return true;

    CopyNames names(files, folder, goOn);
    names.Reserve(name);
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
        if (!goOn()) return false;
    }
    plan.options.SoundFile = plan.sound.stored;
    return true;
}

ShowFileEncoding EncodingOf(const SavePlan& plan) {
    ShowFileEncoding encoding;
    encoding.Add(plan.options.SoundFile);
    for (const StoredSlide& slide : plan.slides) {
        encoding.Add(slide.file.stored);
        encoding.Add(slide.description);
    }
    return encoding;
}

}  // namespace tavrix
