// What a provider library gives a CIMOM: one function table per interface. A factory
// `<provider>_Create_InstanceMI(const CMPIBroker*, const CMPIContext*, CMPIStatus*)`, likewise
// `_Create_MethodMI` and `_Create_AssociationMI`, yields them.
#pragma once

#include <cmpi/types.h>

extern "C" {

struct CMPIInstanceMI {
    const void* hdl;
    const CMPIInstanceMIFT* ft;
};

struct CMPIInstanceMIFT {
    CMPIVersion ftVersion;
    int miVersion;
    const char* miName;
    CMPIStatus (*cleanup)(CMPIInstanceMI* mi, const CMPIContext* ctx, CMPIBoolean terminating);
    CMPIStatus (*enumerateInstanceNames)(CMPIInstanceMI* mi, const CMPIContext* ctx,
                                         const CMPIResult* rslt, const CMPIObjectPath* classPath);
    CMPIStatus (*enumerateInstances)(CMPIInstanceMI* mi, const CMPIContext* ctx,
                                     const CMPIResult* rslt, const CMPIObjectPath* classPath,
                                     const char** properties);
    CMPIStatus (*getInstance)(CMPIInstanceMI* mi, const CMPIContext* ctx, const CMPIResult* rslt,
                              const CMPIObjectPath* instPath, const char** properties);
    CMPIStatus (*createInstance)(CMPIInstanceMI* mi, const CMPIContext* ctx, const CMPIResult* rslt,
                                 const CMPIObjectPath* classPath, const CMPIInstance* inst);
    CMPIStatus (*modifyInstance)(CMPIInstanceMI* mi, const CMPIContext* ctx, const CMPIResult* rslt,
                                 const CMPIObjectPath* instPath, const CMPIInstance* modInst,
                                 const char** properties);
    CMPIStatus (*deleteInstance)(CMPIInstanceMI* mi, const CMPIContext* ctx, const CMPIResult* rslt,
                                 const CMPIObjectPath* op);
    CMPIStatus (*execQuery)(CMPIInstanceMI* mi, const CMPIContext* ctx, const CMPIResult* rslt,
                            const CMPIObjectPath* classPath, const char* query, const char* lang);
};

struct CMPIAssociationMI {
    const void* hdl;
    const CMPIAssociationMIFT* ft;
};

struct CMPIAssociationMIFT {
    CMPIVersion ftVersion;
    int miVersion;
    const char* miName;
    CMPIStatus (*cleanup)(CMPIAssociationMI* mi, const CMPIContext* ctx, CMPIBoolean terminating);
    CMPIStatus (*associators)(CMPIAssociationMI* mi, const CMPIContext* ctx, const CMPIResult* rslt,
                              const CMPIObjectPath* instPath, const char* assocClass,
                              const char* resultClass, const char* role, const char* resultRole,
                              const char** properties);
    CMPIStatus (*associatorNames)(CMPIAssociationMI* mi, const CMPIContext* ctx,
                                  const CMPIResult* rslt, const CMPIObjectPath* instPath,
                                  const char* assocClass, const char* resultClass, const char* role,
                                  const char* resultRole);
    CMPIStatus (*references)(CMPIAssociationMI* mi, const CMPIContext* ctx, const CMPIResult* rslt,
                             const CMPIObjectPath* instPath, const char* resultClass,
                             const char* role, const char** properties);
    CMPIStatus (*referenceNames)(CMPIAssociationMI* mi, const CMPIContext* ctx,
                                 const CMPIResult* rslt, const CMPIObjectPath* instPath,
                                 const char* resultClass, const char* role);
};

struct CMPIMethodMI {
    const void* hdl;
    const CMPIMethodMIFT* ft;
};

struct CMPIMethodMIFT {
    CMPIVersion ftVersion;
    int miVersion;
    const char* miName;
    CMPIStatus (*cleanup)(CMPIMethodMI* mi, const CMPIContext* ctx, CMPIBoolean terminating);
    CMPIStatus (*invokeMethod)(CMPIMethodMI* mi, const CMPIContext* ctx, const CMPIResult* rslt,
                               const CMPIObjectPath* objPath, const char* method,
                               const CMPIArgs* in, CMPIArgs* out);
};

}  // extern "C"

static_assert(offsetof(CMPIInstanceMIFT, miName) == 8 && offsetof(CMPIInstanceMIFT, cleanup) == 16);
static_assert(sizeof(CMPIInstanceMIFT) == 10 * 8 && sizeof(CMPIAssociationMIFT) == 7 * 8);
static_assert(sizeof(CMPIMethodMIFT) == 4 * 8 && sizeof(CMPIInstanceMI) == 16);
