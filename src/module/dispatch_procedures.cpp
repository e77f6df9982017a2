#include <framework/dispatch.h>
#include <module/all_providers.h>
#include <module/dispatch_procedures.h>

#define BMCI2C_PROCEDURE(X, IS_ASSOCIATION)                                                     \
    int __cimple_QUVSG_BMCI2C_##X##_Provider_proc(                                              \
        const cimple::Registration* registration, int operation, void* arg0, void* arg1,        \
        void* arg2, void* arg3, void* arg4, void* arg5, void* arg6, void* arg7) {               \
        return cimple::dispatch<QUVSG_BMCI2C_##X##_Provider, QUVSG_BMCI2C_##X, IS_ASSOCIATION>( \
            registration, operation, arg0, arg1, arg2, arg3, arg4, arg5, arg6, arg7);           \
    }
#define BMCI2C_PLAIN(X) BMCI2C_PROCEDURE(X, false)
#define BMCI2C_ASSOCIATION(X) BMCI2C_PROCEDURE(X, true)

BMCI2C_PROVIDERS(BMCI2C_PLAIN, BMCI2C_ASSOCIATION)
