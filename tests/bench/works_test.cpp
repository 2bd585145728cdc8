#include "bench/runner/works.h"
#include <gtest/gtest.h>

namespace {

TComparison Ratio(double ratio) {
    return {ratio, 1, ratio, ratio, ratio};
}

TComparison Bytes(double bytes) {
    return {bytes, 1, 0.5, 0.5, 0.5};
}

}  // namespace

TEST(Works, AreJudgedByGoalAndRedLine) {
    struct {
        const char* Work;
        std::uint32_t Files;
        TShape Shape;
        TComparison Figures;
        TVerdict Verdict;
    } const rows[] = {
        {"read", 1000, TShape::RANDOM, Ratio(1.1), TVerdict::MET},
        {"read", 100000, TShape::RANDOM, Ratio(1.11), TVerdict::MISSED},
        {"read", 1000000, TShape::RANDOM, Ratio(1.4), TVerdict::MET},
        {"read", 1000000, TShape::RANDOM, Ratio(1.41), TVerdict::MISSED},
        {"read", 1000000, TShape::RANDOM, Ratio(1.6), TVerdict::MISSED},
        {"read", 1000, TShape::RANDOM, Ratio(1.61), TVerdict::ABOVE_RED_LINE},
        {"read", 1000, TShape::CHAIN, Ratio(1.42), TVerdict::MET},
        {"read", 1000, TShape::CHAIN, Ratio(1.61), TVerdict::ABOVE_RED_LINE},
        {"order", 10000, TShape::RANDOM, Ratio(1.5), TVerdict::MET},
        {"order", 10000, TShape::RANDOM, Ratio(2.6), TVerdict::ABOVE_RED_LINE},
        {"write", 10000, TShape::RANDOM, Ratio(1.01), TVerdict::MISSED},
        {"write", 1000000, TShape::RANDOM, Ratio(1.2), TVerdict::MET},
        {"write", 10000, TShape::RANDOM, Ratio(2.1), TVerdict::ABOVE_RED_LINE},
        {"command-file", 10000, TShape::RANDOM, Ratio(2.51), TVerdict::ABOVE_RED_LINE},
        {"live-memory", 100000, TShape::RANDOM, Bytes(600), TVerdict::MET},
        {"live-memory", 100000, TShape::RANDOM, Bytes(801), TVerdict::ABOVE_RED_LINE},
        {"peak-memory", 100000, TShape::RANDOM, Bytes(1141), TVerdict::MISSED},
        {"peak-memory", 100000, TShape::RANDOM, Bytes(1501), TVerdict::ABOVE_RED_LINE},
        {"tool-show", 1000, TShape::RANDOM, Ratio(1.3), TVerdict::MET},
        {"tool-order", 1000, TShape::RANDOM, Ratio(9), TVerdict::MISSED},
        {"tool-check", 1000, TShape::RANDOM, Ratio(2), TVerdict::MET},
        {"reload", 1000, TShape::RANDOM, Ratio(1.21), TVerdict::ABOVE_RED_LINE},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Judge(GetWork(row.Work), row.Files, row.Shape, row.Figures), row.Verdict)
            << row.Work << " " << row.Files << " " << row.Figures.Ours;
}

TEST(Works, GrowWithinTheirLimitOnly) {
    TWork work = GetWork("read");
    work.InstructionLimit = 2;
    EXPECT_TRUE(IsWithinLimit(work, Ratio(2)));
    EXPECT_FALSE(IsWithinLimit(work, Ratio(2.01)));
    EXPECT_DOUBLE_EQ(LimitFor(Ratio(2)), 2.1);
}

TEST(Works, HaveAnInstructionLimitForReadOrderAndWrite) {
    for (const char* name : {"read", "order", "write", "command-file"}) {
        EXPECT_STREQ(GetWork(name).Name, name);
        EXPECT_GT(GetWork(name).InstructionLimit, 0) << name;
    }
}
