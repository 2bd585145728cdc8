#include "filenames/componentname.h"

#include "tests/support/keptobjects.h"
#include <gtest/gtest.h>

namespace {

const TTBIdentifier kTop("top", LANGUAGE_VHDL);
const TTBIdentifier kRtl("rtl", LANGUAGE_VHDL);

}  // namespace

TEST(ComponentName, HoldsWhatItWasMadeOf) {
    const TComponentName name(kTop, kRtl, "work");
    EXPECT_TRUE(name.GetEntity() == kTop);
    EXPECT_TRUE(name.GetArchitecture() == kRtl);
    EXPECT_EQ(name.GetDestinationLibraryName(), "work");
}

TEST(ComponentName, TakesANullLibraryAsEmpty) {
    EXPECT_EQ(TComponentName(kTop, kRtl, nullptr).GetDestinationLibraryName(), "");
}

TEST(ComponentName, CopiesAllThreeParts) {
    const TComponentName source(kTop, kRtl, "work");
    const TComponentName copy(source);
    TComponentName assigned(kRtl, kTop, "other");
    assigned = source;
    for (const TComponentName* name : {&copy, static_cast<const TComponentName*>(&assigned)}) {
        EXPECT_TRUE(name->GetEntity() == kTop);
        EXPECT_TRUE(name->GetArchitecture() == kRtl);
        EXPECT_EQ(name->GetDestinationLibraryName(), "work");
    }
}

TEST(ComponentName, EqualsOnlyTheSameThreeParts) {
    const TComponentName name(kTop, kRtl, "work");
    struct {
        const char* Label;
        const char* Entity;
        const char* Architecture;
        const char* Library;
        bool Equal;
    } const rows[] = {
        {"the same", "top", "rtl", "work", true},
        {"identifiers in another case", "TOP", "Rtl", "work", true},
        {"library in another case", "top", "rtl", "Work", false},
        {"library cut short", "top", "rtl", "wor", false},
        {"another entity", "top2", "rtl", "work", false},
        {"another architecture", "top", "", "work", false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(name.IsEqualTo(TTBIdentifier(row.Entity, LANGUAGE_VHDL),
                                 TTBIdentifier(row.Architecture, LANGUAGE_VHDL), row.Library),
                  row.Equal)
            << row.Label;
}

TEST(ComponentName, IsForgottenWhenDeleted) {
    EXPECT_TRUE(IsForgottenWhenDeleted(new TComponentName(kTop, kRtl, "work")));
}
