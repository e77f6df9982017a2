// CMPI 2.0: the binary interface between a CIMOM and a provider library, on 64-bit Linux.
//
// Member order, types and constants are those of the published CMPI technical standard; assertions
// fix sizes and offsets, so that a slip does not compile. Every function table begins with its
// version. A status pointer that a call takes may be null.
#pragma once

#include <cmpi/broker.h>
#include <cmpi/interfaces.h>
#include <cmpi/objects.h>
#include <cmpi/types.h>
