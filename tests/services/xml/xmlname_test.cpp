#include "services/xml/xmlname.h"

#include <gtest/gtest.h>

TEST(XMLName, KeepsWhatTheParserAccepts) {
    struct Row {
        const char *Name, *Written;
        bool IsName = true;
    };
    const Row rows[] = {
        {"Build", "Build"},
        {"a-b.c:d_e9", "a-b.c:d_e9"},
        {"", "_", false},
        {"9a", "_a", false},
        {"-a", "_a", false},
        {".", "_", false},
        {"a b", "a_b", false},
        {"a\tb", "a_b", false},
        {"a+b", "a_b", false},
        {"a/b>c&", "a_b_c_", false},
        {"gr\xC3\xB6\xC3\x9F"
         "e",
         "gr\xC3\xB6\xC3\x9F"
         "e"},
        {"\xC3\xB6", "\xC3\xB6"},
        {"\xF6x", "\xC3\xB6x"},
        {"a\xC3\x97", "a_", false},
        {"\xC2\xB7", "_", false},
        {"a\xC2\xB7", "a\xC2\xB7"},
        {"a\xF0\x9F\x98\x80", "a_", false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ToXMLName(row.Name), row.Written) << row.Name;
        EXPECT_EQ(IsXMLName(row.Name), row.IsName) << row.Name;
    }
}
