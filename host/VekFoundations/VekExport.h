#pragma once

// How the host's symbols are shared. The module is compiled with hidden visibility and finds the host's functions, and
// the run-time types of the host's classes, in the process that loads it. Every class and function that the host
// defines therefore carries VEK_API.

#define VEK_API __attribute__((visibility("default")))

// A host operation that an older host may lack. The module asks for its address before it calls it.
#define VEK_OPTIONAL __attribute__((weak))
