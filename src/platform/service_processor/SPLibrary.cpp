#include <platform/diagnostics/SettingsInForce.h>
#include <platform/service_processor/NodeFactory.h>
#include <platform/service_processor/SPLibrary.h>

SPLibrary* SPLibrary::GetSplibraryInstance(int node) {
    return platform::MakeNode(*platform::SettingsInForce(), node).release();
}

SPMachine SPLibrary::DescribeMachine() {
    return platform::DescribeMachine(*platform::SettingsInForce());
}
