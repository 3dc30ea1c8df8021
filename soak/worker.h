// A process that writes.
#pragma once

#include <cstdint>
#include <functional>

#include "board.h"
#include "changes.h"

namespace quorkit::soak {

/// Takes one step.
using Perform = std::function<Answer(std::uint32_t step)>;

Perform logWriter(const Job& job);
Perform spdlogWriter(const Job& job);
Perform keyFileWriter(const Job& job);

/// The key and value of a step of a worker that only writes new keys: "w1.k7x" and "v7".
std::string newKeyOf(std::uint32_t worker, std::uint32_t step);
std::string newValueOf(std::uint32_t step);
/// The file of a step of Role::NewFiles.
std::string newFileOf(const Job& job, std::uint32_t step);

/// Follows the orders on the board behind the descriptor. Returns the process's exit status.
int work(int board);

}  // namespace quorkit::soak
