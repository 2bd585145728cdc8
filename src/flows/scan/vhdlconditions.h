#pragma once
#include "flows/scan/scannedfile.h"
#include <string_view>
#include <vector>

/// Which parts of a source the conditional analysis of VHDL-2019 leaves in.
///
/// A condition that asks for a name without a define, or that cannot be read, may be true or false:
/// its part is left in, and so are those that follow, up to one that is certainly true.
class TVhdlConditions {
public:
    /// Keeps `defines`, not a copy.
    explicit TVhdlConditions(const std::vector<TScanDefine>& defines) : Defines(defines) {}

    /// Whether what follows is left out.
    bool IsSkipping() const { return !Open.empty() && !Open.back().IsTaken; }

    /// The directives. `condition` is what stands behind the word, up to the end of the line. All
    /// but the first do nothing without an open condition.
    void If(std::string_view condition);
    void Elsif(std::string_view condition);
    void Else();
    void End();

private:
    struct TOpen {
        bool IsOuterTaken;
        bool IsTaken;
        bool IsDecided;  // a part was certainly taken: none that follows is
    };
    void Take(TOpen* open, std::string_view condition) const;

    const std::vector<TScanDefine>& Defines;
    std::vector<TOpen> Open;
};
