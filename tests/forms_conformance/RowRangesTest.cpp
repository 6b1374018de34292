// Sets of rows, against plain flags for each row.

#include "platform/forms/RowRanges.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "platform/forms/SameRows.h"

namespace tavrix::forms {
namespace {

/// The same set as one flag a row.
class Flags {
  public:
    explicit Flags(int rows) : flags(static_cast<std::size_t>(rows)) {}

    void Expect(const RowRanges& ranges) const {
        int count = 0;
        for (std::size_t row = 0; row < flags.size(); ++row) {
            ASSERT_EQ(ranges.Contains(static_cast<int>(row)), flags[row]) << row;
            ASSERT_EQ(ranges.CountBefore(static_cast<int>(row)), count);
            count += flags[row] ? 1 : 0;
        }
        ASSERT_EQ(ranges.Count(), count);
        int last = -1;
        for (const RowRange& range : ranges.Ranges()) {
            ASSERT_LT(last, range.first);
            ASSERT_LT(range.first, range.end);
            last = range.end;  // the next one does not even touch it
        }
    }

    std::vector<bool> flags;
};

TEST(RowRangesTest, AnyOrderOfChangesGivesThePlainSet) {
    std::mt19937 random(17);
    const auto upTo = [&random](int most) { return std::uniform_int_distribution(0, most)(random); };
    for (int round = 0; round < 300; ++round) {
        Flags plain(60);
        RowRanges ranges;
        for (int step = 0; step < 25; ++step) {
            const int rows = static_cast<int>(plain.flags.size());
            const int first = upTo(rows);
            const int end = std::min(first + upTo(8), rows);
            const auto from = plain.flags.begin() + first;
            switch (upTo(4)) {
                case 0:
                    ranges.Add(first, end);
                    std::fill(from, plain.flags.begin() + end, true);
                    break;
                case 1:
                    ranges.Remove(first, end);
                    std::fill(from, plain.flags.begin() + end, false);
                    break;
                case 2:
                    ranges.RowsInserted(first, end - first);
                    plain.flags.insert(from, static_cast<std::size_t>(end - first), false);
                    break;
                case 3:
                    ranges.Invert(rows);
                    plain.flags.flip();
                    break;
                default: {
                    RowRanges gone;
                    for (int row = 0; row < rows; ++row) {
                        if (upTo(3) == 0) gone.Add(row);
                    }
                    ranges.RowsRemoved(gone);
                    Flags left(0);
                    for (int row = 0; row < rows; ++row) {
                        const int expected = gone.Contains(row) ? -1 : static_cast<int>(left.flags.size());
                        ASSERT_EQ(RowAfterRemoval(row, gone), expected);
                        if (expected >= 0) left.flags.push_back(plain.flags[static_cast<std::size_t>(row)]);
                    }
                    plain = left;
                }
            }
            plain.Expect(ranges);
            if (testing::Test::HasFatalFailure()) return;
        }
    }
}

TEST(RowRangesTest, AllOfManyRowsAreOneRange) {
    RowRanges rows;
    for (int row = 0; row < 200'000; ++row)
        rows.Add(row);
    EXPECT_EQ(rows.Ranges(), (std::vector<RowRange>{{0, 200'000}}));
}

TEST(RowRangesTest, NoRowStaysNone) {
    EXPECT_EQ(RowAfterRemoval(-1, {0, 5}), -1);
}

TEST(SameRowsTest, EqualTextsAreToldApartByTheirOrder) {
    const SameRows same({"x", "y", "x", "gone", "x"}, {"x", "new", "x", "y"});
    EXPECT_EQ(same.Of(0), 0);
    EXPECT_EQ(same.Of(1), 3);
    EXPECT_EQ(same.Of(2), 2);
    EXPECT_EQ(same.Of(3), -1);
    EXPECT_EQ(same.Of(4), -1);
    EXPECT_EQ(same.Of(-1), -1);
}

}  // namespace
}  // namespace tavrix::forms
