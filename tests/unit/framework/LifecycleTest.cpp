// When the provider object is made, loaded, unloaded and destroyed.
#include <stdexcept>

#include "Adapter_Fixture.h"

using testing::ElementsAre;

namespace {

class Lifecycle : public Adapter_Fixture {
protected:
    Lifecycle() {
        fanScript.construct = [this] { events.push_back("create"); };
        fanScript.destruct = [this] { events.push_back("destroy"); };
        fanScript.load = [this] { return note("load"); };
        fanScript.unload = [this] { return note("unload"); };
        fanScript.enumInstances = [this](const ACME_Fan*, auto*) { return note("enumerate"); };
    }

    int note(const char* event) {
        events.push_back(event);
        return 0;
    }
    template <class Interface>
    CMPIStatus clean_up(Interface* interface, bool terminating) {
        return interface->ft->cleanup(interface, &context, terminating ? 1 : 0);
    }

    std::vector<std::string> events;
};

}  // namespace

TEST_F(Lifecycle, FirstRequest_CreatesAndLoadsOnce) {
    EXPECT_TRUE(events.empty());
    EXPECT_EQ(to_text(enumerate_fans()), "0");
    EXPECT_EQ(to_text(enumerate_fans()), "0");
    EXPECT_THAT(events, ElementsAre("create", "load", "enumerate", "enumerate"));
}

TEST_F(Lifecycle, AllInterfaces_ShareOneProviderObject) {
    fanScript.reset = [this](const ACME_Fan*, auto&) { return note("reset"); };
    EXPECT_EQ(to_text(enumerate_fans()), "0");
    EXPECT_EQ(to_text(invoke("Reset")), "0");
    EXPECT_THAT(events, ElementsAre("create", "load", "enumerate", "reset"));
}

TEST_F(Lifecycle, CleanupWhileTheServerRuns_AnswersNeverUnloadAndDoesNothing) {
    EXPECT_EQ(to_text(enumerate_fans()), "0");
    EXPECT_EQ(to_text(clean_up(fans.instances, false)), "51");
    EXPECT_EQ(to_text(clean_up(fans.methods, false)), "51");
    EXPECT_EQ(to_text(clean_up(cools.associations, false)), "51");
    EXPECT_EQ(to_text(enumerate_fans()), "0");
    EXPECT_THAT(events, ElementsAre("create", "load", "enumerate", "enumerate"));
}

TEST_F(Lifecycle, CleanupAtTheEnd_UnloadsAndDestroysOnce) {
    EXPECT_EQ(to_text(enumerate_fans()), "0");
    EXPECT_EQ(to_text(clean_up(fans.instances, true)), "0");
    EXPECT_EQ(to_text(clean_up(fans.methods, true)), "0");
    EXPECT_EQ(to_text(clean_up(fans.instances, true)), "0");
    EXPECT_THAT(events, ElementsAre("create", "load", "enumerate", "unload", "destroy"));
}

TEST_F(Lifecycle, CleanupBeforeAnyRequest_DoesNothing) {
    EXPECT_EQ(to_text(clean_up(fans.instances, true)), "0");
    EXPECT_TRUE(events.empty());
}

TEST_F(Lifecycle, RequestAfterCleanup_LoadsAnew) {
    EXPECT_EQ(to_text(enumerate_fans()), "0");
    EXPECT_EQ(to_text(clean_up(fans.methods, true)), "0");
    events.clear();
    EXPECT_EQ(to_text(enumerate_fans()), "0");
    EXPECT_THAT(events, ElementsAre("create", "load", "enumerate"));
}

TEST_F(Lifecycle, FailedLoad_DestroysTheObjectAndIsTriedAgain) {
    fanScript.load = [this] { return note("load") + 70; };
    EXPECT_EQ(to_text(enumerate_fans()),
              "1: ACME_Fan_Provider: enumerateInstances failed: the provider reports a failure "
              "(status 70).");
    EXPECT_THAT(events, ElementsAre("create", "load", "destroy"));
    events.clear();
    fanScript.load = [this] { return note("load"); };
    EXPECT_EQ(to_text(enumerate_fans()), "0");
    EXPECT_THAT(events, ElementsAre("create", "load", "enumerate"));
}

TEST_F(Lifecycle, ThrowingConstructor_IsReportedAndTriedAgain) {
    fanScript.construct = []() -> void { throw std::runtime_error("no fan was found."); };
    EXPECT_EQ(to_text(enumerate_fans()),
              "1: ACME_Fan_Provider: enumerateInstances failed: no fan was found.");
    fanScript.construct = nullptr;
    EXPECT_EQ(to_text(enumerate_fans()), "0");
}

TEST_F(Lifecycle, FailedUnload_IsReportedAndTheObjectDestroyed) {
    fanScript.unload = [this] { return note("unload") + 9; };
    EXPECT_EQ(to_text(enumerate_fans()), "0");
    EXPECT_EQ(to_text(clean_up(fans.instances, true)),
              "1: ACME_Fan_Provider: cleanup failed: the provider reports a failure (status 9).");
    EXPECT_EQ(to_text(clean_up(fans.methods, true)), "0");
    EXPECT_THAT(events, ElementsAre("create", "load", "enumerate", "unload", "destroy"));
}

TEST_F(Lifecycle, ThrowingUnload_IsReportedAndTheObjectDestroyed) {
    fanScript.unload = []() -> int { throw std::runtime_error("it still turns."); };
    EXPECT_EQ(to_text(enumerate_fans()), "0");
    EXPECT_EQ(to_text(clean_up(fans.instances, true)),
              "1: ACME_Fan_Provider: cleanup failed: it still turns.");
    EXPECT_THAT(events, ElementsAre("create", "load", "enumerate", "destroy"));
}
