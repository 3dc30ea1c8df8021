#include "registry/reg_path.h"

#include <algorithm>

#include "base/letter_case.h"

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
    for (const auto& [name, root] : kRootNames)
        if (base::toUpper(StringView(text).substr(0, name.size())) == name)
            return {root, text.substr(std::min(text.size(), name.size() + 1))};
    return {};
}

}  // namespace quorkit
