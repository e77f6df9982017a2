#include <fakes/FakeSystem.h>
#include <stdlib.h>
#include <unistd.h>

void FakeSystem::Reset() {
    pauses.clear();
    onSleep = nullptr;
    randomNumbers.clear();
    seedings = 0;
}

extern "C" unsigned int sleep(unsigned int seconds) {
    FakeSystem::pauses.push_back(seconds);
    if (FakeSystem::onSleep) {
        FakeSystem::onSleep();
    }
    return 0;
}

extern "C" int rand() noexcept {
    if (FakeSystem::randomNumbers.empty()) {
        return 0;
    }
    const int number = FakeSystem::randomNumbers.front();
    FakeSystem::randomNumbers.pop_front();
    return number;
}

extern "C" void srand(unsigned int /*seed*/) noexcept { ++FakeSystem::seedings; }
