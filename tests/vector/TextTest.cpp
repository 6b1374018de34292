#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <thread>

#include "imaging/vector/FontFamilies.h"
#include "imaging/vector/FontFile.h"
#include "imaging/vector/FontFinder.h"
#include "imaging/vector/TextRun.h"
#include "vector/Canvas.h"
#include "vector/CffFont.h"

namespace tavrix {
namespace {

using namespace vector;
using test::Canvas;

FontRequest Asked(std::string family, double height) {
    FontRequest request;
    request.family = std::move(family);
    request.height = height;
    return request;
}

PixelRect InkBounds(const Canvas& canvas) {
    int left = 9999, top = 9999, right = -1, bottom = -1;
    for (int y = 0; y < canvas.surface.Height(); ++y)
        for (int x = 0; x < canvas.surface.Width(); ++x) {
            if (canvas.InkAt(x, y) < 64) continue;
            left = std::min(left, x);
            right = std::max(right, x + 1);
            top = std::min(top, y);
            bottom = std::max(bottom, y + 1);
        }
    return {left, top, right - left, bottom - top};
}

double InkOf(const Canvas& canvas) {
    double ink = 0;
    for (const Pixel pixel : canvas.surface.Pixels())
        ink += (255 - static_cast<int>(pixel & 0xFFU)) / 255.0;
    return ink;
}

/// Needs an outline font, of whatever family.
class Text : public testing::Test {
  protected:
    void SetUp() override {
        if (!book_.Find(Asked("Arial", -20)))
            GTEST_SKIP() << "NO OUTLINE FONT IS INSTALLED: text is not tested";
    }

    std::shared_ptr<Font> FontOf(const FontRequest& request) { return book_.Find(request); }
    TextRun Run(const FontRequest& request, std::u32string_view text) {
        return LayOutText(FontOf(request), text);
    }

    FontBook book_;
};

TEST_F(Text, AHeightAboveZeroIsThatOfALine) {
    const auto font = FontOf(Asked("Arial", 40));
    EXPECT_NEAR(font->Ascent() + font->Descent(), 40, 1e-9);
    EXPECT_GT(font->Ascent(), font->Descent());
    EXPECT_GT(font->Descent(), 0);
}

TEST_F(Text, AHeightBelowZeroIsThatOfTheCharacters) {
    const auto font = FontOf(Asked("Arial", -40));
    EXPECT_NEAR(font->Ascent() + font->Descent() - font->InternalLeading(), 40, 1e-9);
    const auto line = FontOf(Asked("Arial", 40));
    EXPECT_LT(line->Advance(U'M'), font->Advance(U'M'));
    EXPECT_NEAR(FontOf(Asked("Arial", 0))->Advance(U'M') * 40 / 12, font->Advance(U'M'), 1e-6);
}

TEST_F(Text, AWidthIsTheAverageOfTheCharacters) {
    FontRequest request = Asked("Arial", -20);
    const auto natural = FontOf(request);
    request.width = natural->AverageWidth() * 2;
    const auto wide = FontOf(request);
    EXPECT_NEAR(wide->AverageWidth(), request.width, 1e-9);
    EXPECT_NEAR(wide->Advance(U'm'), natural->Advance(U'm') * 2, 1e-6);
    EXPECT_NEAR(wide->Ascent(), natural->Ascent(), 1e-9);
}

TEST_F(Text, StandsOnItsBaseline) {
    Canvas canvas(40, 60);
    canvas.painter.DrawText(Run(Asked("Arial", -40), U"H"), Affine::Shift(5, 50), test::BlackBrush);
    const PixelRect ink = InkBounds(canvas);
    EXPECT_EQ(ink.top + ink.height, 50);
    EXPECT_NEAR(ink.height, 40 * 0.72, 3);
    EXPECT_GE(ink.left, 5);
}

TEST_F(Text, AlignmentMovesTheReferencePoint) {
    const FontRequest request = Asked("Arial", -30);
    TextRun run = Run(request, U"HxH");
    const double width = run.width;
    EXPECT_NEAR(width, run.font->Advance(U'H') * 2 + run.font->Advance(U'x'), 1e-9);
    Align(run, TextHorizontal::Left, TextVertical::Baseline);
    EXPECT_EQ(run.cells.left, 0);
    EXPECT_EQ(run.advance, width);

    Align(run, TextHorizontal::Right, TextVertical::Top);
    EXPECT_NEAR(run.cells.right, 0, 1e-9);
    EXPECT_NEAR(run.cells.top, 0, 1e-9);
    EXPECT_EQ(run.advance, -width);

    TextRun centred = Run(request, U"HxH");
    Align(centred, TextHorizontal::Centre, TextVertical::Bottom);
    EXPECT_NEAR(centred.cells.left, -width / 2, 1e-9);
    EXPECT_NEAR(centred.cells.bottom, 0, 1e-9);
    EXPECT_EQ(centred.advance, 0);
    Canvas canvas(120, 60);
    canvas.painter.DrawText(centred, Affine::Shift(60, 50), test::BlackBrush);
    const PixelRect ink = InkBounds(canvas);
    EXPECT_NEAR(ink.left - (60 - width / 2), 60 + width / 2 - (ink.left + ink.width), 3);
}

TEST_F(Text, StepsPlaceTheCharacters) {
    const auto font = FontOf(Asked("Arial", -20));
    const std::vector<double> steps{50, 7};
    const TextRun run = LayOutText(font, U"abc", steps);
    EXPECT_EQ(run.glyphs[1].origin, (Point{50, 0}));
    EXPECT_EQ(run.glyphs[2].origin, (Point{57, 0}));
    EXPECT_NEAR(run.width, 57 + font->Advance(U'c'), 1e-9);

    const std::vector<Point> both{{10, 3}, {10, -5}};
    const TextRun wavy = LayOutText(font, U"abc", both);
    EXPECT_EQ(wavy.glyphs[2].origin, (Point{20, -2}));
}

TEST_F(Text, ExtraSpaceIsAddedToCharactersAndBlanks) {
    const auto font = FontOf(Asked("Arial", -20));
    const double own = LayOutText(font, U"a b c").width;
    EXPECT_NEAR(LayOutText(font, U"a b c", {}, 2).width, own + 10, 1e-9);
    EXPECT_NEAR(LayOutText(font, U"a b c", {}, 2, 3).width, own + 16, 1e-9);
}

TEST_F(Text, EscapementTurnsTheLineCounterClockwise) {
    FontRequest request = Asked("Arial", -20);
    request.escapement = request.orientation = 90;
    const TextRun run = Run(request, U"HHHH");
    Canvas canvas(60, 100);
    canvas.painter.DrawText(run, Affine::Shift(30, 90), test::BlackBrush);
    const PixelRect ink = InkBounds(canvas);
    EXPECT_NEAR(ink.height, run.width, 4);
    EXPECT_EQ(ink.left + ink.width, 30);  // the feet stand on the right
    EXPECT_LE(ink.top + ink.height, 90);
    const Point advance = AdvanceOf(run, Affine::Shift(30, 90));
    EXPECT_NEAR(advance.x, 0, 1e-9);
    EXPECT_NEAR(advance.y, -run.width, 1e-9);
}

TEST_F(Text, OrientationTurnsEachCharacter) {
    FontRequest request = Asked("Arial", -20);
    request.orientation = 90;
    Canvas canvas(100, 60);
    canvas.painter.DrawText(Run(request, U"IIII"), Affine::Shift(20, 40), test::BlackBrush);
    // Lying strokes one behind the other.
    const PixelRect ink = InkBounds(canvas);
    EXPECT_LT(ink.height, 8);
    EXPECT_GT(ink.width, 20);
}

TEST_F(Text, CellsFollowTheTurn) {
    FontRequest request = Asked("Arial", 20);
    request.escapement = 90;
    const TextRun run = Run(request, U"xx");
    const Box cells = CellsOf(run, Affine::Shift(50, 50)).Bounds();
    EXPECT_NEAR(cells.right - cells.left, 20, 0.51);
    EXPECT_NEAR(cells.bottom - cells.top, run.width, 1e-6);
    EXPECT_NEAR(cells.bottom, 50, 1e-6);
}

TEST_F(Text, UnderlineAndStrikeOutAreWholePixels) {
    FontRequest request = Asked("Arial", -20);
    const auto rowsOf = [&](const FontRequest& asked) {
        Canvas canvas(80, 40);
        canvas.painter.DrawText(Run(asked, U"        "), Affine::Shift(3, 25.3), test::BlackBrush);
        std::vector<int> rows;
        for (int y = 0; y < 40; ++y)
            if (canvas.InkAt(20, y) != 0) {
                EXPECT_EQ(canvas.InkAt(20, y), 255) << y;
                rows.push_back(y);
            }
        return rows;
    };
    EXPECT_TRUE(rowsOf(request).empty());
    request.underline = true;
    const auto under = rowsOf(request);
    ASSERT_FALSE(under.empty());
    EXPECT_GE(under.front(), 25);
    EXPECT_LE(under.back(), 30);
    request.underline = false;
    request.strikeOut = true;
    const auto struck = rowsOf(request);
    ASSERT_FALSE(struck.empty());
    EXPECT_LT(struck.back(), 24);
    EXPECT_GT(struck.front(), 12);
}

TEST_F(Text, AnUnderlineThroughADescenderLeavesNoHole) {
    FontRequest request = Asked("Arial", -60);
    request.underline = true;
    for (const char* family : {"Arial", "Nimbus Sans", "DejaVu Sans"}) {
        request.family = family;
        Canvas canvas(60, 100);
        const TextRun run = Run(request, U"g");
        canvas.painter.DrawText(run, Affine::Shift(5, 60), test::BlackBrush);
        const int row = static_cast<int>(60 + run.font->UnderlinePosition());
        for (int x = 6; x < 4 + static_cast<int>(run.width); ++x)
            EXPECT_EQ(canvas.InkAt(x, row), 255) << family << ' ' << x;
    }
}

TEST_F(Text, BoldIsBolderAndItalicLeans) {
    const auto inkOf = [&](const FontRequest& request) {
        Canvas canvas(200, 60);
        canvas.painter.DrawText(Run(request, U"HIll"), Affine::Shift(5, 45), test::BlackBrush);
        return InkOf(canvas);
    };
    FontRequest request = Asked("Arial", -40);
    const double normal = inkOf(request);
    request.weight = 700;
    EXPECT_GT(inkOf(request), normal * 1.2);
    request.weight = 400;
    request.italic = true;
    Canvas canvas(60, 60);
    canvas.painter.DrawText(Run(request, U"l"), Affine::Shift(5, 45), test::BlackBrush);
    const PixelRect ink = InkBounds(canvas);
    EXPECT_GT(ink.width, 6);
}

TEST_F(Text, MissingCharactersComeFromOtherFonts) {
    // Among all fonts that Debian's smallest set brings, one has Cyrillic letters and arrows.
    const auto font = FontOf(Asked("Nimbus Mono PS", -20));
    Path path;
    font->AddOutline(path, U'\u2192', {});
    EXPECT_FALSE(path.Empty());
    EXPECT_GT(font->Advance(U'\u2192'), 0);
}

TEST_F(Text, ACharacterOfNoFontIsKnownBeforeItIsLookedFor) {
    FontFinder finder;
    const FontRequest request = Asked("Arial", 20);
    for (const char32_t character : {U'A', U'\u00C4', U'\u0416', U'\u4E00'}) {
        const FoundFont found = finder.Find(request, character);
        const auto file = FontFile::Open(OpenFontLibrary(), found.path, found.index);
        ASSERT_NE(file, nullptr);
        EXPECT_EQ(finder.Knows(character), file->GlyphOf(character) != 0)
            << std::hex << std::uint32_t{character};
    }
    EXPECT_TRUE(finder.Knows(U'A'));
    EXPECT_FALSE(finder.Knows(0x10FFFE));
}

TEST_F(Text, SymbolsAreFoundByTheCharactersThatLookLikeThem) {
    FontRequest request = Asked("Symbol", -20);
    request.symbol = true;
    const auto font = FontOf(request);
    Path alpha;
    font->AddOutline(alpha, U'\uF061', {});
    EXPECT_FALSE(alpha.Empty());
    EXPECT_EQ(SymbolCharacter(SymbolSet::Symbol, 0x61), U'\u03B1');
    EXPECT_EQ(SymbolCharacter(SymbolSet::Symbol, 0x53), U'\u03A3');
    EXPECT_EQ(SymbolCharacter(SymbolSet::Symbol, 0x7E), U'\u223C');
    EXPECT_EQ(SymbolCharacter(SymbolSet::Symbol, 0x7F), U'\0');
    EXPECT_EQ(SymbolCharacter(SymbolSet::Symbol, 0xA5), U'\u221E');
    EXPECT_EQ(SymbolCharacter(SymbolSet::Symbol, 0xB7), U'\u2022');
    EXPECT_EQ(SymbolCharacter(SymbolSet::Symbol, 0xE5), U'\u2211');
    EXPECT_EQ(SymbolCharacter(SymbolSet::Symbol, 0xF2), U'\u222B');
    EXPECT_EQ(SymbolCharacter(SymbolSet::Symbol, 0xFE), U'\u23AD');
    EXPECT_EQ(SymbolCharacter(SymbolSet::Symbol, 0xFF), U'\0');
    EXPECT_EQ(SymbolCharacter(SymbolSet::Dingbats, 0xFC), U'\u2713');
    EXPECT_EQ(SymbolSetOf("WINGDINGS"), SymbolSet::Dingbats);
    EXPECT_EQ(SymbolSetOf("Arial"), SymbolSet::None);
}

TEST_F(Text, ClassicFamiliesHaveStandInsOfTheirKind) {
    const auto fixed = [&](const char* family) {
        const auto font = FontOf(Asked(family, -20));
        return font->Advance(U'i') == font->Advance(U'M');
    };
    EXPECT_TRUE(fixed("Courier New"));
    EXPECT_TRUE(fixed("FIXEDSYS"));
    EXPECT_FALSE(fixed("Arial"));
    EXPECT_FALSE(fixed("Tms Rmn"));
    FontRequest unknown = Asked("No Such Family", -20);
    unknown.fixedPitch = true;
    const auto font = FontOf(unknown);
    EXPECT_EQ(font->Advance(U'i'), font->Advance(U'M'));
    EXPECT_EQ(StandInsFor(Asked("HELV", 1)).front(), "Liberation Sans");
    for (const char* family :
         {"Times New Roman", "Times New Roman Cyr", "times new roman (W1)", "TimesNewRoman", "Times-Roman"}) {
        FontRequest request = Asked(family, 1);
        request.kind = FontKind::Swiss;
        EXPECT_EQ(StandInsFor(request).front(), "Liberation Serif") << family;
    }
    EXPECT_EQ(StandInsFor(Asked("Arial Narrow CE", 1)).front(), "Liberation Sans Narrow");
    EXPECT_EQ(StandInsFor(Asked("Romantic", 1)).front(), "Liberation Sans");
    FontRequest roman = Asked("", 1);
    roman.kind = FontKind::Roman;
    EXPECT_EQ(StandInsFor(roman).front(), "Liberation Serif");
}

TEST_F(Text, WildRequestsAndTextsAreTaken) {
    for (const double height : {std::nan(""), 1e300, -1e300, 1e-300}) {
        FontRequest request = Asked("Arial", height);
        request.width = height;
        request.escapement = request.orientation = height;
        request.weight = -7;
        request.underline = request.strikeOut = true;
        Canvas canvas(20, 20);
        const std::vector<double> steps{std::nan(""), 1e300, -1e300};
        TextRun run = LayOutText(FontOf(request), U"\u0001\U0010FFFFx", steps, std::nan(""), 1e300);
        Align(run, TextHorizontal::Centre, TextVertical::Top);
        canvas.painter.DrawText(run, {height, height, 1, height, 1e300, std::nan("")}, test::BlackBrush);
        EXPECT_FALSE(canvas.painter.Failed());
    }
}

TEST_F(Text, AFontOutlivesItsBook) {
    std::shared_ptr<Font> font;
    {
        FontBook book;
        font = book.Find(Asked("Arial", -20));
    }
    Path path;
    font->AddOutline(path, U'g', {});
    font->AddOutline(path, U'\u2192', {});
    EXPECT_FALSE(path.Empty());
}

TEST_F(Text, ManyRequestsAreAnsweredQuickly) {
    // As many different fonts and missing characters as a file can ask for.
    std::shared_ptr<Font> last;
    for (int i = 0; i < 20'000; ++i) {
        FontRequest request = Asked("Family " + std::to_string(i), -10 - i % 50);
        last = FontOf(request);
        ASSERT_TRUE(last);
    }
    for (char32_t character = 0x3000; character < 0x8000; ++character)
        (void)last->Advance(character);
}

TEST_F(Text, BooksMayBeUsedByManyThreads) {
    const auto widthOf = [] {
        FontBook book;
        const auto font = book.Find(Asked("Times New Roman", -20));
        return font ? LayOutText(font, U"The quick brown fox \u2192").width : 0;
    };
    const double expected = widthOf();
    std::vector<double> widths(8);
    {
        std::vector<std::jthread> threads;
        for (double& width : widths)
            threads.emplace_back([&width, widthOf] { width = widthOf(); });
    }
    for (const double width : widths)
        EXPECT_EQ(width, expected);
}

TEST(TextWithoutFonts, DrawsNothing) {
    TextRun run = LayOutText(nullptr, U"abc");
    Align(run, TextHorizontal::Right, TextVertical::Top);
    Canvas canvas(4, 4);
    canvas.painter.DrawText(run, {}, test::BlackBrush);
    EXPECT_EQ(canvas.Art(), test::Rows(4, "...."));
    EXPECT_TRUE(CellsOf(run, {}).Empty());
    EXPECT_EQ(AdvanceOf(run, {}), Point{});
}

/// The area of the figures by their corners and curves' ends: above 0 where they run against the clock, y upwards.
double AreaOf(const Path& path) {
    double area = 0;
    Point start;
    Point last;
    std::size_t at = 0;
    const auto to = [&](Point point) {
        area += (last.x * point.y - point.x * last.y) / 2;
        last = point;
    };
    for (const Path::Verb verb : path.Verbs()) {
        switch (verb) {
            case Path::Verb::Move:
                last = start = path.Points()[at++];
                break;
            case Path::Verb::Line:
                to(path.Points()[at++]);
                break;
            case Path::Verb::Cubic:
                to(path.Points()[at + 2]);
                at += 3;
                break;
            case Path::Verb::Close:
                to(start);
                break;
        }
    }
    return area;
}

/// Figures that end with a curve, as those of half the letters do.
TEST(CurvedFont, LosesNoGlyph) {
    using test::CffFont;
    const auto circle = [] {
        return CffFont::Glyph()
            .Move(100, 250)
            .Curve({0, -83, 67, -67, 83, 0})
            .Curve({83, 0, 67, 67, 0, 83})
            .Curve({0, 83, -67, 67, -83, 0})
            .Curve({-83, 0, -67, -67, 0, -83});
    };
    const CffFont font = CffFont()
                             .Add(CffFont::Glyph().Move(100, 100).Line(300, 0).Line(0, 300).Line(-300, 0))
                             .Add(circle())
                             .Add(circle().Move(50, 0).Line(0, 50).Line(200, 0).Line(0, -100).Line(-200, 0));
    const auto path =
        std::filesystem::temp_directory_path() / ("tavrix-curved-" + std::to_string(getpid()) + ".cff");
    const std::vector<std::byte> bytes = font.Make();
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    const auto file = FontFile::Open(OpenFontLibrary(), path.string(), 0);
    std::filesystem::remove(path);
    ASSERT_NE(file, nullptr);
    ASSERT_EQ(file->GlyphCount(), 4U);
    for (const std::uint32_t glyph : {1U, 2U, 3U}) {
        SCOPED_TRACE(glyph);
        const Path outline = file->Load(glyph).outline;
        ASSERT_FALSE(outline.Empty());
        const Box bounds = outline.Bounds();
        EXPECT_EQ(bounds.left, 100);
        EXPECT_EQ(bounds.top, 100);
        EXPECT_EQ(bounds.right, 400);
        EXPECT_EQ(bounds.bottom, 400);
        EXPECT_EQ(outline.Verbs().back(), Path::Verb::Close);
    }
    EXPECT_EQ(AreaOf(file->Load(1).outline), -90'000) << "with the clock, as those of the other fonts";
    EXPECT_EQ(AreaOf(file->Load(2).outline), -45'000);
    // The hole is where it was.
    const double hole = AreaOf(file->Load(3).outline) + 45'000;
    EXPECT_EQ(std::abs(hole), 20'000);
    EXPECT_GT(hole, 0);
}

}  // namespace
}  // namespace tavrix
