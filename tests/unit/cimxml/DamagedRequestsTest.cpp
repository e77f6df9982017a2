// Requests that are damaged at random; the same ones in every run.
#include <cimxml/codec/DocumentReader.h>
#include <cimxml/codec/ProtocolError.h>
#include <cimxml/codec/RequestReader.h>
#include <cimxml/http/CimHandler.h>
#include <cimxml/net/HttpServer.h>

#include <array>
#include <mutex>
#include <random>
#include <thread>

#include "OperationsFixture.h"
#include "Peer.h"

namespace cimxml {
namespace {

constexpr int kRounds = 2000;  // for each request

class Damage {
public:
    std::string To(std::string text) {
        for (std::size_t times = 1 + Below(3); times > 0; --times) Once(text);
        return text;
    }

private:
    static constexpr std::string_view kTroubles[] = {"<",
                                                     ">",
                                                     "\"",
                                                     "&",
                                                     "&#0;",
                                                     "&#x110000;",
                                                     "]]>",
                                                     "<![CDATA[",
                                                     "<!--",
                                                     "<?",
                                                     "<!DOCTYPE x [",
                                                     "<VALUE.NULL/>",
                                                     "\r\n",
                                                     "\r\n\r\n",
                                                     ":",
                                                     "%",
                                                     "-",
                                                     "0",
                                                     "99999999999999999999",
                                                     "\r\nContent-Length: 1",
                                                     "\r\nTransfer-Encoding: chunked",
                                                     "\xFF",
                                                     "\xED\xA0\x80"};

    std::size_t Below(std::size_t end) { return random() % end; }

    void Once(std::string& text) {
        if (text.empty()) return;
        const std::size_t at = Below(text.size());
        const std::size_t length = Below(60);
        switch (Below(5)) {
            case 0:
                text[at] = static_cast<char>(Below(256));
                break;
            case 1:
                text.erase(at, length);
                break;
            case 2:
                text.insert(Below(text.size()), text.substr(at, length));
                break;
            case 3:
                text.insert(at, kTroubles[Below(std::size(kTroubles))]);
                break;
            default:
                if (Below(8) == 0) text.resize(at);
        }
    }

    std::mt19937 random{20};
};

std::string Message(const std::string& call) {
    return "<?xml version=\"1.0\" encoding=\"utf-8\" ?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
           "<MESSAGE ID=\"1\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ>" +
           call + "</SIMPLEREQ></MESSAGE></CIM>";
}

constexpr const char* kNameSpacePath =
    "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"test\"/></LOCALNAMESPACEPATH>";

constexpr const char* kThing =
    "<INSTANCENAME CLASSNAME=\"T_Thing\"><KEYBINDING NAME=\"Name\"><KEYVALUE "
    "VALUETYPE=\"string\">one</KEYVALUE></KEYBINDING></INSTANCENAME>";

std::string Intrinsic(const std::string& method, const std::string& parameters) {
    return Message("<IMETHODCALL NAME=\"" + method + "\">" + kNameSpacePath + parameters +
                   "</IMETHODCALL>");
}

struct Example {
    std::string method;
    std::string object;
    std::string document;
};

const std::array kExamples = {
    Example{"GetClass", "root/test",
            Intrinsic("GetClass",
                      "<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"T_Thing\"/></IPARAMVALUE>"
                      "<IPARAMVALUE NAME=\"LocalOnly\"><VALUE>FALSE</VALUE></IPARAMVALUE>")},
    Example{"EnumerateInstances", "root/test",
            Intrinsic("EnumerateInstances",
                      "<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"T_Element\"/>"
                      "</IPARAMVALUE><IPARAMVALUE NAME=\"PropertyList\"><VALUE.ARRAY><VALUE>Name"
                      "</VALUE><VALUE>U8</VALUE></VALUE.ARRAY></IPARAMVALUE>")},
    Example{"GetInstance", "root/test",
            Intrinsic("GetInstance", std::string("<IPARAMVALUE NAME=\"InstanceName\">") + kThing +
                                         "</IPARAMVALUE>")},
    Example{
        "Associators", "root/test",
        Intrinsic("Associators", std::string("<IPARAMVALUE NAME=\"ObjectName\">") + kThing +
                                     "</IPARAMVALUE><IPARAMVALUE NAME=\"AssocClass\"><CLASSNAME "
                                     "NAME=\"T_Link\"/></IPARAMVALUE><IPARAMVALUE NAME=\"Role\">"
                                     "<VALUE>From</VALUE></IPARAMVALUE>")},
    Example{"OpenEnumerateInstances", "root/test",
            Intrinsic("OpenEnumerateInstances",
                      "<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"T_Thing\"/></IPARAMVALUE>"
                      "<IPARAMVALUE NAME=\"OperationTimeout\"><VALUE>30</VALUE></IPARAMVALUE>"
                      "<IPARAMVALUE NAME=\"MaxObjectCount\"><VALUE>2</VALUE></IPARAMVALUE>")},
    Example{"PullInstancePaths", "root/test",
            Intrinsic("PullInstancePaths",
                      "<IPARAMVALUE NAME=\"EnumerationContext\"><VALUE>0123456789abcdef</VALUE>"
                      "</IPARAMVALUE><IPARAMVALUE NAME=\"MaxObjectCount\"><VALUE>2</VALUE>"
                      "</IPARAMVALUE>")},
    Example{"Echo", "root/test:T_Thing.Name=\"one\"",
            Message(std::string("<METHODCALL NAME=\"Echo\"><LOCALINSTANCEPATH>") + kNameSpacePath +
                    kThing +
                    "</LOCALINSTANCEPATH><PARAMVALUE NAME=\"Text\"><VALUE>a</VALUE></PARAMVALUE>"
                    "<PARAMVALUE NAME=\"Numbers\"><VALUE.ARRAY><VALUE>7</VALUE></VALUE.ARRAY>"
                    "</PARAMVALUE><PARAMVALUE NAME=\"Other\"><VALUE.REFERENCE>" +
                    kThing + "</VALUE.REFERENCE></PARAMVALUE></METHODCALL>")},
};

std::string Post(const Example& example) {
    return "POST /cimom HTTP/1.1\r\nHost: localhost\r\nContent-Type: application/xml\r\n"
           "CIMOperation: MethodCall\r\nCIMMethod: " +
           example.method + "\r\nCIMObject: " + example.object +
           "\r\nContent-Length: " + std::to_string(example.document.size()) + "\r\n\r\n" +
           example.document;
}

class DamagedRequestsTest : public OperationsTest {
protected:
    DamagedRequestsTest() {
        listener.Listen();
        running = std::thread([this] { server.Run(); });
    }
    ~DamagedRequestsTest() override {
        server.Stop();
        running.join();
    }

    // What a client gets that sends the bytes and waits for the end.
    std::string AnswerTo(const std::string& bytes) const {
        const Peer peer(listener.Address());
        peer.Send(bytes);
        peer.EndSending();
        return peer.Rest();
    }

    const Limits limits{};
    std::mutex mutex;  // guards the log
    std::vector<std::string> log;
    const CimHandler handler{operations, limits, [this](const std::string& line) {
                                 const std::lock_guard lock(mutex);
                                 log.push_back(line);
                             }};
    Metrics metrics;
    Listener listener{"127.0.0.1:0"};
    HttpServer server{listener, limits, nullptr, handler, metrics};
    std::thread running;
    Damage damage;
};

TEST_F(DamagedRequestsTest, Examples_AreAnsweredUndamaged) {
    for (const Example& example : kExamples) {
        const std::string answer = AnswerTo(Post(example));
        EXPECT_THAT(answer, testing::StartsWith("HTTP/1.1 200 OK\r\n")) << example.document;
    }
}

TEST_F(DamagedRequestsTest, DamagedDocument_IsAnsweredOrRefused) {
    int answered = 0;
    int refused = 0;
    for (const Example& example : kExamples)
        for (int round = 0; round < kRounds; ++round) {
            const std::string document = damage.To(example.document);
            try {
                const Request request = ReadRequest(document, limits.maxDepth);
                const Element answer =
                    ReadDocument(operations.Answer(request, "localhost"), limits.maxDepth);
                ASSERT_TRUE(answer.Child("MESSAGE").Child("SIMPLERSP").FirstChild()) << document;
                ++answered;
            } catch (const ProtocolError&) {
                ++refused;
            }
        }
    EXPECT_GT(answered, kRounds / 10);
    EXPECT_GT(refused, kRounds / 10);
}

TEST_F(DamagedRequestsTest, DamagedMessage_IsAnsweredOrRefused) {
    for (const Example& example : kExamples)
        for (int round = 0; round < kRounds; ++round) {
            const std::string bytes = damage.To(Post(example));
            const std::string answer = AnswerTo(bytes);
            ASSERT_TRUE(answer.empty() || answer.starts_with("HTTP/1.1 ")) << bytes;
            ASSERT_EQ(answer.find("HTTP/1.1 500"), std::string::npos) << bytes;
        }
    EXPECT_THAT(log, testing::IsEmpty());
}

}  // namespace
}  // namespace cimxml
