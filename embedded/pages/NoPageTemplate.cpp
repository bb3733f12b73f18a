// Stands in the place of the template in a build that came without a viewer.

#include "embedded/pages/PageTemplate.h"

namespace embedded {

std::string_view pageTemplate() { return ""; }

}  // namespace embedded
