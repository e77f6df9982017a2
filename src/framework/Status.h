// How an operation of a provider ended. 0 is success in every operation; the numbers between those
// listed belong to operations and outcomes that this framework does not have.
#pragma once

namespace cimple {

enum Status : int {
    STATUS_NO_SUCH_OPERATION = -1,  // also: no such method
    STATUS_OK = 0,
    GET_INSTANCE_UNSUPPORTED = 61,
    ENUM_INSTANCES_FAILED = 70,
    CREATE_INSTANCE_UNSUPPORTED = 81,
    DELETE_INSTANCE_UNSUPPORTED = 91,
    MODIFY_INSTANCE_UNSUPPORTED = 101,
    ENUM_ASSOCIATOR_NAMES_UNSUPPORTED = 111,
    ENUM_REFERENCES_UNSUPPORTED = 121,
    INVOKE_METHOD_FAILED = 130,
    INVOKE_METHOD_UNSUPPORTED = 131,
    ENUM_ASSOCIATORS_UNSUPPORTED = 171,
};

}  // namespace cimple
