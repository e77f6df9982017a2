// Trace output and number formatting for the providers.
#pragma once

#include <debug/InstancePrinter.h>
#include <debug/NumberText.h>
#include <debug/TraceSink.h>
