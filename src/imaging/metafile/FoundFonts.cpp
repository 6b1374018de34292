#include "imaging/metafile/FoundFonts.h"

namespace tavrix::metafile {
namespace {

constexpr std::size_t MostKept = 256;
constexpr std::int64_t SearchCost = 300'000;

std::string KeyOf(const vector::FontRequest& request) {
    std::string key = request.family;
    const auto add = [&](double number) { key += '\n' + std::to_string(number); };
    add(request.height);
    add(request.width);
    add(request.weight);
    add(request.escapement);
    add(request.orientation);
    add(static_cast<double>(request.kind));
    for (const bool flag :
         {request.italic, request.underline, request.strikeOut, request.fixedPitch, request.symbol})
        key += flag ? '1' : '0';
    return key;
}

}  // namespace

std::shared_ptr<vector::Font> FoundFonts::Find(const vector::FontRequest& request,
                                               vector::WorkBudget& budget) {
    const std::string key = KeyOf(request);
    if (const auto known = found_.find(key); known != found_.end()) return known->second;
    if (!budget.Spend(SearchCost)) return nullptr;
    if (found_.size() == MostKept) found_.clear();
    return found_[key] = book_.Find(request);
}

}  // namespace tavrix::metafile
