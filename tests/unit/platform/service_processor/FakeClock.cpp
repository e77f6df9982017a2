#include "FakeClock.h"

platform::Time platform::Now() { return FakeClock::now; }
