// Writes instances.
#pragma once

#include <cimxml/codec/ClassWriter.h>
#include <cimxml/codec/XmlWriter.h>
#include <host/Value.h>
#include <host/schema/ClassRepository.h>

namespace cimxml {

// An INSTANCE with the wanted properties. `exposed`: when not null, only this class's properties,
// inherited ones included, are written, as for a client that asks for no deep inheritance.
void WriteInstance(XmlWriter& xml, const host::ClassRepository& classes,
                   const host::Instance& instance, const Detail& detail,
                   const host::ClassInfo* exposed = nullptr);

// An INSTANCE with all that it holds, of whatever class.
void WriteEmbeddedInstance(XmlWriter& xml, const host::Instance& instance);

}  // namespace cimxml
