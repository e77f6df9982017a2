// The objects that providers and CIMOMs exchange.
#pragma once

#include <cmpi/types.h>

extern "C" {

struct CMPIString {
    const void* hdl;
    const CMPIStringFT* ft;
};

struct CMPIStringFT {
    CMPIVersion ftVersion;
    CMPIStatus (*release)(CMPIString* str);
    CMPIString* (*clone)(const CMPIString* str, CMPIStatus* rc);
    const char* (*getCharPtr)(const CMPIString* str, CMPIStatus* rc);
};

struct CMPIArray {
    const void* hdl;
    const CMPIArrayFT* ft;
};

struct CMPIArrayFT {
    CMPIVersion ftVersion;
    CMPIStatus (*release)(CMPIArray* ar);
    CMPIArray* (*clone)(const CMPIArray* ar, CMPIStatus* rc);
    CMPICount (*getSize)(const CMPIArray* ar, CMPIStatus* rc);
    CMPIType (*getSimpleType)(const CMPIArray* ar, CMPIStatus* rc);
    CMPIData (*getElementAt)(const CMPIArray* ar, CMPICount index, CMPIStatus* rc);
    CMPIStatus (*setElementAt)(const CMPIArray* ar, CMPICount index, const CMPIValue* value,
                               CMPIType type);
};

struct CMPIEnumeration {
    const void* hdl;
    const CMPIEnumerationFT* ft;
};

struct CMPIEnumerationFT {
    CMPIVersion ftVersion;
    CMPIStatus (*release)(CMPIEnumeration* en);
    CMPIEnumeration* (*clone)(const CMPIEnumeration* en, CMPIStatus* rc);
    CMPIData (*getNext)(const CMPIEnumeration* en, CMPIStatus* rc);
    CMPIBoolean (*hasNext)(const CMPIEnumeration* en, CMPIStatus* rc);
    CMPIArray* (*toArray)(const CMPIEnumeration* en, CMPIStatus* rc);
};

struct CMPIInstance {
    const void* hdl;
    const CMPIInstanceFT* ft;
};

struct CMPIInstanceFT {
    CMPIVersion ftVersion;
    CMPIStatus (*release)(CMPIInstance* inst);
    CMPIInstance* (*clone)(const CMPIInstance* inst, CMPIStatus* rc);
    CMPIData (*getProperty)(const CMPIInstance* inst, const char* name, CMPIStatus* rc);
    CMPIData (*getPropertyAt)(const CMPIInstance* inst, CMPICount index, CMPIString** name,
                              CMPIStatus* rc);
    CMPICount (*getPropertyCount)(const CMPIInstance* inst, CMPIStatus* rc);
    CMPIStatus (*setProperty)(const CMPIInstance* inst, const char* name, const CMPIValue* value,
                              CMPIType type);
    CMPIObjectPath* (*getObjectPath)(const CMPIInstance* inst, CMPIStatus* rc);
    CMPIStatus (*setPropertyFilter)(const CMPIInstance* inst, const char** properties,
                                    const char** keyList);
    CMPIStatus (*setObjectPath)(const CMPIInstance* inst, const CMPIObjectPath* op);
    CMPIStatus (*setPropertyWithOrigin)(const CMPIInstance* inst, const char* name,
                                        const CMPIValue* value, const CMPIType type,
                                        const char* origin);
};

struct CMPIObjectPath {
    const void* hdl;
    const CMPIObjectPathFT* ft;
};

struct CMPIObjectPathFT {
    CMPIVersion ftVersion;
    CMPIStatus (*release)(CMPIObjectPath* op);
    CMPIObjectPath* (*clone)(const CMPIObjectPath* op, CMPIStatus* rc);
    CMPIStatus (*setNameSpace)(const CMPIObjectPath* op, const char* ns);
    CMPIString* (*getNameSpace)(const CMPIObjectPath* op, CMPIStatus* rc);
    CMPIStatus (*setHostname)(const CMPIObjectPath* op, const char* hn);
    CMPIString* (*getHostname)(const CMPIObjectPath* op, CMPIStatus* rc);
    CMPIStatus (*setClassName)(const CMPIObjectPath* op, const char* cn);
    CMPIString* (*getClassName)(const CMPIObjectPath* op, CMPIStatus* rc);
    CMPIStatus (*addKey)(const CMPIObjectPath* op, const char* key, const CMPIValue* value,
                         const CMPIType type);
    CMPIData (*getKey)(const CMPIObjectPath* op, const char* key, CMPIStatus* rc);
    CMPIData (*getKeyAt)(const CMPIObjectPath* op, CMPICount index, CMPIString** name,
                         CMPIStatus* rc);
    CMPICount (*getKeyCount)(const CMPIObjectPath* op, CMPIStatus* rc);
    CMPIStatus (*setNameSpaceFromObjectPath)(const CMPIObjectPath* op, const CMPIObjectPath* src);
    CMPIStatus (*setHostAndNameSpaceFromObjectPath)(const CMPIObjectPath* op,
                                                    const CMPIObjectPath* src);
    CMPIData (*getClassQualifier)(const CMPIObjectPath* op, const char* qName, CMPIStatus* rc);
    CMPIData (*getPropertyQualifier)(const CMPIObjectPath* op, const char* pName, const char* qName,
                                     CMPIStatus* rc);
    CMPIData (*getMethodQualifier)(const CMPIObjectPath* op, const char* methodName,
                                   const char* qName, CMPIStatus* rc);
    CMPIData (*getParameterQualifier)(const CMPIObjectPath* op, const char* mName,
                                      const char* pName, const char* qName, CMPIStatus* rc);
    CMPIString* (*toString)(const CMPIObjectPath* op, CMPIStatus* rc);
};

struct CMPIArgs {
    const void* hdl;
    const CMPIArgsFT* ft;
};

struct CMPIArgsFT {
    CMPIVersion ftVersion;
    CMPIStatus (*release)(CMPIArgs* args);
    CMPIArgs* (*clone)(const CMPIArgs* args, CMPIStatus* rc);
    CMPIStatus (*addArg)(const CMPIArgs* args, const char* name, const CMPIValue* value,
                         const CMPIType type);
    CMPIData (*getArg)(const CMPIArgs* args, const char* name, CMPIStatus* rc);
    CMPIData (*getArgAt)(const CMPIArgs* args, CMPICount index, CMPIString** name, CMPIStatus* rc);
    CMPICount (*getArgCount)(const CMPIArgs* args, CMPIStatus* rc);
};

struct CMPIDateTime {
    const void* hdl;
    const CMPIDateTimeFT* ft;
};

struct CMPIDateTimeFT {
    CMPIVersion ftVersion;
    CMPIStatus (*release)(CMPIDateTime* dt);
    CMPIDateTime* (*clone)(const CMPIDateTime* dt, CMPIStatus* rc);
    CMPIUint64 (*getBinaryFormat)(const CMPIDateTime* dt, CMPIStatus* rc);
    CMPIString* (*getStringFormat)(const CMPIDateTime* dt, CMPIStatus* rc);
    CMPIBoolean (*isInterval)(const CMPIDateTime* dt, CMPIStatus* rc);
};

struct CMPISelectExpFT {
    CMPIVersion ftVersion;
    CMPIStatus (*release)(CMPISelectExp* se);
    CMPISelectExp* (*clone)(const CMPISelectExp* se, CMPIStatus* rc);
    CMPIBoolean (*evaluate)(const CMPISelectExp* se, const CMPIInstance* inst, CMPIStatus* rc);
    CMPIString* (*getString)(const CMPISelectExp* se, CMPIStatus* rc);
    CMPISelectCond* (*getDOC)(const CMPISelectExp* se, CMPIStatus* rc);
    CMPISelectCond* (*getCOD)(const CMPISelectExp* se, CMPIStatus* rc);
    CMPIBoolean (*evaluateUsingAccessor)(const CMPISelectExp* se, CMPIAccessor* accessor,
                                         void* parm, CMPIStatus* rc);
};

struct CMPIErrorFT {
    CMPIVersion ftVersion;
    CMPIStatus (*release)(CMPIError* er);
    CMPIError* (*clone)(const CMPIError* er, CMPIStatus* rc);
    CMPIErrorType (*getErrorType)(const CMPIError* er, CMPIStatus* rc);
    CMPIString* (*getOtherErrorType)(const CMPIError* er, CMPIStatus* rc);
    CMPIString* (*getOwningEntity)(const CMPIError* er, CMPIStatus* rc);
    CMPIString* (*getMessageID)(const CMPIError* er, CMPIStatus* rc);
    CMPIString* (*getMessage)(const CMPIError* er, CMPIStatus* rc);
    CMPIErrorSeverity (*getPerceivedSeverity)(const CMPIError* er, CMPIStatus* rc);
    CMPIErrorProbableCause (*getProbableCause)(const CMPIError* er, CMPIStatus* rc);
    CMPIString* (*getProbableCauseDescription)(const CMPIError* er, CMPIStatus* rc);
    CMPIArray* (*getRecommendedActions)(const CMPIError* er, CMPIStatus* rc);
    CMPIString* (*getErrorSource)(const CMPIError* er, CMPIStatus* rc);
    CMPIErrorSrcFormat (*getErrorSourceFormat)(const CMPIError* er, CMPIStatus* rc);
    CMPIString* (*getOtherErrorSourceFormat)(const CMPIError* er, CMPIStatus* rc);
    CMPIrc (*getCIMStatusCode)(const CMPIError* er, CMPIStatus* rc);
    CMPIString* (*getCIMStatusCodeDescription)(const CMPIError* er, CMPIStatus* rc);
    CMPIArray* (*getMessageArguments)(const CMPIError* er, CMPIStatus* rc);
    CMPIStatus (*setErrorType)(const CMPIError* er, const CMPIErrorType et);
    CMPIStatus (*setOtherErrorType)(const CMPIError* er, const char* ot);
    CMPIStatus (*setProbableCauseDescription)(const CMPIError* er, const char* pcd);
    CMPIStatus (*setRecommendedActions)(const CMPIError* er, const CMPIArray* ra);
    CMPIStatus (*setErrorSource)(const CMPIError* er, const char* es);
    CMPIStatus (*setErrorSourceFormat)(const CMPIError* er, const CMPIErrorSrcFormat esf);
    CMPIStatus (*setOtherErrorSourceFormat)(const CMPIError* er, const char* oef);
    CMPIStatus (*setCIMStatusCodeDescription)(const CMPIError* er, const char* scd);
    CMPIStatus (*setMessageArguments)(const CMPIError* er, const CMPIArray* values);
};

}  // extern "C"

static_assert(sizeof(CMPIStringFT) == 4 * 8 && sizeof(CMPIArrayFT) == 7 * 8);
static_assert(sizeof(CMPIEnumerationFT) == 6 * 8 && sizeof(CMPIInstanceFT) == 11 * 8);
static_assert(sizeof(CMPIObjectPathFT) == 20 * 8 && sizeof(CMPIArgsFT) == 7 * 8);
static_assert(sizeof(CMPIDateTimeFT) == 6 * 8 && sizeof(CMPISelectExpFT) == 8 * 8);
static_assert(sizeof(CMPIErrorFT) == 27 * 8);
