#pragma once

// The host's 8-bit string.

#include <string>

using CString = std::string;
