#pragma once

#include <string>
#include <vector>

// The processes of the CIM server that this program asks, looked at through /proc.

/// The ids of all processes that have a file of this name mapped; tests/server/in-private sees to it that no other
/// run's are among them.
std::vector<int> processesWith(const std::string& fileName);

/// Whether process `id` has a file of this name mapped.
bool maps(int id, const std::string& fileName);

/// Waits, at most some seconds, until no process has a file of this name mapped.
bool unloads(const std::string& fileName);
