// Writes values and object paths.
#pragma once

#include <cimxml/codec/XmlWriter.h>
#include <host/Value.h>

#include <string>

namespace cimxml {

// The name of a type in TYPE and PARAMTYPE attributes; of an array's elements for an array.
std::string_view TypeText(CMPIType type);

// "instance" when the value is an embedded instance (or an array of them), else empty.
std::string_view EmbeddedObjectText(const host::Value& value);

// VALUE, VALUE.ARRAY, VALUE.REFERENCE or VALUE.REFARRAY; nothing for NULL.
void WriteValue(XmlWriter& xml, const host::Value& value);

void WriteNameSpace(XmlWriter& xml, const std::string& nameSpace);  // LOCALNAMESPACEPATH

void WriteInstanceName(XmlWriter& xml, const host::ObjectPath& path);  // INSTANCENAME

// INSTANCEPATH or CLASSPATH on that host.
void WriteInstancePath(XmlWriter& xml, const host::ObjectPath& path, const std::string& hostName);
void WriteClassPath(XmlWriter& xml, const host::ObjectPath& path, const std::string& hostName);

}  // namespace cimxml
