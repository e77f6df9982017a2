// What the tests of the computed associations share: a CIM server with one endpoint of each class.
#pragma once

#include <fakes/FakeCimServer.h>
#include <framework/visit.h>
#include <gmock/gmock.h>
#include <module/all_providers.h>

#include "Enumeration.h"
#include "ProviderFixture.h"

using Endpoints = std::vector<std::string>;

// Instances of a class, told apart by their captions.
template <class Class>
void Serve(const Endpoints& captions) {
    FakeCimServer::Script(Class::static_meta_class.name, [captions] {
        std::vector<cimple::Instance*> instances;
        for (const std::string& caption : captions) {
            auto* instance = cimple::create<Class>();
            instance->Caption = caption;
            instance->name_space = "root/QUVSD";
            instances.push_back(instance);
        }
        return instances;
    });
}

inline std::string CaptionOf(const cimple::Instance* instance) {
    if (instance == nullptr) return "null";
    const cimple::Meta_Feature& caption = *cimple::find_feature(*instance->meta_class, "Caption");
    return cimple::visit_property(*instance, caption, [](const auto& property) -> std::string {
        if constexpr (requires { property.value.c_str(); }) return property.value.c_str();
        return "?";
    });
}

// Each association as "FirstRole=caption SecondRole=caption", by the class's order of roles.
inline std::vector<std::string> Pairs(const Enumeration& enumeration) {
    std::vector<std::string> pairs;
    for (const auto& instance : enumeration.instances) {
        std::string pair;
        for (std::size_t i = 0; i < instance->meta_class->feature_count; ++i) {
            const cimple::Meta_Feature& feature = instance->meta_class->features[i];
            if (!cimple::is_reference(feature)) {
                EXPECT_TRUE(cimple::is_null_at(*instance, feature)) << feature.name;
                continue;
            }
            pair += (pair.empty() ? "" : " ") + std::string(feature.name) + "=" +
                    CaptionOf(cimple::reference_at(*instance, feature));
        }
        pairs.push_back(pair);
    }
    return pairs;
}

class AssociationTest : public ProviderTest {
protected:
    AssociationTest() {
        FakeCimServer::Reset();
        Serve<QUVSG_BMCI2C_ManagedSystemElement>({"element"});
        Serve<QUVSG_BMCI2C_ConcreteJob>({"job"});
        Serve<QUVSG_BMCI2C_DiagnosticService>({"service"});
        Serve<QUVSG_BMCI2C_DiagnosticServiceRecord>({"record"});
        Serve<QUVSG_BMCI2C_DiagnosticsLog>({"log"});
    }

    static std::vector<std::string> TraceOf(const std::string& name, const std::string& outcome) {
        return {"+++" + name + "::enum_instances()\n",
                "---" + name + "::enum_instances() " + outcome + "\n"};
    }
};
