#include "filenames/hdbsfilename.h"

#include "services/designdatabase/visitor.h"
#include "tests/filenames/recordingfilename.h"
#include "tests/support/memoryfolder.h"
#include "tests/support/recorders.h"
#include "tests/support/slots.h"
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace {

// Taken before any test can assign a name.
const unsigned long long kChangeCountAtStart = THdbSFileName::GetHandleChangeCount();

// Both interfaces are called through the base that introduces the operation, as callers hold it.
using TFileCall = std::string (*)(IFileName&);
using TSharedCall = std::string (*)(const ISFileName&);

std::string TextOf(const char* text) {
    return text ? text : "<null>";
}
std::string TextOf(bool value) {
    return value ? "true" : "false";
}

std::string TextOf(unsigned long value, unsigned long out) {
    return std::to_string(value) + " out " + std::to_string(out);
}

struct TFileRow {
    const char* Label;
    TFileCall Call;
    const char* Answer;       // of the recording handle
    const char* BlankAnswer;  // without a handle
    const char* Log;          // without a handle
};

const TFileRow kFileRows[] = {
    {"CanonicalWithExpandedLinks()",
     [](IFileName& f) { return TextOf(f.CanonicalWithExpandedLinks()); }, "expanded", "", ""},
    {"Canonical(true)", [](IFileName& f) { return TextOf(f.Canonical(true)); }, "canonical", "",
     ""},
    {"Canonical(false)", [](IFileName& f) { return TextOf(f.Canonical(false)); }, "canonical", "",
     ""},
    {"CanonicalWithoutFinalSlash()",
     [](IFileName& f) { return TextOf(f.CanonicalWithoutFinalSlash()); }, "without slash", "", ""},
    {"ShortName(true)", [](IFileName& f) { return TextOf(f.ShortName(true)); }, "short", "", ""},
    {"ShortName(false)", [](IFileName& f) { return TextOf(f.ShortName(false)); }, "short", "", ""},
    {"OsFriendlyCanonical(true)", [](IFileName& f) { return f.OsFriendlyCanonical(true).Str(); },
     "friendly", "", ""},
    {"OsFriendlyCanonical(false)", [](IFileName& f) { return f.OsFriendlyCanonical(false).Str(); },
     "friendly", "", ""},
    {"Squeezed(30, true)", [](IFileName& f) { return TextOf(f.Squeezed(30, true)); }, "squeezed",
     "", ""},
    {"Squeezed(30, false)", [](IFileName& f) { return TextOf(f.Squeezed(30, false)); }, "squeezed",
     "", ""},
    {"GetParts(24)", [](IFileName& f) { return TextOf(f.GetParts(24)); }, "parts", "", ""},
    {"HasParts(16)", [](IFileName& f) { return TextOf(f.HasParts(16)); }, "true", "false", ""},
    {"IsValid()", [](IFileName& f) { return TextOf(f.IsValid()); }, "true", "false", ""},
    {"IsUNC()", [](IFileName& f) { return TextOf(f.IsUNC()); }, "true", "false", ""},
    {"Exists()", [](IFileName& f) { return TextOf(f.Exists()); }, "true", "false", ""},
    {"IsReadable()", [](IFileName& f) { return TextOf(f.IsReadable()); }, "true", "false", ""},
    {"IsWritable()", [](IFileName& f) { return TextOf(f.IsWritable()); }, "true", "false", ""},
    {"IsAutoSaveTempFile()", [](IFileName& f) { return TextOf(f.IsAutoSaveTempFile()); }, "true",
     "false", ""},
    {"Remove()", [](IFileName& f) { return TextOf(f.Remove()); }, "true", "false", ""},
    {"GetDisplayFileName(40, true)",
     [](IFileName& f) { return TextOf(f.GetDisplayFileName(40, true)); }, "display", "",
     "hdbsfilename(107): Check failed: \"FileName\"\n"},
    {"GetDisplayFileName(40, false)",
     [](IFileName& f) { return TextOf(f.GetDisplayFileName(40, false)); }, "display", "",
     "hdbsfilename(107): Check failed: \"FileName\"\n"},
    {"GetFileNameRelativeTo(C:/)",
     [](IFileName& f) {
         TMyString out = "old";
         const std::string result = TextOf(f.GetFileNameRelativeTo("C:/", &out));
         return result + "|" + out.Str();
     },
     "relative to|relative to", "|", "hdbsfilename(100): Check failed: \"FileName\"\n"},
    {"GetRelativeFileNameString(C:\\design\\top.vhd, true, false)",
     [](IFileName& f) {
         const ISFileName* base = ISFileName::NewISFileName("C:/design/top.vhd");
         return f.GetRelativeFileNameString(base, true, false);
     },
     "relative", "", "hdbsfilename(119): Check failed: \"FileName\"\n"},
    {"GetRelativeFileNameString(C:\\design\\top.vhd, false, true)",
     [](IFileName& f) {
         const ISFileName* base = ISFileName::NewISFileName("C:/design/top.vhd");
         return f.GetRelativeFileNameString(base, false, true);
     },
     "relative", "", "hdbsfilename(119): Check failed: \"FileName\"\n"},
    {"IsVirtualFile()", [](IFileName& f) { return TextOf(f.IsVirtualFile()); }, "true", "false",
     ""},
    {"ConvertVirtualFileToTempFile()",
     [](IFileName& f) { return TextOf(f.ConvertVirtualFileToTempFile()); }, "true", "false", ""},
    {"SetAsVirtualFile()",
     [](IFileName& f) {
         f.SetAsVirtualFile();
         return std::string("done");
     },
     "done", "done", ""},
    {"StripVirtualState()",
     [](IFileName& f) {
         f.StripVirtualState();
         return std::string("done");
     },
     "done", "done", ""},
    {"GetNameNoExt()", [](IFileName& f) { return TextOf(f.GetNameNoExt()); }, "name no ext", "",
     ""},
    {"GetNameAndExt()", [](IFileName& f) { return TextOf(f.GetNameAndExt()); }, "name and ext", "",
     ""},
    {"GetFullFileName()", [](IFileName& f) { return TextOf(f.GetFullFileName()); }, "full", "", ""},
    {"GetFullFileNameNoExt()", [](IFileName& f) { return TextOf(f.GetFullFileNameNoExt()); },
     "full no ext", "", ""},
    {"GetPathOnly()", [](IFileName& f) { return TextOf(f.GetPathOnly()); }, "path", "", ""},
    {"GetExtOnly()", [](IFileName& f) { return TextOf(f.GetExtOnly()); }, "ext", "", ""},
    {"GetNameOnly()", [](IFileName& f) { return TextOf(f.GetNameOnly()); }, "name only", "", ""},
};

struct TSharedRow {
    const char* Label;
    TSharedCall Call;
    const char* Answer;
    const char* BlankAnswer;
    int Line;
};

const TSharedRow kSharedRows[] = {
    {"SetDateAndTimeFlag(key)",
     [](const ISFileName& f) {
         f.SetDateAndTimeFlag("key");
         return std::string("done");
     },
     "done", "done", 44},
    {"UpdateTimeFileLastLoaded(key)",
     [](const ISFileName& f) {
         f.UpdateTimeFileLastLoaded("key");
         return std::string("done");
     },
     "done", "done", 50},
    {"UpdateTimeFileLastCompiled(key)",
     [](const ISFileName& f) {
         f.UpdateTimeFileLastCompiled("key");
         return std::string("done");
     },
     "done", "done", 56},
    {"IsFileModifiedSinceLastLoaded(key, false)",
     [](const ISFileName& f) { return TextOf(f.IsFileModifiedSinceLastLoaded("key", false)); },
     "true", "false", 62},
    {"IsFileModifiedSinceLastLoaded(key, true)",
     [](const ISFileName& f) { return TextOf(f.IsFileModifiedSinceLastLoaded("key", true)); },
     "true", "false", 62},
    {"IsFileModifiedSinceLastCompiled(key, false)",
     [](const ISFileName& f) { return TextOf(f.IsFileModifiedSinceLastCompiled("key", false)); },
     "true", "false", 68},
    {"IsFileModifiedSinceLastCompiled(key, true)",
     [](const ISFileName& f) { return TextOf(f.IsFileModifiedSinceLastCompiled("key", true)); },
     "true", "false", 68},
    {"GetFileModificationTime(true)",
     [](const ISFileName& f) {
         unsigned long out = 5;
         const unsigned long result = f.GetFileModificationTime(&out);
         return TextOf(result, out);
     },
     "801 out 801", "0 out 0", 74},
    {"CompareModificationTimeTo(7, 8)",
     [](const ISFileName& f) { return TextOf(f.CompareModificationTimeTo(7, 8)); }, "true", "false",
     81},
    {"GetLastCompiledTimestamp(true)",
     [](const ISFileName& f) {
         unsigned long out = 5;
         const unsigned long result = f.GetLastCompiledTimestamp(&out);
         return TextOf(result, out);
     },
     "601 out 601", "0 out 0", 87},
    {"IsFileModifiedSinceTimestamp(0)",
     [](const ISFileName& f) {
         const unsigned long stamp = 0;
         return TextOf(f.IsFileModifiedSinceTimestamp(&stamp));
     },
     "true", "false", 93},
    {"IsEquivalent(canonical)",
     [](const ISFileName& f) { return TextOf(f.IsEquivalent(RecordingFileName())); }, "true",
     "false", 113},
};

std::string HandleCheck(int line) {
    return "hdbsfilename(" + std::to_string(line) + "): Check failed: \"FileName\"\n";
}

}  // namespace

TEST(HdbSFileName, ForwardsFileNameQueriesToItsHandle) {
    RecordingLog log;
    const RecordingFileName handle;
    THdbSFileName name(&handle);
    for (const auto& row : kFileRows) {
        EXPECT_EQ(row.Call(name), row.Answer) << row.Label;
        EXPECT_EQ(handle.Take(), std::string(row.Label) + "\n");
    }
    EXPECT_EQ(log.Take(), "");
}

TEST(HdbSFileName, ForwardsTimeStampsAndComparisonsToItsHandle) {
    RecordingLog log;
    const RecordingFileName handle;
    const THdbSFileName name(&handle);
    for (const auto& row : kSharedRows) {
        EXPECT_EQ(row.Call(name), row.Answer) << row.Label;
        EXPECT_EQ(handle.Take(), std::string(row.Label) + "\n");
    }
    EXPECT_EQ(log.Take(), "");
}

TEST(HdbSFileName, ForwardsFolderOperationsAndCloning) {
    const RecordingFileName handle;
    const THdbSFileName name(&handle);
    EXPECT_EQ(name.ChangeDir(), 21);
    EXPECT_EQ(name.CreateDir(), 22);
    const std::unique_ptr<IFileName> clone(name.CloneFileName());
    EXPECT_NE(dynamic_cast<RecordingFileName*>(clone.get()), nullptr);
    EXPECT_EQ(handle.Take(), "ChangeDir()\nCreateDir()\nCloneFileName()\n");
}

TEST(HdbSFileName, AnswersAsTheBlankNameWithoutAHandle) {
    RecordingLog log;
    THdbSFileName name(static_cast<const ISFileName*>(nullptr));
    for (const auto& row : kFileRows) {
        EXPECT_EQ(row.Call(name), row.BlankAnswer) << row.Label;
        EXPECT_EQ(log.Take(), row.Log) << row.Label;
    }
    EXPECT_EQ(name.GetFileName(), nullptr);
    EXPECT_STREQ(name.GetName(), "");
    EXPECT_EQ(name.ChangeDir(), -1);
    EXPECT_EQ(name.CreateDir(), -1);
    const std::unique_ptr<IFileName> clone(name.CloneFileName());
    EXPECT_STREQ(clone->Canonical(false), "");
    EXPECT_FALSE(ISFileName::BlankFileName->IsVirtualFile());
    EXPECT_EQ(log.Take(), "");
}

TEST(HdbSFileName, ReportsTheMissingHandleOnEachCheckedCall) {
    RecordingLog log;
    const THdbSFileName name(static_cast<const ISFileName*>(nullptr));
    for (const auto& row : kSharedRows) {
        for (int call = 1; call <= 2; ++call) {
            EXPECT_EQ(row.Call(name), row.BlankAnswer) << row.Label << " call " << call;
            EXPECT_EQ(log.Take(), HandleCheck(row.Line)) << row.Label << " call " << call;
        }
    }
}

TEST(HdbSFileName, AcceptsNoPlaceForTheTimesWithoutAHandle) {
    RecordingLog log;
    const THdbSFileName name(static_cast<const ISFileName*>(nullptr));
    EXPECT_EQ(name.GetFileModificationTime(nullptr), 0UL);
    EXPECT_EQ(name.GetLastCompiledTimestamp(nullptr), 0UL);
    EXPECT_EQ(log.Take(), HandleCheck(74) + HandleCheck(87));
}

TEST(HdbSFileName, RefusesToChange) {
    struct {
        const char* Label;
        void (*Call)(IFileName&);
        int Line;
    } const rows[] = {
        {"Release", [](IFileName& f) { f.Release(); }, 20},
        {"FormCanonicalName", [](IFileName& f) { f.FormCanonicalName(); }, 128},
        {"SetPart", [](IFileName& f) { f.SetPart(8, "other"); }, 161},
        {"StripParts", [](IFileName& f) { f.StripParts(16); }, 165},
        {"Pop", [](IFileName& f) { f.Pop(); }, 213},
        {"PushFileName", [](IFileName& f) { f.PushFileName("other.vhd"); }, 217},
        {"PushDirectory", [](IFileName& f) { f.PushDirectory("other"); }, 221},
    };
    RecordingLog log;
    const RecordingFileName handle;
    THdbSFileName forwarding(&handle);
    THdbSFileName real("C:/design/top.vhd");
    THdbSFileName missing(static_cast<const ISFileName*>(nullptr));
    for (const auto& row : rows) {
        const std::string check =
            "hdbsfilename(" + std::to_string(row.Line) + "): Check failed: \"false\"\n";
        row.Call(forwarding);
        row.Call(real);
        row.Call(missing);
        EXPECT_EQ(log.Take(), check + check + check) << row.Label;
        EXPECT_EQ(handle.Take(), "") << row.Label;
        EXPECT_STREQ(real.Canonical(false), "C:\\design\\top.vhd") << row.Label;
    }
}

TEST(HdbSFileName, WrapsTheSharedHandleOfItsName) {
    const THdbSFileName name("C:/design/./top.vhd");
    EXPECT_EQ(name.GetFileName(), ISFileName::NewISFileName("C:/design/top.vhd"));
    EXPECT_EQ(THdbSFileName(static_cast<const char*>(nullptr)).GetFileName(),
              ISFileName::NewISFileName(""));
}

TEST(HdbSFileName, StoresAHandleAsGiven) {
    const RecordingFileName handle;
    EXPECT_EQ(THdbSFileName(&handle).GetFileName(), &handle);
    const THdbSFileName inner(&handle);
    EXPECT_EQ(THdbSFileName(static_cast<const ISFileName*>(&inner)).GetFileName(), &inner);
}

TEST(HdbSFileName, CopiesWrapTheSameHandle) {
    const RecordingFileName handle;
    const RecordingFileName other;
    const THdbSFileName source(&handle);
    const THdbSFileName copy(source);
    THdbSFileName assigned(&other);
    assigned = source;
    EXPECT_EQ(copy.GetFileName(), &handle);
    EXPECT_EQ(assigned.GetFileName(), &handle);
    EXPECT_EQ(handle.Take() + other.Take(), "");
}

TEST(HdbSFileName, LeavesItsHandleAloneWhenItDies) {
    const RecordingFileName handle;
    {
        const THdbSFileName name(&handle);
        const std::unique_ptr<const ISFileName> owned = std::make_unique<THdbSFileName>(name);
        ASSERT_EQ(owned->GetFileName(), &handle);
    }
    EXPECT_EQ(handle.Take(), "");
}

TEST(HdbSFileName, IsAnItemNamedByItsCanonicalName) {
    THdbSFileName name("C:/design/../top.vhd");
    EXPECT_STREQ(name.GetName(), "C:\\top.vhd");
    EXPECT_EQ(name.GetFullName(), TRope("C:\\top.vhd"));
    EXPECT_EQ(name.GetHDBItemKind(), 0);
    EXPECT_EQ(name.GetLanguage(), 9);
    EXPECT_EQ(name.GetSourceParent(true), nullptr);
    EXPECT_FALSE(name.IsProtected());
    EXPECT_EQ(name.dump(), TRope("C:\\top.vhd"));
}

TEST(HdbSFileName, SharesTheTimeStampsOfItsFile) {
    const MemoryFolder folder;
    const std::string path = folder.Write("top.vhd", "one");
    const THdbSFileName loading(path.c_str());
    const THdbSFileName asking(path.c_str());
    loading.UpdateTimeFileLastLoaded("DEFAULT_TIME_STAMP_KEY");
    EXPECT_FALSE(asking.IsFileModifiedSinceLastLoaded("DEFAULT_TIME_STAMP_KEY", true));
    folder.Write("top.vhd", "another");
    EXPECT_TRUE(asking.IsFileModifiedSinceLastLoaded("DEFAULT_TIME_STAMP_KEY", false));
}

namespace {

class NameVisitor : public IBaseVisitor, public IVisitor<THdbSFileName> {
public:
    void VisitUnhandled() override { ++Unhandled; }
    void Visit(THdbSFileName* name) override { Visited = name; }
    THdbSFileName* Visited = nullptr;
    int Unhandled = 0;
};

class OtherVisitor : public IBaseVisitor {
public:
    void VisitUnhandled() override { ++Unhandled; }
    int Unhandled = 0;
};

}  // namespace

TEST(HdbSFileName, SendsAVisitorToItsTypedHandler) {
    const THdbSFileName name("C:/top.vhd");
    NameVisitor visitor;
    const hdb::IAccept& item = name;
    item.Accept(&visitor);
    EXPECT_EQ(visitor.Visited, &name);
    EXPECT_EQ(visitor.Unhandled, 0);
}

TEST(HdbSFileName, MakesTheFallbackCallOfOtherVisitors) {
    const THdbSFileName name("C:/top.vhd");
    OtherVisitor visitor;
    name.Accept(&visitor);
    EXPECT_EQ(visitor.Unhandled, 1);
    name.Accept(nullptr);
    EXPECT_EQ(visitor.Unhandled, 1);
}

TEST(HdbSFileName, KeepsTheSlotOrderOfTheSharedHandle) {
    EXPECT_EQ(SlotOf(&THdbSFileName::SetDateAndTimeFlag), 1);
    EXPECT_EQ(SlotOf(&THdbSFileName::UpdateTimeFileLastLoaded), 2);
    EXPECT_EQ(SlotOf(&THdbSFileName::UpdateTimeFileLastCompiled), 3);
    EXPECT_EQ(SlotOf(&THdbSFileName::IsFileModifiedSinceLastLoaded), 4);
    EXPECT_EQ(SlotOf(&THdbSFileName::IsFileModifiedSinceLastCompiled), 5);
    EXPECT_EQ(SlotOf(&THdbSFileName::GetLastCompiledTimestamp), 6);
    EXPECT_EQ(SlotOf(&THdbSFileName::IsFileModifiedSinceTimestamp), 7);
    EXPECT_EQ(SlotOf(&THdbSFileName::GetFileModificationTime), 8);
    EXPECT_EQ(SlotOf(&THdbSFileName::CompareModificationTimeTo), 9);
    EXPECT_EQ(SlotOf(&THdbSFileName::IsEquivalent), 10);
    EXPECT_EQ(SlotOf(&THdbSFileName::GetFileName), 11);
}

// Callers were built against objects with the parts in this order.
TEST(HdbSFileName, IsAHandleFirstAndAnItemBehindIt) {
    THdbSFileName name("C:/top.vhd");
    const void* const handle = static_cast<ISFileName*>(&name);
    const void* const item = static_cast<hdb::IHDBBase*>(&name);
    EXPECT_EQ(handle, &name);
    EXPECT_GT(item, handle);
}

TEST(HdbSFileName, CountsHandleChangesFromZero) {
    EXPECT_EQ(kChangeCountAtStart, 0u);
}
