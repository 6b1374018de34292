#include "platform/services/BesideCopy.h"

namespace tavrix {
namespace {

class Standing final : public BesideCopy {
  public:
    void Finish() override {}
};

}  // namespace

std::unique_ptr<BesideCopy> StandingCopy() {
    return std::make_unique<Standing>();
}

std::unique_ptr<BesideCopy> BeginCopy(Files& files, const std::string& from, const std::string& to) {
    if (auto* copies = dynamic_cast<BesideCopies*>(&files)) return copies->BeginCopy(from, to);
    files.Copy(from, to);
    return StandingCopy();
}

}  // namespace tavrix
