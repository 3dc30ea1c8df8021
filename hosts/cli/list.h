// quorkit list: what there is, at a glance.
#pragma once

#include <ostream>

namespace quorkit::cli {

/// Every class with its kind, how many of its members are there of how many published, and their
/// names; the totals last.
void list(std::ostream& out);

}  // namespace quorkit::cli
