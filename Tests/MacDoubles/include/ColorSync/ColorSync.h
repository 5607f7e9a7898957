// The part of ColorSync that the port calls, by its documented names.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

extern "C" CFUUIDRef CGDisplayCreateUUIDFromDisplayID(uint32_t displayID);
