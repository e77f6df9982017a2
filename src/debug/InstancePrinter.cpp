#include <debug/InstancePrinter.h>
#include <debug/TraceSink.h>
#include <framework/Array.h>
#include <framework/Datetime.h>
#include <framework/Property.h>
#include <framework/String.h>
#include <framework/visit.h>

#include <cstdarg>
#include <cstdio>
#include <string>

namespace {

constexpr std::size_t kLineSize = 512;
constexpr int kIndentation = 4;
constexpr unsigned long kDeepestLevel = 3;

template <class T>
std::string ValueText(const T& value) {
    return std::to_string(value);
}

std::string ValueText(bool value) { return value ? "true" : "false"; }

std::string ValueText(const cimple::String& value) {
    return '"' + std::string(value.c_str()) + '"';
}

std::string ValueText(const cimple::Datetime& value) { return value.to_string(); }

template <class T>
std::string ValueText(const cimple::Array<T>& values) {
    std::string text = "{";
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (i != 0) text += ", ";
        text += ValueText(values[i]);
    }
    return text + "}";
}

template <class T>
std::string PropertyText(const cimple::Property<T>& property) {
    return property.null ? "null" : ValueText(property.value);
}

void PrintReference(const cimple::Instance& owner, const cimple::Meta_Feature& feature,
                    unsigned long level, std::uint32_t flags) {
    const cimple::Instance* target = cimple::reference_at(owner, feature);
    if (target == nullptr) {
        IO::iprintf(level, "%s %s = null;\n", feature.reference_class->name, feature.name);
    } else if (level <= kDeepestLevel) {
        IO::_print_aux(target, feature.name, level, flags);
    }
}

void PrintFeature(const cimple::Instance& owner, const cimple::Meta_Feature& feature,
                  unsigned long level, std::uint32_t flags) {
    if ((feature.flags & cimple::FEATURE_REFERENCE) != 0) {
        PrintReference(owner, feature, level, flags);
        return;
    }
    const std::string text = cimple::visit_property(
        owner, feature, [](const auto& property) { return PropertyText(property); });
    IO::iprintf(level, "%s = %s;\n", feature.name, text.c_str());
}

}  // namespace

namespace IO {

int iprintf(unsigned long level, const char* format, ...) {
    char line[kLineSize];
    std::snprintf(line, sizeof line, "%*s", static_cast<int>(level) * kIndentation, "");
    LogMessage(line);
    std::va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(line, sizeof line, format, arguments);
    va_end(arguments);
    LogMessage(line);
    return length;
}

void _print_aux(const cimple::Instance* instance, const char* name, unsigned long level,
                std::uint32_t flags) {
    const cimple::Meta_Class& metaClass = *instance->meta_class;
    if (name != nullptr) {
        iprintf(level, "%s %s =\n", metaClass.name, name);
    } else {
        iprintf(level, "%s \n", metaClass.name);
    }
    iprintf(level, "{\n");
    for (std::size_t i = 0; i < metaClass.feature_count; ++i) {
        const cimple::Meta_Feature& feature = metaClass.features[i];
        if ((feature.flags & flags) != 0) PrintFeature(*instance, feature, level + 1, flags);
    }
    iprintf(level, "}\n");
}

}  // namespace IO

void xprint(const cimple::Instance* instance) {
    IO::_print_aux(instance, nullptr, 0, cimple::FEATURE_PROPERTY | cimple::FEATURE_REFERENCE);
}
