// Languages by the numbers that Windows gives them.
#pragma once

#include <quorkit/enumerations.h>
#include <quorkit/values.h>

namespace quorkit::runtime {

/// The language of a Windows language identifier, whatever the country; eLanguage_Unknown for one
/// that has no constant.
eLanguage languageOf(Integer identifier);

}  // namespace quorkit::runtime
