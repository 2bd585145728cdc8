#pragma once
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
        const std::size_t place = held.find(step.From);
        ASSERT_NE(place, std::string::npos) << "no " << step.From << " in " << held;
        held.replace(place, step.From.size(), step.To);
        EXPECT_EQ(read(lines), held) << "cut after\n" << lines;
    }
}
