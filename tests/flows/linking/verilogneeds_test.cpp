#include "tests/flows/linking/designtext.h"
#include <gtest/gtest.h>

namespace {

/// All in one library.
std::string LinkVerilog(const std::vector<const char*>& texts) {
    std::vector<TSourceText> sources;
    for (const char* const text : texts) sources.push_back({"l", text, kVerilog});
    return LinkText(sources);
}

constexpr const char* kPackage = "package p; typedef int t; endpackage";
constexpr const char* kModule = "module m; endmodule";

}  // namespace

TEST(VerilogNeeds, PutPackagesAndClassesBeforeTheirUsers) {
    const struct {
        const char* Label;
        std::vector<const char*> Texts;
        const char* Dependencies;
    } rows[] = {
        {"import", {"module a; import p::*; endmodule", kPackage}, "a: b\n"},
        {"import in front of a module", {"import p::t; module a; endmodule", kPackage}, "a: b\n"},
        {"import in a head", {"module a import p::*; (); endmodule", kPackage}, "a: b\n"},
        {"scope", {"module a; p::t x; endmodule", kPackage}, "a: b\n"},
        {"package of a package", {"package q; import p::*; endpackage", kPackage}, "a: b\n"},
        {"base class", {"class d extends c; endclass", "class c; endclass"}, "a: b\n"},
        {"names as they are", {"module a; import P::*; endmodule", kPackage}, ""},
        {"instances order nothing", {"module a; m i(); endmodule", kModule}, ""},
        {"own file", {"package p; endpackage module a; import p::*; endmodule", kPackage}, ""},
    };
    for (const auto& row : rows) EXPECT_EQ(LinkVerilog(row.Texts), row.Dependencies) << row.Label;
}

TEST(VerilogNeeds, PreferTheOwnLibrary) {
    const char* const user = "module a; import p::*; endmodule";
    EXPECT_EQ(
        LinkText({{"l", user, kVerilog}, {"m", kPackage, kVerilog}, {"l", kPackage, kVerilog}}),
        "a: c\n");
    EXPECT_EQ(LinkText({{"l", user, kVerilog}, {"m", kPackage, kVerilog}}), "a: b\n");
}

TEST(VerilogNeeds, LeaveWhatNobodyInstantiatesAndWhatIsMissing) {
    EXPECT_EQ(FindingsIn({{"l", "module a; b i(); m j(); endmodule", kVerilog},
                          {"l", "module b; import q::*; endmodule", kVerilog},
                          {"m",
                           "package p; endpackage primitive u(o, i); output o; input i; "
                           "table 0 : 0; endtable endprimitive",
                           kVerilog},
                          {"m", "module b; endmodule", kVerilog},
                          {"l", "module b; endmodule", kVerilog}}),
              "repeated, module b in b, module b in e\n"
              "missing l.m x1 a:1:18\n"
              "missing l.q x1 b:1:18\n"
              "unneeded package p in c\n"
              "unneeded primitive u in c\n"
              "top module a in a\n"
              "top module b in d\n"
              "top module b in e\n");
}

TEST(VerilogNeeds, TellOfUnitsInTheOtherLanguage) {
    EXPECT_EQ(FindingsIn({{"l", "module Top; ent i(); ent j(); endmodule", kVerilog},
                          {"l",
                           "entity Ent is end; architecture a of ent is begin i: Leaf; "
                           "j: entity work.other; end;"},
                          {"l", "module leaf; endmodule module other; endmodule", kVerilog}}),
              "foreign entity Ent in b a:1:13\n"
              "foreign module leaf in c b:1:54\n"
              "foreign module other in c b:1:70\n"
              "top module Top in a\n");
}
