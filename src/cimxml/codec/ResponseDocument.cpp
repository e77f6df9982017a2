#include <cimxml/codec/ResponseDocument.h>

namespace cimxml {

std::string ResponseDocument(const Request& request, const std::function<void(XmlWriter&)>& write) {
    XmlWriter xml;
    xml.Raw("<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n");
    {
        const auto cim = xml.Open("CIM", {{"CIMVERSION", "2.0"}, {"DTDVERSION", "2.0"}});
        const auto message =
            xml.Open("MESSAGE", {{"ID", request.messageId}, {"PROTOCOLVERSION", "1.0"}});
        const auto response = xml.Open("SIMPLERSP");
        const auto call = xml.Open(request.isIntrinsic ? "IMETHODRESPONSE" : "METHODRESPONSE",
                                   {{"NAME", request.method}});
        write(xml);
    }
    return xml.Take();
}

}  // namespace cimxml
