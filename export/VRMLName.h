#pragma once

// Node names of the host as names that a world may hold behind DEF.

#include <string>

namespace exporter {

/// Turns a host object's name into a node name, in place: "no_name" for an empty one, an underscore before a reserved
/// word, and an underscore for each byte that a name cannot hold. Bytes above 127 stay. Distinct names may become
/// equal.
void makeVRMLName(std::string& name);

}  // namespace exporter
