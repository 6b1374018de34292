#include "imaging/vector/FontFinder.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <mutex>
#include <span>

#include "base/Text.h"
#include "imaging/vector/FontFamilies.h"

#if defined(__SANITIZE_ADDRESS__)
#define TAVRIX_FINDS_LEAKS
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TAVRIX_FINDS_LEAKS
#endif
#endif

#ifdef TAVRIX_FINDS_LEAKS
// The library loses a few bytes, once, when it reads its settings.
extern "C" const char*
__lsan_default_suppressions();  // NOLINT(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C" const char*
__lsan_default_suppressions() {  // NOLINT(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
    return "leak:libfontconfig\n";
}
#endif

namespace tavrix::vector {
namespace {

struct ReleasePattern {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, ReleasePattern>;

struct ReleaseCharacters {
    void operator()(FcCharSet* characters) const { FcCharSetDestroy(characters); }
};
using Characters = std::unique_ptr<FcCharSet, ReleaseCharacters>;

const FcChar8* ToText(const std::string& text) {
    return reinterpret_cast<const FcChar8*>(text.c_str());
}

Pattern PatternOf(const FontRequest& request, char32_t character) {
    Pattern pattern(FcPatternCreate());
    if (!pattern) return pattern;
    if (!request.family.empty()) FcPatternAddString(pattern.get(), FC_FAMILY, ToText(request.family));
    for (const std::string_view name : StandInsFor(request))
        FcPatternAddString(pattern.get(), FC_FAMILY, ToText(std::string(name)));
    const int weight = std::clamp(request.weight == 0 ? 400 : request.weight, 1, 1000);
    FcPatternAddInteger(pattern.get(), FC_WEIGHT, FcWeightFromOpenType(weight));
    FcPatternAddInteger(pattern.get(), FC_SLANT, request.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(pattern.get(), FC_OUTLINE, FcTrue);
    FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
    if (character != 0) {
        const Characters characters(FcCharSetCreate());
        if (characters && FcCharSetAddChar(characters.get(), character))
            FcPatternAddCharSet(pattern.get(), FC_CHARSET, characters.get());
    }
    return pattern;
}

FoundFont FontIn(FcPattern* match, const FontRequest& request) {
    FoundFont found;
    FcChar8* text = nullptr;
    FcBool outline = FcTrue;
    FcPatternGetBool(match, FC_OUTLINE, 0, &outline);
    if (!outline || FcPatternGetString(match, FC_FILE, 0, &text) != FcResultMatch) return found;
    found.path = reinterpret_cast<const char*>(text);
    FcPatternGetInteger(match, FC_INDEX, 0, &found.index);
    for (int i = 0; FcPatternGetString(match, FC_FAMILY, i, &text) == FcResultMatch; ++i)
        found.sameFamily =
            found.sameFamily || EqualIgnoringCase(reinterpret_cast<const char*>(text), request.family);
    int value = 0;
    if (FcPatternGetInteger(match, FC_WEIGHT, 0, &value) == FcResultMatch)
        found.bold = value >= FC_WEIGHT_DEMIBOLD;
    if (FcPatternGetInteger(match, FC_SLANT, 0, &value) == FcResultMatch)
        found.slanted = value != FC_SLANT_ROMAN;
    return found;
}

/// Those of all outline fonts.
Characters CharactersIn(FcConfig* config) {
    Characters all(FcCharSetCreate());
    const FcFontSet* fonts = config == nullptr ? nullptr : FcConfigGetFonts(config, FcSetSystem);
    if (!all || fonts == nullptr) return all;
    for (FcPattern* font : std::span(fonts->fonts, static_cast<std::size_t>(fonts->nfont))) {
        FcBool outline = FcFalse;
        FcCharSet* characters = nullptr;
        if (FcPatternGetBool(font, FC_OUTLINE, 0, &outline) == FcResultMatch && outline &&
            FcPatternGetCharSet(font, FC_CHARSET, 0, &characters) == FcResultMatch)
            FcCharSetMerge(all.get(), characters, nullptr);
    }
    return all;
}

}  // namespace

class FontFinder::Catalogue {
  public:
    Catalogue() {
        // The whole process shares the catalogue, and two threads may come for it at once.
        static std::mutex loading;
        const std::scoped_lock lock(loading);
        config_.reset(FcConfigReference(nullptr));
    }
    [[nodiscard]] FcConfig* Get() const { return config_.get(); }
    [[nodiscard]] bool Knows(char32_t character) {
        if (!characters_) characters_ = CharactersIn(Get());
        return !characters_ || FcCharSetHasChar(characters_.get(), character);
    }

  private:
    struct Release {
        void operator()(FcConfig* config) const { FcConfigDestroy(config); }
    };
    std::unique_ptr<FcConfig, Release> config_;
    Characters characters_;
};

FontFinder::FontFinder() = default;
FontFinder::~FontFinder() = default;

FontFinder::Catalogue& FontFinder::Opened() {
    if (!catalogue_) catalogue_ = std::make_unique<Catalogue>();
    return *catalogue_;
}

bool FontFinder::Knows(char32_t character) {
    return Opened().Knows(character);
}

FoundFont FontFinder::Find(const FontRequest& request, char32_t character) {
    FcConfig* config = Opened().Get();
    if (config == nullptr) return {};
    const Pattern pattern = PatternOf(request, character);
    if (!pattern || !FcConfigSubstitute(config, pattern.get(), FcMatchPattern)) return {};
    FcDefaultSubstitute(pattern.get());
    FcResult result = FcResultNoMatch;
    const Pattern match(FcFontMatch(config, pattern.get(), &result));
    return match ? FontIn(match.get(), request) : FoundFont{};
}

}  // namespace tavrix::vector
