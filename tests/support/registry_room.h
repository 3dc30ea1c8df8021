// One suite of tests for the imitated registry and the native one, so that they cannot drift apart.
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

/// A key of the user's own for one test, the system's (true) or in memory. Nothing else is touched.
class RegistryRoom : public testing::TestWithParam<bool> {
    Scratch scratch;
    Variable dataFolder{"XDG_DATA_HOME", scratch.folder().string()};
    MemoryPorts memory;

   protected:
    Ports& world = GetParam() ? ports::native() : memory;
    Registry& registry = world.registry;
    const String base = u"Software\\" + scratch.folder().filename().u16string();
    RegistryValue value;

    ~RegistryRoom() override { GQuorRegistry(world).Reg_DeletePath(u"HKCU\\" + base); }

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

inline std::string nameOfRegistry(const testing::TestParamInfo<bool>& room) {
    return room.param ? "native" : "memory";
}

}  // namespace quorkit::test
