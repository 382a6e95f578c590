#include <gtest/gtest.h>

#include <array>
#include <string>

#include <zoerrlog/trace/ZoFieldValues.h>

namespace {

constexpr unsigned int kFields = kZoDataFieldCount;
constexpr std::size_t kLongValue = 100000;

// The values beside the texts that they should be.
class FieldValues : public testing::Test {
protected:
    void Set(unsigned int field, const std::string& text) {
        m_values.Set(field, text);
        EXPECT_EQ(m_values.Get(field), text);
        m_expected[field] = text;
    }
    void Clear() {
        m_values.Clear();
        m_expected = {};
    }
    void Check() const {
        std::size_t total = 0;
        for (unsigned int field = 0; field < kFields; ++field) {
            ASSERT_EQ(m_values.Get(field), m_expected[field]) << field;
            total += m_expected[field].size();
        }
        ASSERT_GE(m_values.TotalLength(), total);
    }
    // Every value shows its field and its turn.
    void ReplaceMany(std::initializer_list<unsigned int> fields) {
        for (int turn = 0; turn < 100000; ++turn) {
            for (const unsigned int field : fields) {
                Set(field, std::to_string(field) + ':' + std::to_string(turn));
            }
            ASSERT_LT(m_values.TotalLength(), 4096U) << turn;
        }
        Check();
    }

    ZoFieldValues m_values;

private:
    std::array<std::string, kFields> m_expected;
};

TEST_F(FieldValues, KeepTheLatestTextOfEachFieldUntilCleared) {
    for (int line = 0; line < 3; ++line) {
        Check();
        for (const std::size_t size : {3U, 1U, 40U, 0U, 300U, 12U, 511U, 512U, 700U, 2U}) {
            for (const unsigned int field : {0U, 7U, kFields - 1}) {
                Set(field, std::string(size, static_cast<char>('a' + field)) + '\0');
                Check();
            }
        }
        // All of them, and all of them again with longer texts.
        for (unsigned int i = 0; i < 2 * kFields; ++i) {
            Set(i * 5 % kFields, std::to_string(i) + std::string(i < kFields ? 0 : 20, '.'));
            Check();
        }
        Clear();
    }
}

TEST_F(FieldValues, StaySmallHoweverOftenTheyAreReplaced) {
    Set(1, "before");
    Set(2, "between");
    ReplaceMany({2});
    Set(3, "behind");
    ReplaceMany({2, 60});
}

TEST_F(FieldValues, TakeLongTextsAndAreSmallAgainOnceCleared) {
    Set(1, "short");
    for (int turn = 0; turn < 50; ++turn) {
        Set(2, std::string(kLongValue, static_cast<char>('A' + turn)));
        Check();
    }
    EXPECT_LT(m_values.TotalLength(), 4 * kLongValue);
    Set(2, "short again");
    Set(3, std::string(kLongValue, 'z'));
    Check();
    Clear();
    ReplaceMany({2});
}

}  // namespace
