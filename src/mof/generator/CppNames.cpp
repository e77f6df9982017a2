#include <mof/DataTypes.h>
#include <mof/generator/CppNames.h>

namespace mof {

std::string ElementType(DataType type) {
    switch (type) {
        case DataType::Boolean:
            return "bool";
        case DataType::UInt8:
            return "std::uint8_t";
        case DataType::SInt8:
            return "std::int8_t";
        case DataType::UInt16:
            return "std::uint16_t";
        case DataType::SInt16:
            return "std::int16_t";
        case DataType::UInt32:
            return "std::uint32_t";
        case DataType::SInt32:
            return "std::int32_t";
        case DataType::UInt64:
            return "std::uint64_t";
        case DataType::SInt64:
            return "std::int64_t";
        case DataType::Real32:
            return "float";
        case DataType::Real64:
            return "double";
        case DataType::Char16:
            return "char16_t";
        case DataType::String:
            return "cimple::String";
        case DataType::DateTime:
            return "cimple::Datetime";
        case DataType::Reference:
            break;
    }
    return "";
}

std::string TypeEnumerator(DataType type) { return ToText(TypeName{type, false, ""}); }

std::string MemberType(const TypeName& type) {
    if (type.type == DataType::Reference) {
        return type.referenceClass + "*";
    }
    const std::string element = ElementType(type.type);
    return "cimple::Property<" + (type.isArray ? "cimple::Array<" + element + ">" : element) + ">";
}

std::string RecordName(const Inherited<Method>& method) {
    return method.declarer->name + "_" + method.member->name + "_method";
}

std::string FeatureTableName(const std::string& cppClass) { return cppClass + "_features"; }

std::string MethodTableName(const std::string& cppClass) { return cppClass + "_methods"; }

}  // namespace mof
