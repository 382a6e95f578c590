#include <gtest/gtest.h>

#include <string>

#include <zoerrlog/zoerrlog.h>

namespace {

/// Collects errors by number, and what of them reaches the error log.
class Errors : public testing::Test {
public:
    Errors() {
        CZoLogger& logger = *theLogger();
        EXPECT_TRUE(logger.SetLogOutput(logger.NewLogOutput(4, Append, &written)));
    }
    ~Errors() override { theLogger()->DisableLog(); }

    /// A record that tells its end in `destroyed`.
    CZoErrData* New(unsigned int code) {
        struct Record : CZoErrData {
            explicit Record(std::string& journal) : destroyed(journal) {}
            ~Record() override { destroyed += std::to_string(code); }
            std::string& destroyed;
        };
        auto* const record = new Record(destroyed);
        record->code = code;
        record->message.SetFormattedMessage(std::to_string(code).c_str());
        return record;
    }

    static void Append(const char* text, int /*length*/, void* param) {
        *static_cast<std::string*>(param) += text;
    }

    std::string written;
    std::string destroyed;
};

TEST_F(Errors, AreLoggedOnceInTheirOrder) {
    CZoError errors;
    EXPECT_TRUE(errors.LogMessages() && errors.LogLastMessage() && errors.GetLastError() == 0);
    for (const unsigned int code : {5U, 7U}) {
        errors.AddError(New(code));
    }
    EXPECT_EQ(errors.GetLastError(), 7U);
    EXPECT_TRUE(errors.LogMessages() && errors.LogMessages());
    EXPECT_EQ(written, "57");
    errors.AddError(New(8));
    errors.AddError(New(9));
    EXPECT_TRUE(errors.LogLastMessage() && errors.LogLastMessage() && errors.LogMessages());
    EXPECT_EQ(written, "5799");
}

TEST_F(Errors, CountAsLoggedWhenTheLogRefusesThem) {
    theLogger()->DisableLog();
    CZoError errors;
    errors.AddError(New(1));
    EXPECT_FALSE(errors.LogMessages());
    EXPECT_TRUE(errors.LogMessages());
}

TEST_F(Errors, MoveWhenTheirCollectionIsCopied) {
    {
        CZoError first;
        first.AddError(New(1));
        first.AddError(New(2));
        const CZoError copy(first);
        EXPECT_EQ(first.GetLastError(), 0U);
        first.AddError(New(3));
        first = copy;
        EXPECT_EQ(destroyed, "3");
        CZoError& itself = first;
        first = itself;
        EXPECT_EQ(first.GetLastError(), 2U);
        first.AddError(nullptr);
        first.SetError(New(4));
        EXPECT_EQ(destroyed, "312");
        EXPECT_TRUE(first.LogMessages());
        first.Clear();
        EXPECT_EQ(destroyed, "3124");
        first.AddError(New(5));
    }
    EXPECT_EQ(destroyed, "31245");
    EXPECT_EQ(written, "4");
    CZoErrData* const fresh = CZoError::NewErrData();
    EXPECT_TRUE(fresh->code == 0 && !fresh->logged && fresh->next == nullptr);
    CZoError().SetError(fresh);
}

}  // namespace
