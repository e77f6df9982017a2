#include <cimxml/http/Stream.h>
#include <sys/socket.h>

#include <cerrno>
#include <system_error>

namespace cimxml {

namespace {

constexpr std::size_t kMostDiscarded = std::size_t{4} << 20;  // bytes that a goodbye waits for

bool IsNotReady() { return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR; }

class Clear : public Stream {
public:
    explicit Clear(Descriptor connected) : Stream(std::move(connected)) {}

    std::size_t Read(char* buffer, std::size_t size, Deadline deadline) override {
        const ssize_t count =
            Transfer(POLLIN, deadline, [&] { return ::recv(Socket(), buffer, size, 0); });
        return static_cast<std::size_t>(count);
    }

    void Write(std::string_view text, Deadline deadline) override {
        while (!text.empty()) {
            const ssize_t count = Transfer(POLLOUT, deadline, [&] {
                return ::send(Socket(), text.data(), text.size(), MSG_NOSIGNAL);
            });
            text.remove_prefix(static_cast<std::size_t>(count));
        }
    }

private:
    template <class Attempt>
    ssize_t Transfer(short events, Deadline deadline, const Attempt& attempt) const {
        for (;;) {
            const ssize_t count = attempt();
            if (count >= 0) return count;
            if (!IsNotReady()) throw ConnectionLost(std::generic_category().message(errno));
            if (!WaitFor(Socket(), events, deadline)) throw TimedOut();
        }
    }
};

}  // namespace

void Stream::Finish(Deadline deadline) {
    SayGoodbye();
    ::shutdown(Socket(), SHUT_WR);
    char discarded[4096];
    std::size_t total = 0;
    while (total < kMostDiscarded && WaitFor(Socket(), POLLIN, deadline)) {
        const ssize_t count = ::recv(Socket(), discarded, sizeof discarded, 0);
        if (count == 0 || (count < 0 && !IsNotReady())) return;
        total += static_cast<std::size_t>(count > 0 ? count : 0);
    }
}

std::unique_ptr<Stream> ClearStream(Descriptor socket) {
    return std::make_unique<Clear>(std::move(socket));
}

}  // namespace cimxml
