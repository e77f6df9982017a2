#include <cimxml/http/StopSignal.h>
#include <cimxml/http/Waiting.h>
#include <sys/eventfd.h>

#include <system_error>

namespace cimxml {

StopSignal::StopSignal() : event(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (!event.IsOpen()) throw std::system_error(errno, std::generic_category(), "eventfd");
}

void StopSignal::Set() { ::eventfd_write(event.Get(), 1); }

bool StopSignal::IsSet() const { return WaitForEither(event.Get(), -1, Clock::now()).first; }

void StopSignal::Sleep(std::chrono::milliseconds time) const {
    WaitForEither(event.Get(), -1, Clock::now() + time);
}

}  // namespace cimxml
