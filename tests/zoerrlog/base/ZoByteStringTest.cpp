#include <gtest/gtest.h>
#include <zoerrlog/base/ZoByteString.h>

#include <limits>
#include <new>
#include <string>
#include <string_view>

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

}  // namespace
