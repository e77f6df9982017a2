#include <gtest/gtest.h>
#include <platform/service_processor/HostRandomNumbers.h>
#include <platform/service_processor/LanTransport.h>
#include <stdlib.h>

#include <optional>
#include <vector>

namespace platform {
namespace {

// What rand() gives when `between` runs between the first and the second number.
template <class Action>
std::vector<int> Numbers(Action between) {
    srand(7);
    std::vector<int> numbers = {rand()};
    between();
    for (int more = 0; more < 40; ++more) numbers.push_back(rand());
    return numbers;
}

std::vector<int> UndisturbedNumbers() {
    return Numbers([] {});
}

TEST(HostRandomNumbers, SeedAndDrawInBetween_LeaveTheSequence) {
    EXPECT_EQ(Numbers([] {
                  const HostRandomNumbers kept;
                  srand(1234);
                  for (int drawn = 0; drawn < 100; ++drawn) rand();
              }),
              UndisturbedNumbers());
}

TEST(HostRandomNumbers, ObjectsThatOverlap_LeaveTheSequence) {
    EXPECT_EQ(Numbers([] {
                  std::optional<HostRandomNumbers> first(std::in_place);
                  std::optional<HostRandomNumbers> second(std::in_place);
                  srand(1);
                  first.reset();
                  srand(2);
                  second.reset();
              }),
              UndisturbedNumbers());
}

TEST(HostRandomNumbers, OneAfterTheOther_LeavesTheSequence) {
    EXPECT_EQ(Numbers([] {
                  for (int time = 0; time < 3; ++time) {
                      const HostRandomNumbers kept;
                      srand(5);
                  }
              }),
              UndisturbedNumbers());
}

TEST(HostRandomNumbers, RequestOverTheNetwork_LeavesTheSequence) {
    ControllerSettings controller;
    controller.host = "127.0.0.1";
    controller.port = 9;  // nobody listens
    EXPECT_EQ(Numbers([&] {
                  EXPECT_THROW(LanTransport(controller)
                                   .Send({.netFn = 0x3A, .lun = 0, .command = 0x09},
                                         ShareFrom(Now(), std::chrono::milliseconds(60))),
                               TransportError);
              }),
              UndisturbedNumbers());
}

}  // namespace
}  // namespace platform
