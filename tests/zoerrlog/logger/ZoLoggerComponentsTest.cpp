#include <gtest/gtest.h>

#include <string>

#include <zoerrlog/trace/ZoKnownInfo.h>
#include <zoerrlog/zoerrlog.h>

#include "zoerrlog/logger/components/TestComponent.h"

namespace {

TEST(Components, AreDescribedToTheLastPart) {
    std::string parts;
    for (int part = 0; part < 255; ++part) {
        std::string name = std::to_string(part);
        name.resize(32, 'n');
        parts += (part == 0 ? " : " : "&") + name + " ; A part.";
    }
    EXPECT_EQ(theLogger()->GetAvailableComponents(),
              "Log ; Log description : Legacy ; Legacy Description. | Test ; A test." + parts +
                  " | Test ; A test.");
}

TEST(Components, AreFoundByTheUpperEightBitsOfAMessage) {
    SetControlledEntry("controlled");
    const struct {
        unsigned int id;
        const char* entry;
        const char* bundle;
    } cases[] = {
        {0x01000001, "%1s", "Log"},
        {0x01000004, nullptr, "Log"},
        {zotest::kControlledComponent | 0xFFFFFF, "controlled", "ZoControlled"},
        {zotest::kControlledComponent, nullptr, "ZoControlled"},
        {zotest::kPlainComponent | 1, "entry", nullptr},
        {zotest::kNoEntryPointComponent | 1, nullptr, nullptr},
        {zotest::kNullEntryPointComponent | 1, nullptr, nullptr},
        {zotest::kAbsentComponent | 1, nullptr, nullptr},
        {0, nullptr, nullptr},
        {0x1C000001, nullptr, nullptr},
        {0xFF000001, nullptr, nullptr},
    };
    for (const auto& testCase : cases) {
        SCOPED_TRACE(testing::Message() << std::hex << testCase.id);
        EXPECT_STREQ(theLogger()->FetchMsg(testCase.id), testCase.entry);
        EXPECT_STREQ(theLogger()->GetMsgBundle(testCase.id), testCase.bundle);
    }
}

TEST(KnownInfo, StandsUnderItsNumbers) {
    int count = 0;
    const KNOWNDATAFIELDINFO* fields = nullptr;
    ASSERT_TRUE(GetKnownDataFields(&count, &fields));
    ASSERT_EQ(count, 66);
    std::string joined = fields[0].name;
    for (int i = 1; i < count; ++i) {
        joined += std::string(" ") + fields[i].name;
    }
    EXPECT_EQ(theLogger()->GetAvailableDataFields(), joined);
    const struct {
        int id;
        const char* name;
        int width;
    } anchors[] = {{0, "Message", 64}, {7, "Function", 32}, {27, "IPPort", 16},
                   {41, "State", 8},   {58, "Returns", 8},  {65, "Tenant", 64}};
    for (const auto& anchor : anchors) {
        EXPECT_STREQ(fields[anchor.id].name, anchor.name);
        EXPECT_EQ(fields[anchor.id].width, anchor.width) << anchor.name;
    }

    const char** libraries = nullptr;
    ASSERT_TRUE(GetKnownComponentLibs(&count, &libraries));
    ASSERT_EQ(count, 27);
    EXPECT_STREQ(libraries[13], "zoagentframeworkcomponent");
    EXPECT_STREQ(libraries[26], "zoshareddbcomponent");
}

}  // namespace
