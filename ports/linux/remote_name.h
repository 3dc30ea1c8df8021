// Network names of mounts.
#pragma once

#include <quorkit/values.h>

#include <string_view>

namespace quorkit::native {

/// The network name of a mount from its source: "\\server\share" of "//server/share",
/// "\\server\export\data" of "server:/export/data", "\\host\path" of "user@host:/path" and of
/// "https://host:8443/path". "" for a source that names no server.
String remoteNameOf(std::string_view source);

}  // namespace quorkit::native
