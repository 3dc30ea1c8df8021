// Sizes of tests whose point is that large things do not take for ever.
#pragma once

namespace quorkit::test {

/// A tenth of the size where sanitizers make everything some ten times slower.
constexpr int sized(int size) {
#ifdef QUORKIT_SANITIZED
    return size / 10;
#else
    return size;
#endif
}

}  // namespace quorkit::test
