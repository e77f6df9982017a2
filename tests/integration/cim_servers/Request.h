// A request that a server passes to a provider, with everything that belongs to it.
#pragma once

#include <Fake_Objects.h>

#include <memory>
#include <vector>

#include "Personality.h"

// The context of a request: principal and role have no texts.
class Context : public CMPIContext {
    CMPIContextFT table{};

public:
    explicit Context(CMPIVersion tableVersion);
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;
};

struct Request {
    explicit Request(const Personality& personality);

    // The request that the calling thread handles; null when it handles none.
    static Request* Current();

    // Makes a request the calling thread's current one; the outer one is restored afterwards.
    class Scope {
    public:
        explicit Scope(Request& request);
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        Request* const outer;
    };

    fake::Arena arena;  // of the objects, which go with the request
    Context context;
    fake::Result result;
    std::vector<std::unique_ptr<Request>> upCalls;  // whose answers this request may use
};
