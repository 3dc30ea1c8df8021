// The rules of names, the same for every registry.
#pragma once

#include <quorkit/values.h>
#include <quorkit/values/error_code.h>
#include <quorkit/values/registry_value.h>

#include <vector>

namespace quorkit::base {

/// Whether a key can have this name: 1 to kLongestKeyName characters, none of them "\" or U+0000.
bool canNameKey(StringView name);
/// Whether a value can have this name: at most kLongestValueName characters without U+0000.
bool canNameValue(StringView name);

/// Appends the names of the keys in `path`. kBadPathName or kInvalidParameter as Registry says;
/// kInvalidParameter also for more than kDeepestKey names.
ErrorCode splitKeyPath(StringView path, std::vector<String>& names);

}  // namespace quorkit::base
