// FreeIPMI's context: one session, closed when the object ends.
#pragma once

#include <freeipmi/freeipmi.h>
#include <platform/service_processor/IpmiMessage.h>

#include <memory>
#include <optional>
#include <string>

namespace platform {

class FreeIpmiContext {
public:
    // Throws std::bad_alloc.
    FreeIpmiContext();

    ipmi_ctx_t Get() const { return context.get(); }

    // FreeIPMI's number of the last failure (IPMI_ERR_...), and its text.
    int Error() const { return ipmi_ctx_errnum(context.get()); }
    std::string ErrorText() const { return ipmi_ctx_errormsg(context.get()); }

    // One exchange over the opened context; nothing when FreeIPMI reports a failure. Throws
    // TransportError when what came is no answer to the request.
    std::optional<IpmiAnswer> Exchange(const IpmiRequest& request);

private:
    struct Destroy {
        void operator()(ipmi_ctx_t opened) const { ipmi_ctx_destroy(opened); }
    };
    std::unique_ptr<ipmi_ctx, Destroy> context;
};

}  // namespace platform
