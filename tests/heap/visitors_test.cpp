#include "hdlbuildfile.h"
#include <gtest/gtest.h>
#include <string>

// Visitors of a program, handed to the library's own classes.

namespace {

class RecordingVisitor : public IBaseVisitor,
                         public IVisitor<THdbSFileName>,
                         public IVisitor<THdbSFileNameList>,
                         public IVisitor<THdlProjectUserSourceFile>,
                         public IVisitor<THdlUserSourceFileList>,
                         public IVisitor<IProjectComponent> {
public:
    void VisitUnhandled() override { Visits += "unhandled "; }
    void Visit(THdbSFileName*) override { Visits += "name "; }
    void Visit(THdbSFileNameList*) override { Visits += "names "; }
    void Visit(THdlProjectUserSourceFile*) override { Visits += "user source "; }
    void Visit(THdlUserSourceFileList*) override { Visits += "user sources "; }
    void Visit(IProjectComponent*) override { Visits += "component "; }
    std::string Visits;
};

}  // namespace

TEST(Visitors, AreRecognisedByTheLibrarysClasses) {
    RecordingVisitor visitor;
    THdbSFileName("a.v").Accept(&visitor);
    THdbSFileNameList().Accept(&visitor);
    THdlProjectUserSourceFile(ISFileName::NewISFileName("a.v"), nullptr, false).Accept(&visitor);
    THdlUserSourceFileList(nullptr).Accept(&visitor);
    THdlBuildFile().Accept(&visitor);
    THdlProjectSourceFile(ISFileName::NewISFileName("a.v"), nullptr, false).Accept(&visitor);
    EXPECT_EQ(visitor.Visits, "name names user source user sources component unhandled ");
}
