#include "linux/remote_name.h"

#include <algorithm>

#include "linux/name_text.h"

namespace quorkit::native {

String remoteNameOf(std::string_view source) {
    const auto scheme = source.find("://");
    if (scheme != std::string_view::npos) source.remove_prefix(scheme + 1);
    const bool slashes = source.starts_with("//");
    if (slashes) source.remove_prefix(2);
    if (!slashes && source.find(':') == std::string_view::npos) return {};

    std::string_view server = source.substr(0, source.find('/'));
    std::string path(source.substr(server.size()));
    const auto user = server.substr(0, server.find(':')).rfind('@');
    if (user != std::string_view::npos) server.remove_prefix(user + 1);
    const bool address = server.starts_with('[');  // its colons are inside brackets
    const std::string_view host =
        server.substr(0, address ? server.find(']') + 1 : server.find_first_of(":,"));
    // Behind the host comes a port, more servers with their ports, or the first folder of a path.
    const std::string_view behind = server.substr(host.size());
    if (!slashes && behind.starts_with(':') && !behind.ends_with(':'))
        path.insert(0, behind.substr(1));
    const auto first = path.find_first_not_of('/');
    path.erase(0, first);
    path.erase(path.find_last_not_of('/') + 1);
    if (host.empty()) return {};

    String name = u"\\\\" + textOf(host);
    if (!path.empty()) name += u"/" + textOf(path);
    std::ranges::replace(name, u'/', u'\\');
    return name;
}

}  // namespace quorkit::native
