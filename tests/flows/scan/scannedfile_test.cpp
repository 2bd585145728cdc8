#include "flows/scan/scannedfile.h"
#include <gtest/gtest.h>
#include <string>

TEST(ScannedFile, TellsWhatFollowsFromEachKindOfNeed) {
    std::string lines;
    for (int kind = 0; kind <= static_cast<int>(TNeedKind::Cell); ++kind) {
        const TNeedRule& rule = GetNeedRule(static_cast<TNeedKind>(kind));
        lines += std::string(rule.Name) + (rule.OrdersFiles ? " orders" : "") +
                 (rule.OrdersSecondary ? " secondary" : "") + (rule.OrdersBody ? " body" : "") +
                 (rule.IsInstantiation ? " instantiates" : "") + "\n";
    }
    EXPECT_EQ(lines,
              "primary orders secondary\n"
              "use orders\n"
              "context orders\n"
              "selected orders\n"
              "entity orders instantiates\n"
              "configuration orders instantiates\n"
              "generic orders body\n"
              "package orders\n"
              "architecture orders secondary\n"
              "binding orders secondary instantiates\n"
              "component instantiates\n"
              "import orders\n"
              "scope orders\n"
              "extends orders\n"
              "class orders\n"
              "instance instantiates\n"
              "interface\n"
              "bind\n"
              "design\n"
              "cell instantiates\n");
}

TEST(ScannedFile, NamesEachKindOfUnit) {
    std::string names;
    for (int kind = 0; kind <= static_cast<int>(TDesignUnitKind::Checker); ++kind)
        names += std::string(GetDesignUnitKindName(static_cast<TDesignUnitKind>(kind))) + "\n";
    EXPECT_EQ(
        names,
        "entity\narchitecture\npackage\npackage body\npackage instance\nconfiguration\n"
        "context\nverification unit\nmodule\ninterface\nprogram\nprimitive\nclass\nchecker\n");
}
