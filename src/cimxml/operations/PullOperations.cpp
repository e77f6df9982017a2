#include <cimxml/codec/InstanceWriter.h>
#include <cimxml/codec/ValueWriter.h>
#include <cimxml/operations/Answers.h>
#include <cimxml/operations/CimStatus.h>
#include <cimxml/operations/PullOperations.h>
#include <host/Status.h>

#include <utility>

namespace cimxml {

namespace {

using Kind = EnumerationSessions::Kind;
using Piece = EnumerationSessions::Piece;

constexpr const char* kContext = "EnumerationContext";
constexpr const char* kMaxObjectCount = "MaxObjectCount";

std::chrono::seconds Timeout(const Parameters& parameters) {
    const auto seconds = parameters.Number("OperationTimeout");
    if (!seconds) return kDefaultOperationTimeout;
    if (*seconds == 0 || *seconds > kLongestOperationTimeout.count())
        throw host::Failure(kInvalidOperationTimeout,
                            "The OperationTimeout must be 1 to " +
                                std::to_string(kLongestOperationTimeout.count()) + " seconds.");
    return std::chrono::seconds(*seconds);
}

void CheckFilter(const Parameters& parameters) {
    const bool hasLanguage = !parameters.Filter("FilterQueryLanguage").empty();
    const bool hasQuery = !parameters.Filter("FilterQuery").empty();
    if (hasQuery && !hasLanguage)
        throw host::Failure(CMPI_RC_ERR_INVALID_PARAMETER,
                            "A FilterQuery needs a FilterQueryLanguage.");
    if (hasLanguage)
        throw host::Failure(kFilteredEnumerationNotSupported,
                            "This server does not filter enumerations.");
}

void WritePiece(const Call& call, const Piece& piece) {
    for (const std::string& object : piece.objects) call.xml.Raw(object);
    const bool isEnd = piece.context.empty();
    call.out.push_back({kContext, {CMPI_string, {}}});
    if (!isEnd) call.out.back().value.data = piece.context;
    call.out.push_back({"EndOfSequence", {CMPI_boolean, isEnd}});
}

// An enumeration that is being opened: checks the parameters first, then takes the objects.
class Opening {
public:
    Opening(const Call& openingCall, Kind kind)
        : call(openingCall),
          count(call.parameters.Number(kMaxObjectCount).value_or(0)),
          content{kind, call.nameSpace.name, {}, Timeout(call.parameters)} {
        CheckFilter(call.parameters);
        if (call.parameters.Flag("ContinueOnError", false))
            throw host::Failure(kContinuationOnErrorNotSupported,
                                "This server ends an enumeration at its first error.");
    }

    TakeInstance TakesInstances() {
        return [this](const host::Instance& instance, const Detail& detail,
                      const host::ClassInfo* exposed) {
            Add([&](XmlWriter& xml) {
                const auto element = xml.Open("VALUE.INSTANCEWITHPATH");
                WriteInstancePath(xml, instance.path, call.hostName);
                WriteInstance(xml, call.nameSpace.Classes(), instance, detail, exposed);
            });
        };
    }

    TakeName TakesNames() {
        return [this](const host::ObjectPath& name) {
            Add([&](XmlWriter& xml) { WriteInstancePath(xml, name, call.hostName); });
        };
    }

    void WriteFirst() { WritePiece(call, call.sessions.Open(std::move(content), count)); }

private:
    template <class Write>
    void Add(const Write& write) {
        XmlWriter xml;
        write(xml);
        content.objects.push_back(xml.Take());
    }

    const Call& call;
    const std::size_t count;
    EnumerationSessions::Content content;
};

// ask(take) asks for the objects that are enumerated.
template <class Ask>
void OpenInstances(const Call& call, const Ask& ask) {
    Opening opening(call, Kind::Instances);
    ask(opening.TakesInstances());
    opening.WriteFirst();
}

template <class Ask>
void OpenPaths(const Call& call, const Ask& ask) {
    Opening opening(call, Kind::Paths);
    ask(opening.TakesNames());
    opening.WriteFirst();
}

host::ObjectPath Source(const Call& call) {
    return call.parameters.RequiredInstance("InstanceName");
}

std::string Context(const Call& call) { return call.parameters.Text(kContext); }

std::size_t RequiredCount(const Call& call) {
    const auto count = call.parameters.Number(kMaxObjectCount);
    if (!count)
        throw host::Failure(CMPI_RC_ERR_INVALID_PARAMETER,
                            "The parameter 'MaxObjectCount' is missing.");
    return *count;
}

void Pull(const Call& call, Kind kind) {
    WritePiece(call,
               call.sessions.Pull(Context(call), kind, call.nameSpace.name, RequiredCount(call)));
}

}  // namespace

void OpenEnumerateInstances(const Call& call) {
    OpenInstances(call, [&](const TakeInstance& take) { ForEachInstance(call, take); });
}

void OpenEnumerateInstancePaths(const Call& call) {
    OpenPaths(call, [&](const TakeName& take) { ForEachInstanceName(call, take); });
}

void OpenAssociatorInstances(const Call& call) {
    OpenInstances(call,
                  [&](const TakeInstance& take) { ForEachAssociator(call, Source(call), take); });
}

void OpenAssociatorInstancePaths(const Call& call) {
    OpenPaths(call, [&](const TakeName& take) { ForEachAssociatorName(call, Source(call), take); });
}

void OpenReferenceInstances(const Call& call) {
    OpenInstances(call,
                  [&](const TakeInstance& take) { ForEachReference(call, Source(call), take); });
}

void OpenReferenceInstancePaths(const Call& call) {
    OpenPaths(call, [&](const TakeName& take) { ForEachReferenceName(call, Source(call), take); });
}

void PullInstancesWithPath(const Call& call) { Pull(call, Kind::Instances); }

void PullInstancePaths(const Call& call) { Pull(call, Kind::Paths); }

void PullInstances(const Call& call) {
    RequiredCount(call);
    throw host::Failure(kInvalidEnumerationContext,
                        "The context '" + Context(call) + "' is not that of a query's results.");
}

void CloseEnumeration(const Call& call) { call.sessions.Close(Context(call), call.nameSpace.name); }

}  // namespace cimxml
