// One suite of tests for the registry in memory and the native one, so that both behave the same.
#pragma once

#include <gmock/gmock.h>
#include <quorkit/GQuorRegistry.h>
#include <quorkit/ports/memory.h>

#include "registry/open_key.h"
#include "support/environment.h"
#include "support/scratch.h"

namespace quorkit::test {

using Names = std::vector<String>;
using Values = std::vector<NamedValue>;

/// A key for one test, in the system's registry (true) or in memory. The rest of the registry is
/// left alone.
class EachRegistry : public testing::TestWithParam<bool> {
    Scratch scratch;
    Variable dataFolder{"XDG_DATA_HOME", scratch.folder().string()};
    MemoryPorts memory;

   protected:
    Ports& world = GetParam() ? ports::native() : memory;
    Registry& registry = world.registry;
    const String base = u"Software\\" + scratch.folder().filename().u16string();
    RegistryValue value;

    ~EachRegistry() override { GQuorRegistry(world).Reg_DeletePath(u"HKCU\\" + base); }

    registry::RegPath at(const String& path) const {
        return {RegistryRoot::CurrentUser, base + path};
    }
    registry::OpenKey make(const String& path = {}) {
        return {registry, at(path), RegistryAccess::Write, registry::Unopened::IsMade};
    }
    registry::OpenKey read(const String& path = {}) {
        return {registry, at(path), RegistryAccess::Read};
    }
};

inline std::string nameOfRegistry(const testing::TestParamInfo<bool>& info) {
    return info.param ? "native" : "memory";
}

}  // namespace quorkit::test
