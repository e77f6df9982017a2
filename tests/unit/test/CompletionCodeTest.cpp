#include "EngineFixture.h"

using engine::Location;

class ProcessCompletionCode : public engine::EngineTest {
protected:
    ProcessCompletionCode() { Prepare(); }

    // The number in "166-NUMBER-...".
    std::string NumberFor(unsigned char code) {
        return Test().ProcessCompletionCode(code).substr(4, 3);
    }
};

TEST_F(ProcessCompletionCode, NamedCodes_HaveMessagesOfTheirOwn) {
    for (int code = 0xC0; code <= 0xD5; ++code) {
        EXPECT_EQ(NumberFor(static_cast<unsigned char>(code)), std::to_string(803 + code - 0xC0));
    }
    EXPECT_EQ(NumberFor(0xC0), "803");
    EXPECT_EQ(NumberFor(0xD5), "824");
}

TEST_F(ProcessCompletionCode, OtherCodes_ShareMessage802) {
    for (const int code : {0x01, 0xBF, 0xD6, 0xFF, 0x80}) {
        EXPECT_EQ(NumberFor(static_cast<unsigned char>(code)), "802") << code;
    }
}

TEST_F(ProcessCompletionCode, Text_IsOfKind6) {
    EXPECT_EQ(Test().ProcessCompletionCode(0xC0), "166-803-000 STOP: Code C0.");
    EXPECT_EQ(Test().ProcessCompletionCode(0xD5), "166-824-000 STOP: Code D5.");
    EXPECT_EQ(Test().ProcessCompletionCode(0xFF),
              "166-802-000 STOP: The controller does not answer.");
}

TEST_F(ProcessCompletionCode, LogsItsLocationBeforeTheMessage) {
    Test().ProcessCompletionCode(0xC0);
    EXPECT_EQ(Log(), (std::vector<std::string>{Location(725), Location(624), Location(555),
                                               Location(617), Location(641), Location(708)}));
}
