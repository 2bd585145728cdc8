#include "tests/flows/linking/designtext.h"
#include "tests/support/growth.h"
#include <gtest/gtest.h>

namespace {

constexpr const char* kEntity = "entity e is end;";
constexpr const char* kArchitecture = "architecture a of e is begin end;";
constexpr const char* kPackage = "package p is end;";
constexpr const char* kBody = "package body p is end;";
constexpr const char* kGeneric = "package g is generic (n : integer); end;";

}  // namespace

TEST(NeedLinker, PutsPrimaryUnitsBeforeTheirSecondaryOnes) {
    ExpectDependencies({
        {"architecture", {{"l", kArchitecture}, {"l", kEntity}}, "a: b\n"},
        {"package body", {{"l", kBody}, {"l", kPackage}}, "a: b\n"},
        {"in one file", {{"l", "entity e is end; architecture a of e is begin end;"}}, ""},
        {"of its own library",
         {{"l", kArchitecture}, {"m", kEntity}, {"L", kEntity}, {"m", kArchitecture}},
         "a: c\nd: b\n"},
        {"configuration and what it configures",
         {{"l", "configuration c of e is for a end for; end;"},
          {"l", kArchitecture},
          {"l", kEntity}},
         "a: c b\nb: c\n"},
        {"verification unit",
         {{"l", "vunit v (e) { assert always a; }"}, {"l", kEntity}},
         "a: b\n"},
    });
}

TEST(NeedLinker, PutsPackagesBeforeTheirUsers) {
    ExpectDependencies({
        {"use clause", {{"l", "use work.p.all; entity e is end;"}, {"l", kPackage}}, "a: b\n"},
        {"of another library",
         {{"l", "library m; use m.p.all; entity e is end;"}, {"l", kPackage}, {"m", kPackage}},
         "a: c\n"},
        {"names in any case",
         {{"Lib", "library LIB; use lib.P.all; entity e is end;"}, {"LIB", kPackage}},
         "a: b\n"},
        {"selected name",
         {{"l", "library m; entity e is port (x : m.p.t); end;"}, {"m", kPackage}},
         "a: b\n"},
        {"a package, not its body",
         {{"l", "use work.p.all; entity e is end;"}, {"l", kBody}, {"l", kPackage}},
         "a: c\nb: c\n"},
        {"extended identifiers",
         {{"l", "use work.\\P\\.all; entity e is end;"},
          {"l", kPackage},
          {"l", "package \\p\\ is end;"},
          {"l", "package \\P\\ is end;"}},
         "a: d\n"},
        {"Latin-1",
         {{"l", "use work.\xC4.all; entity e is end;"}, {"l", "package \xC3\xA4 is end;"}},
         "a: b\n"},
        {"each once, in the order of the needs",
         {{"l",
           "use work.q.all; use work.p.x; entity e is port (a : work.q.t; b : work.p.t); end;"},
          {"l", kPackage},
          {"l", "package q is end;"}},
         "a: c b\n"},
    });
}

TEST(NeedLinker, PutsDirectInstancesBehindWhatTheyInstantiate) {
    constexpr const char* kTop = "entity top is end; architecture a of top is begin ";
    const auto top = [&](const std::string& statement) { return kTop + statement + " end;"; };
    const std::string entity = top("i: entity work.e;");
    const std::string architecture = top("i: entity work.e(a);");
    const std::string configuration = top("i: configuration work.c;");
    const std::string component = top("i: e;");
    const std::string simple = "library m; use m.e; " + top("i: entity e;");
    const std::string whole = "library m; use m.all; " + top("i: entity e;");
    const std::string own = top("i: entity e;");
    ExpectDependencies({
        {"entity", {{"l", entity.c_str()}, {"l", kArchitecture}, {"l", kEntity}}, "a: c\nb: c\n"},
        {"its architecture is elaborated",
         {{"l", architecture.c_str()}, {"l", kArchitecture}, {"l", kEntity}},
         "a: c\nb: c\n"},
        {"configuration",
         {{"l", configuration.c_str()},
          {"l", "configuration c of e is for a end for; end;"},
          {"l", kEntity},
          {"l", kArchitecture}},
         "a: b\nb: c d\nd: c\n"},
        {"components order nothing", {{"l", component.c_str()}, {"l", kEntity}}, ""},
        {"visible entity", {{"l", simple.c_str()}, {"l", kEntity}, {"m", kEntity}}, "a: c\n"},
        {"of a whole library", {{"l", whole.c_str()}, {"l", kEntity}, {"m", kEntity}}, "a: c\n"},
        {"of the own library", {{"l", own.c_str()}, {"l", kEntity}, {"m", kEntity}}, "a: b\n"},
    });
}

TEST(NeedLinker, PutsConfigurationsBehindWhatTheyBind) {
    ExpectDependencies({
        {"entity and architecture",
         {{"l",
           "configuration c of top is for a for i : e use entity work.e(a); end for; end for; "
           "end;"},
          {"l", "entity top is end; architecture a of top is begin i: e; end;"},
          {"l", kArchitecture},
          {"l", kEntity}},
         "a: b d c\nc: d\n"},
        {"configuration",
         {{"l",
           "configuration c of top is for a for i : e use configuration work.d; end for; end for; "
           "end;"},
          {"l", "entity top is end; architecture a of top is begin i: e; end;"},
          {"l", "configuration d of e is for a end for; end;"},
          {"l", "entity e is end; architecture a of e is begin end;"}},
         "a: b c\nc: d\n"},
    });
}

TEST(NeedLinker, PutsInstancesOfPackagesBehindBodies) {
    ExpectDependencies({
        {"library unit",
         {{"l", "package i is new work.g generic map (n => 1);"},
          {"l", "package body g is end;"},
          {"l", kGeneric}},
         "a: c b\nb: c\n"},
        {"without a body",
         {{"l", "package i is new work.g generic map (n => 1);"}, {"l", kGeneric}},
         "a: b\n"},
        {"named alone",
         {{"l", "use work.g; package i is new g generic map (n => 1);"},
          {"l", "package body g is end;"},
          {"l", kGeneric}},
         "a: c b\nb: c\n"},
        {"a use clause needs no body",
         {{"l", "use work.i.all; entity e is end;"},
          {"l", "package i is new work.g generic map (n => 1);"},
          {"l", kGeneric}},
         "a: b\nb: c\n"},
    });
}

TEST(NeedLinker, MeansTheUnitOfTheOwnFileWhereSeveralHoldIt) {
    constexpr const char* kTestbench =
        "entity tb is end; architecture a of tb is begin i: entity work.e; end;";
    ExpectDependencies({
        {"of three testbenches",
         {{"l", kTestbench}, {"l", kTestbench}, {"l", kEntity}, {"l", kTestbench}},
         "a: c\nb: c\nd: c\n"},
        {"the first for all others",
         {{"l", kArchitecture}, {"l", kEntity}, {"l", kEntity}},
         "a: b\n"},
    });
}

TEST(NeedLinker, KeepsTheUnitsOfEachNeedOnRequest) {
    const TDesignFiles files = Design({
        {"l",
         "library m; use m.g; entity e is end; architecture a of e is\n"
         "package i is new m.g;\n"
         "begin one: entity work.f(b); two: c; three: d; four: v; end;"},
        {"m", "package g is generic (n : integer); end; package body g is end;"},
        {"l", "entity f is end; architecture b of f is begin end; entity c is end;"},
        {"m", "entity c is end;"},
        {"x", "entity d is end;"},
        {"y", "entity d is end;"},
        {"l", "module v; w i(); endmodule module w; endmodule", kVerilog},
        {"l", "configuration k of e is for a end for; end;"},
    });
    EXPECT_TRUE(TNeedLinker(files, {}).Link().Units.empty());
    std::string text;
    for (const TLinkedUnit& linked : TNeedLinker(files, {{}, true}).Link().Units)
        text += TextOf(files, linked.Need) + " " + TextOf(files, linked.Unit) + "\n";
    EXPECT_EQ(text,
              "a:1:16 package g in b\n"
              "a:1:56 entity e in a\n"
              "a:2:18 package g in b\n"
              "a:2:18 package body g in b\n"
              "a:3:19 entity f in c\n"
              "a:3:35 entity c in c\n"
              "a:3:35 entity c in d\n"
              "a:3:45 entity d in e\n"
              "a:3:54 module v in g\n"
              "b:1:55 package g in b\n"
              "c:1:36 entity f in c\n"
              "g:1:11 module w in g\n"
              "h:1:20 entity e in a\n"
              "h:1:29 entity e in a\n"
              "h:1:29 architecture a in a\n");
}

// Of files that all hold a testbench of one name, and see the packages of a whole library.
TEST(NeedLinker, TakesTimeInProportionToTheFiles) {
    const auto link = [](int count) {
        TDesignFiles files;
        for (int i = 0; i < count; ++i) {
            const std::string number = std::to_string(i);
            const std::string next = std::to_string(i + 1);
            files.push_back(
                {"l", ScanVhdl("library l; use l.all; entity tb is end; package p" + number +
                                   " is end; architecture a of tb is begin x <= p" + next +
                                   ".c; i: tb; j: missing" + number + "; end;",
                               {})});
        }
        const TLinkedDesign design = TNeedLinker(files, {}).Link();
        ASSERT_EQ(design.Dependencies.size(), files.size());
        for (std::size_t i = 0; i + 1 < files.size(); ++i) {
            ASSERT_EQ(design.Dependencies[i].size(), 1u) << i;
            ASSERT_EQ(design.Dependencies[i][0].File, i + 1);
        }
        EXPECT_TRUE(design.Dependencies.back().empty());
    };
    EXPECT_LT(GrowthOf(link, 1000), kLargestLinearGrowth);
}
