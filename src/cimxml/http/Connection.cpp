#include <cimxml/http/Connection.h>
#include <cimxml/http/RequestStream.h>
#include <mof/Names.h>

namespace cimxml {

namespace {

constexpr std::chrono::seconds kGoodbyeTime{2};
constexpr int kRequestTimeout = 408;

bool WantsClose(const HttpRequest& request) {
    const std::string* const connection = request.Header("Connection");
    return request.isVersion10 || (connection && mof::SameName(*connection, "close"));
}

class Conversation {
public:
    Conversation(Stream& connection, const Limits& theLimits, const HttpHandler& theHandler,
                 const StopSignal& stopSignal, Client theClient)
        : stream(connection),
          limits(theLimits),
          handler(theHandler),
          stop(stopSignal),
          client(std::move(theClient)),
          requests(connection, theLimits) {}

    void Run() {
        while (WaitForRequest()) {
            try {
                if (!ServeOne(Clock::now() + limits.requestTime)) break;
            } catch (const HttpError& error) {
                Respond(TextResponse(error.status, error.what()), true);
                break;
            } catch (const TimedOut&) {
                Respond(TextResponse(kRequestTimeout,
                                     "The request did not arrive within " +
                                         std::to_string(limits.requestTime.count()) + " s."),
                        true);
                break;
            }
        }
        stream.Finish(Clock::now() + kGoodbyeTime);
    }

private:
    // False when there will be none.
    bool WaitForRequest() const {
        if (requests.HasBytes() || stream.HasBytes()) return true;
        const auto [isStopped, isReadable] =
            WaitForEither(stop.Readable(), stream.Socket(), Clock::now() + limits.idleTime);
        return isReadable;
    }

    // False when the connection is to end.
    bool ServeOne(Deadline deadline) {
        std::optional<HttpRequest> request = requests.ReadHead(deadline);
        if (!request) return false;
        if (auto refusal = handler.Refuse(*request, client)) {
            if (request->method == "HEAD") refusal->body.clear();
            Respond(*refusal, true);
            return false;
        }
        if (const std::string* const expected = request->Header("Expect"))
            Encourage(*expected, deadline);
        requests.ReadBody(*request, deadline);
        const HttpResponse response = handler.Answer(*request);
        const bool isLast = WantsClose(*request) || stop.IsSet();
        Respond(response, isLast);
        return !isLast;
    }

    void Encourage(const std::string& expected, Deadline deadline) {
        if (!mof::SameName(expected, "100-continue"))
            throw HttpError(417, "This server cannot meet the expectation '" + expected + "'.");
        stream.Write("HTTP/1.1 100 Continue\r\n\r\n", deadline);
    }

    void Respond(const HttpResponse& response, bool isLast) {
        try {
            stream.Write(ToBytes(response, isLast), Clock::now() + limits.requestTime);
        } catch (const TimedOut&) {
            throw ConnectionLost("The client does not take its answer.");
        }
    }

    Stream& stream;
    const Limits& limits;
    const HttpHandler& handler;
    const StopSignal& stop;
    Client client;
    RequestStream requests;
};

}  // namespace

void ServeConnection(Stream& stream, const Limits& limits, const HttpHandler& handler,
                     const StopSignal& stop, Client client) {
    Conversation(stream, limits, handler, stop, std::move(client)).Run();
}

void RefuseConnection(Stream& stream, const HttpResponse& response, Deadline deadline) {
    stream.Write(ToBytes(response, true), deadline);
    stream.Finish(deadline);
}

}  // namespace cimxml
