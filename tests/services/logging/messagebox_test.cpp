#include "services/logging/messagebox.h"
#include "tests/support/recorders.h"
#include <gtest/gtest.h>

namespace {

TEST(MessageBox, WritesToStandardErrorUnlessReplaced) {
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    IMessageBox* const box = Fileservices::GetMessageBox();
    box->ShowMessage("Missing File: \"a.v\"", "HdlBuildFile", 0);
    box->ShowMessage("50% done", "%s", 7);
    box->ShowMessage(nullptr, nullptr, 0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "HdlBuildFile: Missing File: \"a.v\"\n%s: 50% done\n: \n");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(MessageBox, IsReplacedUntilRestored) {
    IMessageBox* const builtIn = Fileservices::GetMessageBox();
    RecordingMessageBox first;
    EXPECT_EQ(Fileservices::GetMessageBox(), &first);
    {
        RecordingMessageBox second;
        Fileservices::GetMessageBox()->ShowMessage("text", "caption", 0);
        EXPECT_EQ(second.Take(), "caption: text [0]\n");
    }
    EXPECT_EQ(Fileservices::GetMessageBox(), &first);
    EXPECT_EQ(first.Take(), "");
    EXPECT_EQ(Fileservices::SetMessageBox(nullptr), &first);
    EXPECT_EQ(Fileservices::GetMessageBox(), builtIn);
    EXPECT_EQ(Fileservices::SetMessageBox(nullptr), nullptr);
}

}  // namespace
