#include "services/xml/printbuffer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

TEST(PrintBuffer, CollectsWhatStreamAndPrintersPutIntoIt) {
    TPrintBuffer buffer;
    std::ostream stream(&buffer);
    ASSERT_EQ(TPrintBuffer::Of(stream), &buffer);
    stream << "one " << 2 << ' ';
    char* place = buffer.Reserve(10);
    ASSERT_NE(place, nullptr);
    *place++ = '3';
    buffer.Advance(place);
    buffer.Append(" four");
    EXPECT_EQ(buffer.GetSize(), 12U);
    EXPECT_EQ(buffer.GetText(), "one 2 3 four");
    EXPECT_TRUE(stream.good());
}

TEST(PrintBuffer, TakesTheLastByteBack) {
    for (const std::size_t size : {0U, 3U, 3999U, 4000U, 100000U, 300000U}) {
        TPrintBuffer buffer;
        EXPECT_EQ(buffer.GetLast(), '\0');
        buffer.Append(std::string(size, 'a'));
        buffer.Append(">");
        EXPECT_EQ(buffer.GetLast(), '>') << size;
        buffer.DropLast();
        EXPECT_EQ(buffer.GetSize(), size);
        buffer.Append("/>");
        EXPECT_EQ(buffer.GetText(), std::string(size, 'a') + "/>") << size;
    }
}

TEST(PrintBuffer, HoldsMoreThanItHasRoomForAtATime) {
    TPrintBuffer buffer;
    std::ostream stream(&buffer);
    EXPECT_EQ(buffer.Reserve(1000000), nullptr);
    std::string expected;
    for (int i = 0; i < 50000; ++i) {
        stream.put(static_cast<char>('a' + i % 26));
        stream << i;
        expected += static_cast<char>('a' + i % 26) + std::to_string(i);
    }
    EXPECT_EQ(buffer.GetText(), expected);
}

TEST(PrintBuffer, GivesItsPartsWithoutMovingThem) {
    TPrintBuffer buffer;
    EXPECT_TRUE(buffer.GetParts().empty());
    buffer.Append("first");
    const char* const first = buffer.GetParts().front().data();
    std::string expected = "first";
    for (int i = 0; i < 100000; ++i) {
        buffer.Append(std::to_string(i));
        expected += std::to_string(i);
    }
    std::string joined;
    for (const std::string_view part : buffer.GetParts()) {
        EXPECT_FALSE(part.empty());
        joined += part;
    }
    EXPECT_GT(buffer.GetParts().size(), 1U);
    EXPECT_EQ(buffer.GetSize(), expected.size());
    EXPECT_EQ(buffer.GetParts().front().data(), first);
    EXPECT_TRUE(joined == expected);
}

TEST(PrintBuffer, GivesFullPartsToTheirTaker) {
    std::string taken;
    std::size_t longest = 0;
    TPrintBuffer buffer([&](std::string_view part) {
        longest = std::max(longest, part.size());
        taken += part;
    });
    std::string expected(300000, 'a');
    buffer.Append(expected);
    for (int i = 0; i < 100000; ++i) {
        buffer.Append("<" + std::to_string(i));
        buffer.Append(">");
        // The byte printed last can be taken back, whatever was taken.
        EXPECT_EQ(buffer.GetLast(), '>');
        buffer.DropLast();
        buffer.Append("/>");
        expected += "<" + std::to_string(i) + "/>";
    }
    EXPECT_EQ(buffer.GetSize(), expected.size());
    EXPECT_GT(taken.size(), expected.size() - 100000);
    EXPECT_LE(longest, 64000U);
    EXPECT_LE(buffer.GetParts().size(), 1U);
    EXPECT_TRUE(taken + buffer.GetText() == expected);
}

TEST(PrintBuffer, IsNotFoundInOtherStreams) {
    std::ostringstream other;
    EXPECT_EQ(TPrintBuffer::Of(other), nullptr);
    std::ostream none(nullptr);
    EXPECT_EQ(TPrintBuffer::Of(none), nullptr);
}
