#pragma once
#include <vector>

class IHdlSourceFile;
class TIHdlSourceFileList;

/// A source that stands behind one that needs it.
struct TLateSource {
    IHdlSourceFile* Source;
    const IHdlSourceFile* User;  ///< depends on it, directly or not
};

/// A group in an order in which its sources can be compiled as they are listed.
struct TCompileSort {
    std::vector<IHdlSourceFile*> Order;
    std::vector<TLateSource> Late;  ///< that had to move, in their new order
};

/// Puts each source that others need in front of the first of them, right before it; the rest keep
/// their order. What depends on each other in a cycle orders nothing. Linear.
TCompileSort SortForCompile(const TIHdlSourceFileList& group);
