#include "registry/reg_path.h"

#include "runtime/letter_case.h"

namespace quorkit {
namespace {

struct RootName {
    StringView name;
    RegistryRoot root;
};
constexpr RootName kRootNames[] = {
    {u"HKEY_CURRENT_USER", RegistryRoot::CurrentUser},   {u"HKCU", RegistryRoot::CurrentUser},
    {u"HKEY_LOCAL_MACHINE", RegistryRoot::LocalMachine}, {u"HKLM", RegistryRoot::LocalMachine},
    {u"HKEY_CLASSES_ROOT", RegistryRoot::ClassesRoot},   {u"HKCR", RegistryRoot::ClassesRoot},
};

}  // namespace

RegPath splitRegPath(const String& text) {
    for (const auto& [name, root] : kRootNames) {
        if (runtime::toUpper(text.substr(0, name.size())) != name) continue;
        const bool more = text.size() > name.size();
        return {root, more ? text.substr(name.size() + 1) : String()};
    }
    return {};
}

}  // namespace quorkit
