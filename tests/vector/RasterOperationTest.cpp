#include "imaging/vector/RasterOperation.h"

#include <gtest/gtest.h>

#include "vector/Canvas.h"

namespace tavrix {
namespace {

using namespace vector;

/// Bit by bit, as the operations are defined.
Pixel Plain(unsigned operation, Pixel brush, Pixel source, Pixel destination) {
    Pixel result = 0xFF000000U;
    for (unsigned bit = 0; bit < 24; ++bit) {
        const unsigned p = brush >> bit & 1U, s = source >> bit & 1U, d = destination >> bit & 1U;
        result |= (operation >> (p * 4 + s * 2 + d) & 1U) << bit;
    }
    return result;
}

TEST(RasterOperation, All256CombineBitByBit) {
    test::Numbers numbers(21);
    for (unsigned operation = 0; operation < 256; ++operation)
        for (int i = 0; i < 20; ++i) {
            const Pixel p = numbers.Colour(), s = numbers.Colour() & 0x00FFFFFFU, d = numbers.Colour();
            EXPECT_EQ(Combine(static_cast<TernaryOperation>(operation), p, s, d), Plain(operation, p, s, d))
                << operation;
        }
}

TEST(RasterOperation, TellWhatTheyUse) {
    for (unsigned operation = 0; operation < 256; ++operation) {
        const auto differs = [&](Pixel p, Pixel s, Pixel d) {
            for (const Pixel a : {0U, ~0U})
                for (const Pixel b : {0U, ~0U})
                    for (const Pixel c : {0U, ~0U})
                        if (Plain(operation, a, b, c) != Plain(operation, a ^ p, b ^ s, c ^ d)) return true;
            return false;
        };
        const auto op = static_cast<TernaryOperation>(operation);
        EXPECT_EQ(UsesBrush(op), differs(~0U, 0, 0)) << operation;
        EXPECT_EQ(UsesSource(op), differs(0, ~0U, 0)) << operation;
        EXPECT_EQ(UsesDestination(op), differs(0, 0, ~0U)) << operation;
    }
}

TEST(RasterOperation, All16OfPensCombineAsTheirNamesSay) {
    const Pixel p = 0x00C0F053U, d = 0x00A5CC0FU;
    const std::vector<std::pair<BinaryOperation, Pixel>> expected{
        {BinaryOperation::Black, 0},
        {BinaryOperation::NotMergePen, ~(p | d)},
        {BinaryOperation::MaskNotPen, ~p & d},
        {BinaryOperation::NotCopyPen, ~p},
        {BinaryOperation::MaskPenNot, p & ~d},
        {BinaryOperation::Not, ~d},
        {BinaryOperation::XorPen, p ^ d},
        {BinaryOperation::NotMaskPen, ~(p & d)},
        {BinaryOperation::MaskPen, p & d},
        {BinaryOperation::NotXorPen, ~(p ^ d)},
        {BinaryOperation::Nop, d},
        {BinaryOperation::MergeNotPen, ~p | d},
        {BinaryOperation::CopyPen, p},
        {BinaryOperation::MergePenNot, p | ~d},
        {BinaryOperation::MergePen, p | d},
        {BinaryOperation::White, 0xFFFFFFU},
    };
    for (const auto& [operation, colour] : expected) {
        const Pixel result = Combine(ToTernary(operation), p, 0x123456U, d);
        EXPECT_EQ(result, (colour & 0x00FFFFFFU) | 0xFF000000U) << static_cast<int>(operation);
        EXPECT_FALSE(UsesSource(ToTernary(operation)));

        test::Canvas canvas(1, 1);
        canvas.surface.Fill(d);
        canvas.painter.SetPixel(0, 0, p, operation);
        EXPECT_EQ(canvas.At(0, 0), result);
        canvas.surface.Fill(d | 0xFF000000U);
        canvas.painter.FillRegion(Region(PixelRect{0, 0, 1, 1}), Brush::Solid(p), operation);
        EXPECT_EQ(canvas.At(0, 0), result);
    }
}

TEST(RasterOperation, NumbersThatAreNoneMeanCopy) {
    EXPECT_EQ(ToBinaryOperation(0), BinaryOperation::CopyPen);
    EXPECT_EQ(ToBinaryOperation(17), BinaryOperation::CopyPen);
    EXPECT_EQ(ToBinaryOperation(7), BinaryOperation::XorPen);
}

TEST(RasterOperation, All256DrawBitmaps) {
    test::Numbers numbers(22);
    Surface bitmap(3, 2);
    for (Pixel& pixel : bitmap.Pixels())
        pixel = numbers.Colour() & 0x7FFFFFFFU;
    const Pixel ink = numbers.Colour();
    for (unsigned operation = 0; operation < 256; ++operation) {
        test::Canvas canvas(5, 4);
        const Pixel ground = numbers.Colour();
        canvas.surface.Fill(ground);
        canvas.painter.Blit({&bitmap, {0, 0, 3, 2}, Affine::Shift(1, 1)},
                            static_cast<TernaryOperation>(operation), Brush::Solid(ink));
        for (int y = 0; y < 4; ++y)
            for (int x = 0; x < 5; ++x) {
                const bool inside = x >= 1 && x < 4 && y >= 1 && y < 3;
                const Pixel expected =
                    inside ? Plain(operation, ink, bitmap.Row(y - 1)[static_cast<std::size_t>(x - 1)], ground)
                           : ground;
                EXPECT_EQ(canvas.At(x, y), expected) << operation;
            }
    }
}

TEST(RasterOperation, PatternBlitTakesTheSourceForBlack) {
    for (unsigned operation = 0; operation < 256; ++operation) {
        test::Canvas canvas(2, 2);
        canvas.surface.Fill(0xFF5A3C0FU);
        canvas.painter.PatternBlit({0, 0, 1, 1}, Brush::Solid(0xFF336699U),
                                   static_cast<TernaryOperation>(operation));
        EXPECT_EQ(canvas.At(0, 0), Plain(operation, 0x336699U, 0, 0x5A3C0FU));
        EXPECT_EQ(canvas.At(1, 1), 0xFF5A3C0FU);
    }
}

}  // namespace
}  // namespace tavrix
