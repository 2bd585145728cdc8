#include "cli/frame/streams.h"
#include <gtest/gtest.h>
#include <sstream>

TEST(Streams, ReportInOneEscapedLineOnTheStreamOfErrors) {
    std::ostringstream out;
    std::ostringstream err;
    ReportError({out, err}, "a\nb");
    ReportWarning({out, err}, "\x1b[0m");
    ReportNote({out, err}, "n");
    ReportError({out, err, true}, "c");
    ReportWarning({out, err, true}, "d");
    ReportNote({out, err, true}, "e");
    EXPECT_EQ(out.str(), "");
    EXPECT_EQ(err.str(),
              "hdlbuild: error: a\\nb\n"
              "hdlbuild: warning: \\x1B[0m\n"
              "hdlbuild: note: n\n"
              "hdlbuild: \033[1;31merror\033[0m: c\n"
              "hdlbuild: \033[1;33mwarning\033[0m: d\n"
              "hdlbuild: \033[1;36mnote\033[0m: e\n");
}
