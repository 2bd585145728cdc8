#include "projectfiles/hdllibrarysourcefilelist.h"
#include "projectfiles/hdlprojectstimulusresultsfile.h"
#include "projectfiles/hdlprojecttemplatefile.h"
#include "projectfiles/hdlprojectusersourcefile.h"
#include "projectfiles/hdltimingdiagramtemplatefilelist.h"
#include "projectfiles/hdlusersourcefilelist.h"
#include "projectfiles/hdlutilitiessourcefilelist.h"
#include "services/designdatabase/visitor.h"
#include "tests/projectfiles/projectfilefakes.h"
#include <gtest/gtest.h>

namespace {

class Blind : public IBaseVisitor {
public:
    void VisitUnhandled() override { ++Unhandled; }
    int Unhandled = 0;
};

/// Handles T alone.
template <class T>
class Only : public Blind, public IVisitor<T> {
public:
    void Visit(T* item) override { Visited = item; }
    const hdb::IAccept* Visited = nullptr;
};

/// What a visitor that handles T alone makes of `item`: "visited", "fallback", or what went wrong.
template <class T>
std::string Send(const hdb::IAccept& item) {
    Only<T> visitor;
    item.Accept(&visitor);
    if (visitor.Visited == &item && visitor.Unhandled == 0) return "visited";
    if (!visitor.Visited && visitor.Unhandled == 1) return "fallback";
    return "wrong";
}

/// A line of the classes: 'x' where the visitor of that class alone sees `item`, '.' for a
/// fallback.
template <class... T>
std::string SendToAll(const hdb::IAccept& item) {
    std::string line;
    for (const std::string& outcome : {Send<T>(item)...})
        line += outcome == "visited" ? 'x' : outcome == "fallback" ? '.' : '?';
    return line;
}

std::string Handlers(const hdb::IAccept& item) {
    return SendToAll<THdlProjectFile, THdlProjectDiagramFile, THdlProjectStimulusResultsFile,
                     THdlProjectSourceFile, THdlProjectUserSourceFile, THdlProjectTemplateFile,
                     THdlProjectFileList, THdlSourceFileList, THdlLibrarySourceFileList,
                     THdlUtilitiesSourceFileList, THdlUserSourceFileList, THdlTimingDiagramFileList,
                     THdlTimingDiagramTemplateFileList>(item);
}

TEST(ProjectFileVisitors, SeeFilesOfExactlyTheirClass) {
    EXPECT_EQ(Handlers(THdlProjectFile(Name("a"), nullptr, false)), "x............");
    EXPECT_EQ(Handlers(THdlProjectDiagramFile(Name("a"), nullptr)), ".x...........");
    EXPECT_EQ(Handlers(THdlProjectStimulusResultsFile(Name("a"), nullptr, nullptr)),
              "..x..........");
    EXPECT_EQ(Handlers(THdlProjectSourceFile(Name("a"), nullptr, false)), "...x.........");
    EXPECT_EQ(Handlers(THdlProjectUserSourceFile(Name("a"), nullptr, false)), "....x........");
    EXPECT_EQ(Handlers(THdlProjectTemplateFile(Name("a"), nullptr)), ".....x.......");
}

TEST(ProjectFileVisitors, SeeListsOfExactlyTheirClass) {
    EXPECT_EQ(Handlers(THdlProjectFileList(THdlProjectFileList::LIST_TYPE_NONE, nullptr)),
              "......x......");
    EXPECT_EQ(Handlers(THdlSourceFileList(nullptr)), ".......x.....");
    EXPECT_EQ(Handlers(THdlLibrarySourceFileList(nullptr)), "........x....");
    EXPECT_EQ(Handlers(THdlUtilitiesSourceFileList(nullptr)), ".........x...");
    EXPECT_EQ(Handlers(THdlUserSourceFileList(nullptr)), "..........x..");
    EXPECT_EQ(Handlers(THdlTimingDiagramFileList(nullptr)), "...........x.");
    EXPECT_EQ(Handlers(THdlTimingDiagramTemplateFileList(nullptr)), "............x");
}

TEST(ProjectFileVisitors, MayBeNull) {
    const THdlProjectUserSourceFile file(Name("a.v"), nullptr, false);
    const THdlUserSourceFileList list(nullptr);
    file.Accept(nullptr);
    list.Accept(nullptr);
    EXPECT_EQ(Handlers(file), "....x........");
}

}  // namespace
