// Whatever length a transport returns, nothing outside the 256-byte buffer is read (the sanitizers
// watch that), and the length is judged as it is.
#include <algorithm>
#include <climits>

#include "EngineFixture.h"

using engine::Location;

namespace {

struct LengthCase {
    int length;
    std::size_t bytesShown;
    std::size_t bytesScanned;
    int state;
};

class ResponseLength : public engine::EngineTest, public ::testing::WithParamInterface<LengthCase> {
protected:
    std::size_t BytesShown() {
        const std::string dump = OnlyRecord().ResponseLog[0].c_str();
        const std::string head = "Response length is : " + std::to_string(GetParam().length) +
                                 " Including completion code, received response data is : ";
        EXPECT_EQ(dump.substr(0, head.size()), head);
        return (dump.size() - head.size()) / 3;
    }

    std::size_t BytesScanned() const {
        const std::vector<std::string> log = Log();
        return static_cast<std::size_t>(std::count(log.begin(), log.end(), Location(448)));
    }
};

}  // namespace

TEST_P(ResponseLength, IsJudgedWithinTheBuffer) {
    FakeServiceProcessor::Script(0, engine::kStatus, {.length = GetParam().length});
    Run();
    EXPECT_EQ(BytesShown(), GetParam().bytesShown);
    EXPECT_EQ(BytesScanned(), GetParam().bytesScanned);
    EXPECT_EQ(OnlyRecord().CompletionState, GetParam().state);
    EXPECT_EQ(OnlyRecord().ResponseLength, GetParam().length);
}

INSTANTIATE_TEST_SUITE_P(
    Lengths, ResponseLength,
    ::testing::Values(LengthCase{INT_MIN, 0, 0, 6}, LengthCase{-9, 0, 0, 6},
                      LengthCase{-1, 0, 0, 6}, LengthCase{0, 9, 0, 6}, LengthCase{1, 10, 0, 6},
                      LengthCase{2, 11, 2, 2}, LengthCase{246, 255, 246, 2},
                      LengthCase{247, 256, 247, 2}, LengthCase{248, 256, 247, 2},
                      LengthCase{250, 256, 247, 2}, LengthCase{256, 256, 247, 2},
                      LengthCase{100000, 256, 247, 2}, LengthCase{INT_MAX, 256, 247, 2}),
    [](const auto& lengthCase) { return engine::LengthName(lengthCase.param.length); });

class WholeBuffer : public engine::EngineTest {};

TEST_F(WholeBuffer, LastBitOfLastByte_HasItsNumber) {
    std::vector<std::uint8_t> data(247, 0);
    data.back() = 0x80;
    FakeServiceProcessor::Script(0, engine::kStatus, {.data = data, .length = 100000});
    Run();
    EXPECT_EQ(OnlyRecord().RecordData, "166-2876-001 FAULT: There is no text: message num: 2876");
}
