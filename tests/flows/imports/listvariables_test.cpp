#include "flows/imports/listvariables.h"
#include "tests/support/environmentvariable.h"
#include <gtest/gtest.h>

TEST(ListVariables, AreReplacedInTheFormsOfTheDialect) {
    const EnvironmentVariable variable("IMPORT_TEST", "x$y");
    const struct {
        const char* Text;
        TListVariables Form;
        const char* Kept;
        const char* Emptied;
        std::vector<std::string> Unset;
    } rows[] = {
        {"a/$IMPORT_TEST/b", VARIABLES_ALL, "a/x$y/b", "a/x$y/b", {}},
        {"${IMPORT_TEST}b$(IMPORT_TEST)", VARIABLES_ALL, "x$ybx$y", "x$ybx$y", {}},
        {"$IMPORT_TEST${IMPORT_TEST}",
         VARIABLES_IN_BRACKETS,
         "$IMPORT_TESTx$y",
         "$IMPORT_TESTx$y",
         {}},
        {"$IMPORT_TEST", VARIABLES_NONE, "$IMPORT_TEST", "$IMPORT_TEST", {}},
        {"a${IMPORT_NO}b", VARIABLES_ALL, "a${IMPORT_NO}b", "ab", {"IMPORT_NO"}},
        {"$", VARIABLES_ALL, "$", "$", {}},
        {"$$ ${ $( ${} ${IMPORT_TEST) $-",
         VARIABLES_ALL,
         "$$ ${ $( ${} ${IMPORT_TEST) $-",
         "$$ ${ $( ${} ${IMPORT_TEST) $-",
         {}},
    };
    for (const auto& row : rows) {
        std::vector<std::string> unset;
        EXPECT_EQ(WithVariables(row.Text, row.Form, true, &unset), row.Kept);
        EXPECT_EQ(unset, row.Unset) << row.Text;
        EXPECT_EQ(WithVariables(row.Text, row.Form, false, &unset), row.Emptied);
    }
}
