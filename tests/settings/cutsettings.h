#pragma once
#include "tests/support/replaced.h"
#include <gtest/gtest.h>
#include <string>
#include <vector>

/// A line of what is read, and what it changes in the text of the object that reads it: the first
/// `From` becomes `To`. An empty `From` changes nothing.
struct TReadStep {
    std::string Line;
    std::string From = {};
    std::string To = {};
};

/// Expects what `read` gives for the lines, cut after each of them; `held` is what it gives for
/// nothing.
template <class Read>
void ExpectAfterEachCut(const std::vector<TReadStep>& steps, std::string held, Read read) {
    std::string lines;
    EXPECT_EQ(read(lines), held) << "nothing";
    for (const TReadStep& step : steps) {
        lines += step.Line + "\n";
        held = Replaced(held, step.From, step.To);
        EXPECT_EQ(read(lines), held) << "cut after\n" << lines;
    }
}
