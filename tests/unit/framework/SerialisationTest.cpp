// Requests in parallel.
#include <atomic>
#include <chrono>
#include <thread>

#include "Adapter_Fixture.h"

namespace {

class Serialisation : public Adapter_Fixture {};

}  // namespace

TEST_F(Serialisation, RequestsOfOneProvider_NeverOverlap) {
    std::atomic<int> inside = 0;
    std::atomic<int> overlaps = 0;
    int handled = 0;  // needs no guard of its own when requests do not overlap
    const auto work = [&] {
        if (++inside > 1) ++overlaps;
        std::this_thread::yield();
        ++handled;
        --inside;
        return 0;
    };
    fanScript.enumInstances = [&](const ACME_Fan*, auto*) { return work(); };
    fanScript.reset = [&](const ACME_Fan*, auto&) { return work(); };
    {
        std::vector<std::jthread> threads;
        for (int t = 0; t < 4; ++t) {
            threads.emplace_back([this, t] {
                fake::Result own;
                fake::Broker paths;
                for (int i = 0; i < 50; ++i) {
                    if (t % 2 == 0) {
                        fans.instances->ft->enumerateInstances(
                            fans.instances, &context, &own,
                            paths.arena.path("root/acme", "ACME_Fan"), nullptr);
                    } else {
                        fans.methods->ft->invokeMethod(fans.methods, &context, &own,
                                                       paths.arena.path("root/acme", "ACME_Fan"),
                                                       "Reset", nullptr, nullptr);
                    }
                }
            });
        }
    }
    EXPECT_EQ(overlaps, 0);
    EXPECT_EQ(handled, 200);
}

TEST_F(Serialisation, FirstRequestsInParallel_LoadTheProviderOnce) {
    int loads = 0;
    fanScript.load = [&] {
        ++loads;
        return 0;
    };
    {
        std::vector<std::jthread> threads;
        for (int t = 0; t < 4; ++t) {
            threads.emplace_back([this] {
                fake::Result own;
                fans.instances->ft->enumerateInstances(fans.instances, &context, &own,
                                                       broker.arena.path("root/acme", "ACME_Fan"),
                                                       nullptr);
            });
        }
    }
    EXPECT_EQ(loads, 1);
}

TEST_F(Serialisation, FactoriesInParallel_MakeOneState) {
    alignas(std::max_align_t) unsigned char block[cimple::kStaticDataSize] = {};
    void* made[4] = {};
    {
        std::vector<std::jthread> threads;
        for (void*& slot : made) {
            threads.emplace_back([&] {
                cimple::cmpi_adapter(cimple::kAdapterMark, block, &fanRegistration, &broker,
                                     &context, "ACME_Fan_Provider", 'I', &slot);
            });
        }
    }
    EXPECT_NE(made[0], nullptr);
    EXPECT_THAT(made, testing::Each(made[0]));
}

TEST_F(Serialisation, RequestsOfTwoProviders_RunAtTheSameTime) {
    std::atomic<bool> inFan = false;
    fanScript.enumInstances = [&](const ACME_Fan*, auto*) {
        inFan = true;
        inFan.notify_all();
        return 0;
    };
    coolsScript.enumInstances = [&](const ACME_Cools*, auto*) {
        inFan.wait(false);  // for ever, if the association's request kept the fan's waiting
        return 0;
    };
    std::jthread association([this] {
        fake::Result own;
        cools.instances->ft->enumerateInstances(
            cools.instances, &context, &own, broker.arena.path("root/acme", "ACME_Cools"), nullptr);
    });
    EXPECT_EQ(to_text(enumerate_fans()), "0");
}

TEST_F(Serialisation, RequestsOfAProviderWithoutData_RunAtTheSameTime) {
    std::atomic<int> inside = 0;
    // For ever, if the first request kept the second one waiting.
    coolsScript.enumInstances = [&](const ACME_Cools*, auto*) {
        ++inside;
        inside.notify_all();
        for (int seen = inside; seen < 2; seen = inside) inside.wait(seen);
        return 0;
    };
    {
        std::vector<std::jthread> threads;
        for (int t = 0; t < 2; ++t) {
            threads.emplace_back([this] {
                fake::Result own;
                fake::Broker paths;
                cools.instances->ft->enumerateInstances(cools.instances, &context, &own,
                                                        paths.arena.path("root/acme", "ACME_Cools"),
                                                        nullptr);
            });
        }
    }
    EXPECT_EQ(inside, 2);
}

TEST_F(Serialisation, CleanupAtTheEnd_WaitsForTheRequestsOfAProviderWithoutData) {
    std::atomic<bool> isInside = false;
    std::atomic<bool> mayEnd = false;
    std::atomic<bool> isCleanedUp = false;
    bool wasCleanedUpMeanwhile = true;
    coolsScript.enumInstances = [&](const ACME_Cools*, auto*) {
        isInside = true;
        isInside.notify_all();
        mayEnd.wait(false);
        wasCleanedUpMeanwhile = isCleanedUp;
        return 0;
    };
    std::jthread request([this] {
        fake::Result own;
        cools.instances->ft->enumerateInstances(
            cools.instances, &context, &own, broker.arena.path("root/acme", "ACME_Cools"), nullptr);
    });
    isInside.wait(false);
    std::jthread cleanup([&] {
        cools.instances->ft->cleanup(cools.instances, &context, 1);
        isCleanedUp = true;
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    mayEnd = true;
    mayEnd.notify_all();
    request.join();
    cleanup.join();
    EXPECT_FALSE(wasCleanedUpMeanwhile);
    EXPECT_TRUE(isCleanedUp);
}
