// The dispatch procedure of every provider, `__cimple_QUVSG_BMCI2C_<X>_Provider_proc`, through
// which the framework's adapter drives it.
#pragma once

#include <framework/Registration.h>
#include <module/provider_list.h>

#define BMCI2C_PROCEDURE(X)                                                              \
    int __cimple_QUVSG_BMCI2C_##X##_Provider_proc(                                       \
        const cimple::Registration* registration, int operation, void* arg0, void* arg1, \
        void* arg2, void* arg3, void* arg4, void* arg5, void* arg6, void* arg7);
BMCI2C_PROVIDERS(BMCI2C_PROCEDURE, BMCI2C_PROCEDURE)
#undef BMCI2C_PROCEDURE
