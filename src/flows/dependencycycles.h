#pragma once
#include <vector>

class IHdlSourceFile;

/// A strongly connected component of the dependency graph: every source depends, directly or not,
/// on every other.
struct TDependencyCycle {
    std::vector<const IHdlSourceFile*> Files;     ///< in the order in which they were met
    std::vector<const IHdlSourceFile*> Shortest;  ///< a shortest cycle: each depends on the next,
                                                  ///< the last on the first
};

/// Every strongly connected set of the dependency graph that can be reached from `roots`, a source
/// that depends on itself included. Linear, but for the search of a shortest cycle in a large set,
/// which is given up after a number of steps in proportion to the set's size: the shortest cycle
/// found by then is reported.
std::vector<TDependencyCycle> FindDependencyCycles(const std::vector<const IHdlSourceFile*>& roots);
