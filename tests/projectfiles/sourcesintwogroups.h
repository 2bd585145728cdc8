#pragma once
#include "projectfiles/sourcefilegroups.h"
#include "tests/projectfiles/sourcefakes.h"
#include <gtest/gtest.h>

/// Verilog: v.v needs p.vhd (one object) and q.v. VHDL: p.vhd (another object), which needs r.vhd.
class SourcesInTwoGroups : public testing::Test {
protected:
    SourcesInTwoGroups() {
        V->AddDependency(PStub);
        V->AddDependency(Q);
        P->AddDependency(R);
        Groups.AddSourceFile(V, false);
        Groups.AddSourceFile(P, false);
    }
    Sources Made;
    THdlSourceFile* V = Made.Make("/p/v.v");
    THdlSourceFile* PStub = Made.Make("/p/p.vhd");
    THdlSourceFile* Q = Made.Make("/p/q.v");
    THdlSourceFile* P = Made.Make("/p/p.vhd");
    THdlSourceFile* R = Made.Make("/p/r.vhd");
    TSourceFileGroups Groups{nullptr};
};
