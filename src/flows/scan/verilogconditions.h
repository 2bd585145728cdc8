#pragma once
#include "flows/scan/verilogdefines.h"
#include <cstddef>
#include <string_view>
#include <vector>

/// Which parts of a Verilog source its conditional directives leave in.
///
/// A condition on a name of which nobody knows whether it is defined is open: its part is left in,
/// and so are those that follow, up to one that is certainly taken.
class TVerilogConditions {
public:
    /// What a directive means to whoever walks the parts that are left in.
    enum class TStep {
        None,
        Fork,  ///< an open condition begins
        Turn,  ///< another of its parts does
        Join   ///< it ends
    };

    /// Keeps `*defines`.
    explicit TVerilogConditions(TVerilogDefines* defines) : Defines(*defines) {}

    /// Whether what follows is left out.
    bool IsSkipping() const { return !Open.empty() && !Open.back().IsTaken; }
    /// Whether what follows is left in for sure.
    bool IsCertain() const { return OpenForks == 0; }
    std::size_t Depth() const { return Open.size(); }

    /// The directives. An empty name is a condition of which nothing is known. All but the first
    /// do nothing without a condition.
    TStep If(std::string_view name, bool isWantedDefined);
    TStep Elsif(std::string_view name);
    TStep Else();
    TStep End();

private:
    struct TOpen {
        bool IsOuterTaken = false;
        bool IsTaken = false;
        bool IsDecided = false;  // a part was certainly taken: none that follows is
        bool IsFork = false;
        bool IsOfOneName = false;  // that ends as defined in every part so far
        bool HasElse = false;
        bool IsWantedDefined = false;
        std::string_view Name;
        std::size_t Begun = 0;
    };
    TStep Take(TOpen* open, TVerilogDefined truth);
    void LeavePart(TOpen* open);

    TVerilogDefines& Defines;
    std::vector<TOpen> Open;
    std::size_t OpenForks = 0;
};
