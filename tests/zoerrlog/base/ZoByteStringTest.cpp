#include <gtest/gtest.h>
#include <zoerrlog/base/ZoByteString.h>

#include <limits>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t kInline = ZoByteString::kInlineCapacity;

void ExpectHolds(const ZoByteString& text, std::string_view expected) {
    EXPECT_TRUE(std::string_view(text) == expected);
    EXPECT_EQ(text.c_str()[expected.size()], '\0');
}

TEST(ZoByteString, KeepsEveryByteAndItsTerminatorWhateverItsLength) {
    for (const std::size_t size : {std::size_t{0}, kInline - 1, kInline, 2 * kInline + 1}) {
        for (const std::size_t more : {std::size_t{0}, std::size_t{1}, std::size_t{70000}}) {
            SCOPED_TRACE(testing::Message() << size << " and " << more << " bytes");
            const std::string first(size, 'a');
            const std::string both = first + std::string(more, '\0');
            ZoByteString text(first);
            text.append(std::string(more, '\0'));
            ExpectHolds(text, both);
            const ZoByteString copy(text);
            EXPECT_THROW(text.prepare(std::numeric_limits<std::size_t>::max() - more),
                         std::bad_alloc);
            text.append(std::string_view("\0x", 2), "", "yz");
            ExpectHolds(text, both + std::string("\0xyz", 4));
            text.truncate(size);
            ExpectHolds(text, first);
            text = copy;
            ExpectHolds(text, both);
        }
    }
}

TEST(ZoByteString, GivesBackWhatAnUnusuallyLongTextTookAndKeepsTheRest) {
    for (const auto& [length, kept] :
         {std::pair{kInline, kInline}, std::pair{2 * kInline, std::size_t{2 * kInline}},
          std::pair{ZoByteString::kKeptCapacity + 1, kInline}}) {
        ZoByteString text(std::string(length, 'x'));
        text.clear_and_shrink();
        ExpectHolds(text, "");
        EXPECT_EQ(text.room(), kept) << length;
        text.append("again");
        ExpectHolds(text, "again");
    }
}

TEST(ZoCopyShort, CopiesTextsOfEveryLengthAndNothingBeside) {
    constexpr std::size_t kLongest = 140;  // beyond the last of the fixed sizes
    std::string source;
    for (std::size_t i = 0; i < kLongest; ++i) {
        source.push_back(static_cast<char>('0' + i % 77));
    }
    for (std::size_t size = 0; size <= kLongest; ++size) {
        std::string target(kLongest + 2, '~');
        // In a block of its own, so that a look beyond its end is seen by the sanitizers.
        const std::vector<char> text(source.begin(), source.begin() + size);
        EXPECT_EQ(ZoCopyShort(target.data() + 1, {text.data(), size}), target.data() + 1 + size);
        EXPECT_EQ(target, '~' + source.substr(0, size) + std::string(kLongest + 1 - size, '~'));
    }
}

}  // namespace
