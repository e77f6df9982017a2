// Makes the transport that a controller's settings ask for.
#pragma once

#include <platform/service_processor/Transport.h>
#include <platform/settings/Settings.h>

#include <memory>

namespace platform {

// `node` is the controller's number, from 0.
std::unique_ptr<Transport> MakeTransport(const ControllerSettings& controller, int node);

}  // namespace platform
