#include "services/hdl/timebase.h"
#include <gtest/gtest.h>

TEST(TimeBase, CountsInPicosecondsAndShowsNanoseconds) {
    for (const TTimeBase& timeBase : {TTimeBase(), TTimeBase(1), TTimeBase(5)}) {
        EXPECT_EQ(timeBase.GetBaseTimeUnit(), UNIT_PS);
        EXPECT_EQ(timeBase.GetDisplayTimeUnit(), UNIT_NS);
    }
}

TEST(TimeBase, UnitsHaveNumbersAndTextsAndReadBack) {
    struct Row {
        TUnit unit;
        int number;
        const char* text;
    };
    const Row rows[] = {{UNIT_FS, 0, "fs"}, {UNIT_PS, 1, "ps"}, {UNIT_NS, 2, "ns"},
                        {UNIT_US, 3, "us"}, {UNIT_MS, 4, "ms"}, {UNIT_S, 5, "s"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        TTimeBase timeBase;
        timeBase.SetBaseTimeUnit(row.unit);
        EXPECT_STREQ(timeBase.GetBaseTimeUnitStr(), row.text);
        EXPECT_STREQ(timeBase.GetDisplayTimeUnitStr(), "ns");
        timeBase.SetDisplayTimeUnit(row.unit);
        EXPECT_STREQ(timeBase.GetDisplayTimeUnitStr(), row.text);
        TUnit unit = row.unit == UNIT_FS ? UNIT_S : UNIT_FS;
        EXPECT_TRUE(TTimeBase::GetTimeUnitFromString(row.text, &unit));
        EXPECT_EQ(static_cast<int>(unit), row.number);
    }
}

TEST(TimeBase, KeepsTheUnitForAnyOtherText) {
    for (const char* text : {"", "PS", " ps", "ps ", "sec", static_cast<const char*>(nullptr)}) {
        TUnit unit = UNIT_MS;
        EXPECT_FALSE(TTimeBase::GetTimeUnitFromString(text, &unit));
        EXPECT_EQ(unit, UNIT_MS);
    }
    EXPECT_FALSE(TTimeBase::GetTimeUnitFromString("ps", nullptr));
}

TEST(TimeBase, GivesPicosecondsForANumberOutOfRange) {
    for (const int number : {-1, 6, 1000}) {
        TTimeBase timeBase;
        timeBase.SetBaseTimeUnit(static_cast<TUnit>(number));
        EXPECT_STREQ(timeBase.GetBaseTimeUnitStr(), "ps");
    }
}
