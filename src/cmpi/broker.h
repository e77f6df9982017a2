// What a CIMOM gives a provider: the broker, the context and the result of a request.
#pragma once

#include <cmpi/types.h>

extern "C" {

// What the CIMOM gives a provider.
struct CMPIBroker {
    const void* hdl;
    const CMPIBrokerFT* bft;
    const CMPIBrokerEncFT* eft;
    const CMPIBrokerExtFT* xft;
    const CMPIBrokerMemFT* mft;
};

// Up-calls into the CIMOM. Servers leave entries null; call only the classic ones.
struct CMPIBrokerFT {
    unsigned int brokerCapabilities;
    CMPIVersion brokerVersion;
    const char* brokerName;
    CMPIContext* (*prepareAttachThread)(const CMPIBroker* mb, const CMPIContext* ctx);
    CMPIStatus (*attachThread)(const CMPIBroker* mb, const CMPIContext* ctx);
    CMPIStatus (*detachThread)(const CMPIBroker* mb, const CMPIContext* ctx);
    CMPIStatus (*deliverIndication)(const CMPIBroker* mb, const CMPIContext* ctx, const char* ns,
                                    const CMPIInstance* ind);
    CMPIEnumeration* (*enumerateInstanceNames)(const CMPIBroker* mb, const CMPIContext* ctx,
                                               const CMPIObjectPath* classPath, CMPIStatus* rc);
    CMPIInstance* (*getInstance)(const CMPIBroker* mb, const CMPIContext* ctx,
                                 const CMPIObjectPath* instPath, const char** properties,
                                 CMPIStatus* rc);
    CMPIObjectPath* (*createInstance)(const CMPIBroker* mb, const CMPIContext* ctx,
                                      const CMPIObjectPath* classPath, const CMPIInstance* newInst,
                                      CMPIStatus* rc);
    CMPIStatus (*modifyInstance)(const CMPIBroker* mb, const CMPIContext* ctx,
                                 const CMPIObjectPath* instPath, const CMPIInstance* modInst,
                                 const char** properties);
    CMPIStatus (*deleteInstance)(const CMPIBroker* mb, const CMPIContext* ctx,
                                 const CMPIObjectPath* instPath);
    CMPIEnumeration* (*execQuery)(const CMPIBroker* mb, const CMPIContext* ctx,
                                  const CMPIObjectPath* classPath, const char* query,
                                  const char* lang, CMPIStatus* rc);
    CMPIEnumeration* (*enumerateInstances)(const CMPIBroker* mb, const CMPIContext* ctx,
                                           const CMPIObjectPath* classPath, const char** properties,
                                           CMPIStatus* rc);
    CMPIEnumeration* (*associators)(const CMPIBroker* mb, const CMPIContext* ctx,
                                    const CMPIObjectPath* instPath, const char* assocClass,
                                    const char* resultClass, const char* role,
                                    const char* resultRole, const char** properties,
                                    CMPIStatus* rc);
    CMPIEnumeration* (*associatorNames)(const CMPIBroker* mb, const CMPIContext* ctx,
                                        const CMPIObjectPath* instPath, const char* assocClass,
                                        const char* resultClass, const char* role,
                                        const char* resultRole, CMPIStatus* rc);
    CMPIEnumeration* (*references)(const CMPIBroker* mb, const CMPIContext* ctx,
                                   const CMPIObjectPath* instPath, const char* resultClass,
                                   const char* role, const char** properties, CMPIStatus* rc);
    CMPIEnumeration* (*referenceNames)(const CMPIBroker* mb, const CMPIContext* ctx,
                                       const CMPIObjectPath* instPath, const char* resultClass,
                                       const char* role, CMPIStatus* rc);
    CMPIData (*invokeMethod)(const CMPIBroker* mb, const CMPIContext* ctx,
                             const CMPIObjectPath* objPath, const char* method, const CMPIArgs* in,
                             CMPIArgs* out, CMPIStatus* rc);
    CMPIStatus (*setProperty)(const CMPIBroker* mb, const CMPIContext* ctx,
                              const CMPIObjectPath* instPath, const char* name,
                              const CMPIValue* value, CMPIType type);
    CMPIData (*getProperty)(const CMPIBroker* mb, const CMPIContext* ctx,
                            const CMPIObjectPath* instPath, const char* name, CMPIStatus* rc);
    CMPIEnumeration* (*enumerateInstancesFiltered)(const CMPIBroker* mb, const CMPIContext* ctx,
                                                   const CMPIObjectPath* classPath,
                                                   const char** properties,
                                                   const char* filterQueryLanguage,
                                                   const char* filterQuery, CMPIStatus* rc);
    CMPIEnumeration* (*associatorsFiltered)(const CMPIBroker* mb, const CMPIContext* ctx,
                                            const CMPIObjectPath* instPath, const char* assocClass,
                                            const char* resultClass, const char* role,
                                            const char* resultRole, const char** properties,
                                            const char* filterQueryLanguage,
                                            const char* filterQuery, CMPIStatus* rc);
    CMPIEnumeration* (*referencesFiltered)(const CMPIBroker* mb, const CMPIContext* ctx,
                                           const CMPIObjectPath* instPath, const char* resultClass,
                                           const char* role, const char** properties,
                                           const char* filterQueryLanguage, const char* filterQuery,
                                           CMPIStatus* rc);
};

// The CIMOM's factories of CMPI objects, and helpers on them.
struct CMPIBrokerEncFT {
    CMPIVersion ftVersion;
    CMPIInstance* (*newInstance)(const CMPIBroker* mb, const CMPIObjectPath* instPath,
                                 CMPIStatus* rc);
    CMPIObjectPath* (*newObjectPath)(const CMPIBroker* mb, const char* ns, const char* cn,
                                     CMPIStatus* rc);
    CMPIArgs* (*newArgs)(const CMPIBroker* mb, CMPIStatus* rc);
    CMPIString* (*newString)(const CMPIBroker* mb, const char* data, CMPIStatus* rc);
    CMPIArray* (*newArray)(const CMPIBroker* mb, CMPICount size, CMPIType type, CMPIStatus* rc);
    CMPIDateTime* (*newDateTime)(const CMPIBroker* mb, CMPIStatus* rc);
    CMPIDateTime* (*newDateTimeFromBinary)(const CMPIBroker* mb, CMPIUint64 binTime,
                                           CMPIBoolean interval, CMPIStatus* rc);
    CMPIDateTime* (*newDateTimeFromChars)(const CMPIBroker* mb, const char* datetime,
                                          CMPIStatus* rc);
    CMPISelectExp* (*newSelectExp)(const CMPIBroker* mb, const char* query, const char* lang,
                                   CMPIArray** projection, CMPIStatus* rc);
    CMPIBoolean (*classPathIsA)(const CMPIBroker* mb, const CMPIObjectPath* classPath,
                                const char* className, CMPIStatus* rc);
    CMPIString* (*toString)(const CMPIBroker* mb, const void* object, CMPIStatus* rc);
    CMPIBoolean (*isOfType)(const CMPIBroker* mb, const void* object, const char* type,
                            CMPIStatus* rc);
    CMPIString* (*getType)(const CMPIBroker* mb, const void* object, CMPIStatus* rc);
    CMPIString* (*getMessage)(const CMPIBroker* mb, const char* msgId, const char* defMsg,
                              CMPIStatus* rc, CMPICount count, ...);
    CMPIStatus (*logMessage)(const CMPIBroker* mb, CMPISeverity severity, const char* id,
                             const char* text, const CMPIString* string);
    CMPIStatus (*trace)(const CMPIBroker* mb, CMPILevel level, const char* component,
                        const char* text, const CMPIString* string);
    CMPIError* (*newCMPIError)(const CMPIBroker* mb, const char* owner, const char* msgID,
                               const char* msg, const CMPIErrorSeverity sev,
                               const CMPIErrorProbableCause pc, const CMPIrc cimStatusCode,
                               CMPIStatus* rc);
    CMPIStatus (*openMessageFile)(const CMPIBroker* mb, const char* msgFile,
                                  CMPIMsgFileHandle* msgFileHandle);
    CMPIStatus (*closeMessageFile)(const CMPIBroker* mb, const CMPIMsgFileHandle msgFileHandle);
    CMPIString* (*getMessage2)(const CMPIBroker* mb, const char* msgId,
                               const CMPIMsgFileHandle msgFileHandle, const char* defMsg,
                               CMPIStatus* rc, CMPICount count, ...);
};

struct CMPIContext {
    const void* hdl;
    const CMPIContextFT* ft;
};

struct CMPIContextFT {
    CMPIVersion ftVersion;
    CMPIStatus (*release)(CMPIContext* ctx);
    CMPIContext* (*clone)(const CMPIContext* ctx, CMPIStatus* rc);
    CMPIData (*getEntry)(const CMPIContext* ctx, const char* name, CMPIStatus* rc);
    CMPIData (*getEntryAt)(const CMPIContext* ctx, CMPICount index, CMPIString** name,
                           CMPIStatus* rc);
    CMPICount (*getEntryCount)(const CMPIContext* ctx, CMPIStatus* rc);
    CMPIStatus (*addEntry)(const CMPIContext* ctx, const char* name, const CMPIValue* value,
                           const CMPIType type);
};

struct CMPIResult {
    const void* hdl;
    const CMPIResultFT* ft;
};

struct CMPIResultFT {
    CMPIVersion ftVersion;
    CMPIStatus (*release)(CMPIResult* rslt);
    CMPIResult* (*clone)(const CMPIResult* rslt, CMPIStatus* rc);
    CMPIStatus (*returnData)(const CMPIResult* rslt, const CMPIValue* value, const CMPIType type);
    CMPIStatus (*returnInstance)(const CMPIResult* rslt, const CMPIInstance* inst);
    CMPIStatus (*returnObjectPath)(const CMPIResult* rslt, const CMPIObjectPath* op);
    CMPIStatus (*returnDone)(const CMPIResult* rslt);
    CMPIStatus (*returnError)(const CMPIResult* rslt, const CMPIError* er);
};

}  // extern "C"

static_assert(sizeof(CMPIBroker) == 40 && offsetof(CMPIBroker, eft) == 16);
static_assert(offsetof(CMPIBrokerFT, brokerName) == 8 && sizeof(CMPIBrokerFT) == 23 * 8);
static_assert(offsetof(CMPIBrokerFT, enumerateInstances) == 12 * 8);
static_assert(offsetof(CMPIBrokerEncFT, logMessage) == 15 * 8 && sizeof(CMPIBrokerEncFT) == 21 * 8);
static_assert(sizeof(CMPIContextFT) == 7 * 8 && sizeof(CMPIResultFT) == 8 * 8);
