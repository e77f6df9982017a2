// CMPI scalars, codes, values and states.
#pragma once

#include <cstddef>
#include <cstdint>

extern "C" {

using CMPIBoolean = unsigned char;
using CMPIUint8 = std::uint8_t;
using CMPIUint16 = std::uint16_t;
using CMPIUint32 = std::uint32_t;
using CMPIUint64 = std::uint64_t;
using CMPISint8 = std::int8_t;
using CMPISint16 = std::int16_t;
using CMPISint32 = std::int32_t;
using CMPISint64 = std::int64_t;
using CMPIChar16 = std::uint16_t;
using CMPIReal32 = float;
using CMPIReal64 = double;
using CMPICount = unsigned int;
using CMPIFlags = unsigned int;
using CMPIType = unsigned short;
using CMPIValueState = unsigned short;
using CMPIVersion = int;
using CMPIMsgFileHandle = void*;

struct CMPIBroker;
struct CMPIBrokerFT;
struct CMPIBrokerEncFT;
struct CMPIBrokerExtFT;
struct CMPIBrokerMemFT;
struct CMPIContext;
struct CMPIContextFT;
struct CMPIResult;
struct CMPIResultFT;
struct CMPIString;
struct CMPIStringFT;
struct CMPIArray;
struct CMPIArrayFT;
struct CMPIEnumeration;
struct CMPIEnumerationFT;
struct CMPIInstance;
struct CMPIInstanceFT;
struct CMPIObjectPath;
struct CMPIObjectPathFT;
struct CMPIArgs;
struct CMPIArgsFT;
struct CMPIDateTime;
struct CMPIDateTimeFT;
struct CMPISelectExp;
struct CMPISelectExpFT;
struct CMPISelectCond;
struct CMPIAccessor;
struct CMPIError;
struct CMPIErrorFT;
struct CMPIInstanceMI;
struct CMPIInstanceMIFT;
struct CMPIAssociationMI;
struct CMPIAssociationMIFT;
struct CMPIMethodMI;
struct CMPIMethodMIFT;

// Type codes. An array of a type is CMPI_ARRAY | type.
enum : CMPIType {
    CMPI_null = 0,
    CMPI_boolean = 0x0002,
    CMPI_char16 = 0x0003,
    CMPI_real32 = 0x0008,
    CMPI_real64 = 0x000c,
    CMPI_uint8 = 0x0080,
    CMPI_uint16 = 0x0090,
    CMPI_uint32 = 0x00a0,
    CMPI_uint64 = 0x00b0,
    CMPI_sint8 = 0x00c0,
    CMPI_sint16 = 0x00d0,
    CMPI_sint32 = 0x00e0,
    CMPI_sint64 = 0x00f0,
    CMPI_instance = 0x1000,
    CMPI_ref = 0x1100,
    CMPI_args = 0x1200,
    CMPI_class = 0x1300,
    CMPI_filter = 0x1400,
    CMPI_enumeration = 0x1500,
    CMPI_string = 0x1600,
    CMPI_chars = 0x1700,
    CMPI_dateTime = 0x1800,
    CMPI_ptr = 0x1900,
    CMPI_charsptr = 0x1a00,
    CMPI_ARRAY = 0x2000,
};

enum : CMPIValueState {
    CMPI_goodValue = 0,
    CMPI_nullValue = 0x0100,
    CMPI_keyValue = 0x0200,
    CMPI_notFound = 0x0400,
    CMPI_badValue = 0x8000,
};

enum CMPIrc {
    CMPI_RC_OK = 0,
    CMPI_RC_ERR_FAILED = 1,
    CMPI_RC_ERR_ACCESS_DENIED = 2,
    CMPI_RC_ERR_INVALID_NAMESPACE = 3,
    CMPI_RC_ERR_INVALID_PARAMETER = 4,
    CMPI_RC_ERR_INVALID_CLASS = 5,
    CMPI_RC_ERR_NOT_FOUND = 6,
    CMPI_RC_ERR_NOT_SUPPORTED = 7,
    CMPI_RC_ERR_CLASS_HAS_CHILDREN = 8,
    CMPI_RC_ERR_CLASS_HAS_INSTANCES = 9,
    CMPI_RC_ERR_INVALID_SUPERCLASS = 10,
    CMPI_RC_ERR_ALREADY_EXISTS = 11,
    CMPI_RC_ERR_NO_SUCH_PROPERTY = 12,
    CMPI_RC_ERR_TYPE_MISMATCH = 13,
    CMPI_RC_ERR_QUERY_LANGUAGE_NOT_SUPPORTED = 14,
    CMPI_RC_ERR_INVALID_QUERY = 15,
    CMPI_RC_ERR_METHOD_NOT_AVAILABLE = 16,
    CMPI_RC_ERR_METHOD_NOT_FOUND = 17,
    CMPI_RC_NO_MORE_ELEMENTS = 18,
    CMPI_RC_DO_NOT_UNLOAD = 50,
    CMPI_RC_NEVER_UNLOAD = 51,
    CMPI_RC_ERR_INVALID_HANDLE = 60,
    CMPI_RC_ERR_INVALID_DATA_TYPE = 61,
    CMPI_RC_ERROR_SYSTEM = 100,
    CMPI_RC_ERROR = 200,
};

enum CMPILevel { CMPI_LEV_INFO = 1, CMPI_LEV_WARNING, CMPI_LEV_VERBOSE };
enum CMPISeverity { CMPI_SEV_ERROR = 1, CMPI_SEV_INFO, CMPI_SEV_WARNING };

// Passed on as they are; this project makes no CMPIError objects.
enum CMPIErrorType : int {};
enum CMPIErrorSeverity : int {};
enum CMPIErrorProbableCause : int {};
enum CMPIErrorSrcFormat : int {};

// Context entries.
#define CMPIInvocationFlags "CMPIInvocationFlags"
#define CMPIInitNameSpace "CMPIInitNameSpace"
#define CMPIPrincipal "CMPIPrincipal"
#define CMPIRole "CMPIRole"
#define CMPIAcceptLanguage "CMPIAcceptLanguage"
#define CMPIContentLanguage "CMPIContentLanguage"

enum : CMPIFlags {  // bits of CMPIInvocationFlags
    CMPI_FLAG_LocalOnly = 1,
    CMPI_FLAG_DeepInheritance = 2,
    CMPI_FLAG_IncludeQualifiers = 4,
    CMPI_FLAG_IncludeClassOrigin = 8,
};

enum : unsigned int {  // bits of CMPIBrokerFT::brokerCapabilities
    CMPI_MB_BasicRead = 0x1,
    CMPI_MB_BasicWrite = 0x3,
    CMPI_MB_InstanceManipulation = 0x7,
    CMPI_MB_AssociationTraversal = 0x9,
    CMPI_MB_PropertyFiltering = 0x40001,
};

enum : CMPIVersion { CMPIVersion100 = 100, CMPIVersion200 = 200, CMPIVersion210 = 210 };

struct CMPIValuePtr {
    void* ptr;
    CMPICount length;
};

union CMPIValue {
    CMPIUint64 uint64;
    CMPIUint32 uint32;
    CMPIUint16 uint16;
    CMPIUint8 uint8;
    CMPISint64 sint64;
    CMPISint32 sint32;
    CMPISint16 sint16;
    CMPISint8 sint8;
    CMPIReal64 real64;
    CMPIReal32 real32;
    CMPIBoolean boolean;
    CMPIChar16 char16;
    CMPIInstance* inst;
    CMPIObjectPath* ref;
    CMPIArgs* args;
    CMPISelectExp* filter;
    CMPIEnumeration* Enum;
    CMPIArray* array;
    CMPIString* string;
    char* chars;
    CMPIDateTime* dateTime;
    CMPIValuePtr dataPtr;
    CMPISint8 Byte;
    CMPISint16 Short;
    CMPISint32 Int;
    CMPISint64 Long;
    CMPIReal32 Float;
    CMPIReal64 Double;
};

// A typed value and its state.
struct CMPIData {
    CMPIType type;
    CMPIValueState state;
    CMPIValue value;
};

// How a call ended; `msg` may be null.
struct CMPIStatus {
    CMPIrc rc;
    CMPIString* msg;
};

}  // extern "C"

static_assert(sizeof(CMPIValue) == 16);
static_assert(sizeof(CMPIData) == 24 && offsetof(CMPIData, value) == 8);
static_assert(sizeof(CMPIStatus) == 16 && offsetof(CMPIStatus, msg) == 8);
