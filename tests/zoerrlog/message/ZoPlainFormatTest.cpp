#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#include <zoerrlog/message/ZoPlainFormat.h>

namespace {

enum class By { kItself, kOthers };

template <typename Function>
int CallWithCopy(Function function, char* dst, std::size_t size, const char* format, va_list args) {
    va_list copy;
    va_copy(copy, args);
    const int length = function(dst, size, format, copy);
    va_end(copy);
    return length;
}

// In buffers of every size that matters: what vsnprintf makes of it, or a refusal.
void Expect(By formatted, const char* format, ...) {
    SCOPED_TRACE(format);
    va_list args;
    va_start(args, format);
    // vsnprintf may do anything with some of the patterns that are refused.
    const int length = formatted == By::kItself
                           ? CallWithCopy(std::vsnprintf, nullptr, 0, format, args)
                           : static_cast<int>(std::strlen(format));
    EXPECT_GE(length, 0);
    const std::string untouched(static_cast<std::size_t>(length) + 16, '~');
    for (std::size_t size = 1; size <= static_cast<std::size_t>(length) + 2; ++size) {
        std::string text = untouched;
        const int result =
            CallWithCopy(zoerrlog::message::FormatPlain, text.data(), size, format, args);
        EXPECT_EQ(result, formatted == By::kItself ? length : -1) << size;
        EXPECT_EQ(text.substr(size), untouched.substr(size)) << size;
        if (formatted == By::kItself) {
            std::string expected = untouched;
            CallWithCopy(std::vsnprintf, expected.data(), size, format, args);
            const std::size_t written = std::min(size, static_cast<std::size_t>(length) + 1);
            EXPECT_EQ(text.substr(0, written), expected.substr(0, written)) << size;
        }
    }
    va_end(args);
}

TEST(PlainFormat, IsWhatTheStandardLibraryMakesOfNumbersOfEveryWidth) {
    Expect(By::kItself, "%d %i %d", INT_MIN, INT_MAX, 0);
    Expect(By::kItself, "%ld %li %lld %lli", LONG_MIN, LONG_MAX, LLONG_MIN, LLONG_MAX);
    Expect(By::kItself, "%zd %zi", PTRDIFF_MIN, PTRDIFF_MAX);
    Expect(By::kItself, "%u %u %lu %llu %zu", 0U, UINT_MAX, ULONG_MAX, ULLONG_MAX, SIZE_MAX);
    Expect(By::kItself, "%x %x %lx %llx 0x%zx", 0U, 0xabcdef09U, ULONG_MAX, ULLONG_MAX, SIZE_MAX);
    // More than there are registers for, and no argument wider or narrower than its conversion.
    Expect(By::kItself, "%d%s%lld%c%u%zu%d%s%llx%d", -1, "s", LLONG_MIN, 'c', UINT_MAX, SIZE_MAX,
           -2, "t", 1ULL, -3);
}

TEST(PlainFormat, IsWhatTheStandardLibraryMakesOfTexts) {
    for (const char* const plain : {"", "plain", "%%", "100%%", "%%d%%", "d%%s%%%%"}) {
        Expect(By::kItself, plain);
    }
    // On both sides of every size at which texts are copied differently.
    for (const std::size_t size : {0, 1, 2, 3, 4, 7, 8, 9, 15, 16, 17, 31, 32, 33, 200}) {
        std::string text(size, ' ');
        std::generate(text.begin(), text.end(), [next = '!']() mutable { return next++; });
        Expect(By::kItself, "%s", text.c_str());
        Expect(By::kItself, "<%s|%s>", text.c_str(), "%d");
        Expect(By::kItself, (std::string(size, 'p') + "%%d").c_str());
    }
    Expect(By::kItself, "%c%c%c%c.", 'a', '\0', 0xE9, -1);
}

TEST(PlainFormat, LeavesAllElseToTheStandardLibrary) {
    for (const char* const broken : {"%", "100%", "%l", "%ll", "%z", "%y", "%l%", "%lll"}) {
        Expect(By::kOthers, broken);
    }
    for (const char* const ofNumber :
         {"%5d",  "%-3d", "%05d", "%+d", "% d", "%#x",    "%.2d", "%'d", "%1$d", "%hd",
          "%hhd", "%hhu", "%jd",  "%td", "%qd", "%lld%o", "%X",   "%lc", "%zc",  "%d and %5d"}) {
        Expect(By::kOthers, ofNumber, 42LL, 42LL);
    }
    for (const char* const ofPointer : {"%5s", "%-3s", "%.2s", "%ls", "%lls", "%zs", "%p", "%S"}) {
        Expect(By::kOthers, ofPointer, "text");
    }
    Expect(By::kOthers, "%f", 1.5);
    Expect(By::kOthers, "%*d", 5, 42);
    Expect(By::kOthers, "<%s>", static_cast<const char*>(nullptr));
    long long target = 7;
    for (const char* const writing : {"text %n", "%hhn", "%lln", "%zn", "%-5n"}) {
        Expect(By::kOthers, writing, &target);
    }
    EXPECT_EQ(target, 7);
}

}  // namespace
