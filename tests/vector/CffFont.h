#pragma once

#include <cstddef>
#include <initializer_list>
#include <vector>

namespace tavrix::test {

/// A font of cubic curves in the compact format, to be put together glyph by glyph. Its em is 1000 units.
class CffFont {
  public:
    /// The outline of a glyph as a program, y upwards, places told from one another.
    class Glyph {
      public:
        Glyph& Move(int x, int y) { return Run({x, y}, 21); }
        Glyph& Line(int x, int y) { return Run({x, y}, 5); }
        Glyph& Curve(std::initializer_list<int> steps) { return Run(steps, 8); }

      private:
        friend class CffFont;
        Glyph& Run(std::initializer_list<int> numbers, unsigned operation) {
            for (const int number : numbers) {
                Put(28);
                Put(static_cast<unsigned>(number) >> 8U);
                Put(static_cast<unsigned>(number));
            }
            Put(operation);
            return *this;
        }
        void Put(unsigned byte) { program_.push_back(static_cast<std::byte>(byte)); }

        std::vector<std::byte> program_;
    };

    /// Its number is 1 for the first.
    CffFont& Add(const Glyph& glyph) {
        glyphs_.push_back(glyph.program_);
        glyphs_.back().push_back(EndOfGlyph);
        return *this;
    }

    [[nodiscard]] std::vector<std::byte> Make() const {
        constexpr std::size_t TopSize = 17;
        const Bytes name = Index({{std::byte{'T'}, std::byte{'e'}, std::byte{'s'}, std::byte{'t'}}});
        const Bytes none = Index({});
        const std::size_t glyphs = 4 + name.size() + (5 + TopSize) + 2 * none.size();
        Bytes top;
        PutNumber(top, glyphs);
        top.push_back(std::byte{17});  // where the glyphs are
        PutNumber(top, 0);             // what is private: nothing
        PutNumber(top, glyphs);
        top.push_back(std::byte{18});
        Bytes font{std::byte{1}, std::byte{0}, std::byte{4}, std::byte{1}};
        for (const Bytes& part : {name, Index({top}), none, none, Index(glyphs_)})
            font.insert(font.end(), part.begin(), part.end());
        return font;
    }

  private:
    using Bytes = std::vector<std::byte>;
    static constexpr std::byte EndOfGlyph{14};

    static void PutNumber(Bytes& bytes, std::size_t number) {
        bytes.push_back(std::byte{29});
        for (unsigned shift = 32; shift != 0; shift -= 8)
            bytes.push_back(static_cast<std::byte>(number >> (shift - 8)));
    }
    static Bytes Index(const std::vector<Bytes>& items) {
        Bytes index{static_cast<std::byte>(items.size() >> 8U), static_cast<std::byte>(items.size())};
        if (items.empty()) return index;
        // Offsets of two bytes for the glyphs, of one for the others, whose sizes are told in advance.
        std::size_t total = 1;
        for (const Bytes& item : items)
            total += item.size();
        const bool wide = total > 255;
        index.push_back(std::byte{wide ? std::byte{2} : std::byte{1}});
        std::size_t offset = 1;
        const auto put = [&] {
            if (wide) index.push_back(static_cast<std::byte>(offset >> 8U));
            index.push_back(static_cast<std::byte>(offset));
        };
        put();
        for (const Bytes& item : items) {
            offset += item.size();
            put();
        }
        for (const Bytes& item : items)
            index.insert(index.end(), item.begin(), item.end());
        return index;
    }

    std::vector<Bytes> glyphs_{{EndOfGlyph}};
};

}  // namespace tavrix::test
