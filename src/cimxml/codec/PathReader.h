// Reads object paths and the values of keys and arguments.
#pragma once

#include <cimxml/codec/Element.h>
#include <host/Value.h>

#include <string>

namespace cimxml {

// All of them throw ProtocolError if the element is malformed.

// "root/QUVSD", of a LOCALNAMESPACEPATH.
std::string ReadNameSpace(const Element& localNameSpacePath);

// Of an INSTANCENAME; no namespace. A key that is given without its name gets an empty one.
host::ObjectPath ReadInstanceName(const Element& instanceName);

// Of an INSTANCENAME, LOCALINSTANCEPATH, INSTANCEPATH, CLASSNAME, LOCALCLASSPATH or CLASSPATH.
host::ObjectPath ReadPath(const Element& path);

// Of a VALUE, VALUE.ARRAY, VALUE.REFERENCE or VALUE.REFARRAY. Values are texts, whose type is for
// the class to say.
host::Value ReadValue(const Element& value);

}  // namespace cimxml
