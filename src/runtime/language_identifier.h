// Languages by their Windows numbers.
#pragma once

#include <quorkit/enumerations.h>
#include <quorkit/values.h>

namespace quorkit::runtime {

/// The language of a Windows language identifier, whatever its country; eLanguage_Unknown for one
/// that has no constant.
eLanguage languageOf(Integer identifier);

}  // namespace quorkit::runtime
