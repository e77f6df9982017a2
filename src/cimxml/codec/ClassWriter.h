// Writes classes.
#pragma once

#include <cimxml/codec/XmlWriter.h>
#include <host/requests/ProviderCall.h>
#include <host/schema/ClassRepository.h>

namespace cimxml {

// Which parts of a class or instance a client wants.
struct Detail {
    bool localOnly = false;
    bool includeQualifiers = false;
    bool includeClassOrigin = false;
    host::PropertyList properties = nullptr;  // null for all
};

void WriteClass(XmlWriter& xml, const mof::Schema& schema, const host::ClassInfo& cls,
                const Detail& detail);

// True when the list names the property, in any letter case, or there is no list.
bool IsListed(host::PropertyList properties, const std::string& name);

}  // namespace cimxml
