#include "native/registry.h"

#include <quorkit/ports/memory.h>

namespace quorkit {

Registry& nativeRegistry() {
    static MemoryRegistry registry;
    return registry;
}

}  // namespace quorkit
