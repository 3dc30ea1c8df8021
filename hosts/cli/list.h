// quorkit list: an overview of all classes.
#pragma once

#include <ostream>

namespace quorkit::cli {

/// Prints every class with its kind, the number of its members out of those published, and their
/// names; the totals come last.
void list(std::ostream& out);

}  // namespace quorkit::cli
