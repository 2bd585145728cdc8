#include "table.h"
#include "tests/misuse/calls_posix.h"
#include "tests/support/temporaryfolder.h"
#include <algorithm>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

// Every exported operation is called with values that callers should not give it. What the headers
// do not say otherwise: null texts count as empty; null objects and numbers that are no enumerators
// are ignored, and the result is false, null, zero or empty.

namespace {

/// What the header of an operation says otherwise.
struct TException {
    const char* Operation;  ///< how its symbol begins
    const char* Result;     ///< "-": not called; "*": the one that the object has anyway
    const char* Header;
    const char* Words;  ///< of the header, which say so
};

constexpr TException kOfTexts[] = {
    {"TProjectSimLanguageConfig::AddIncludeDirectory", "false",
     "settings/projectsimlanguageconfig.h", "and for a directory that is null"},
    {"TProjectSimLanguageConfig::AddLibraryDirectory", "false",
     "settings/projectsimlanguageconfig.h", "and for a directory that is null"},
};

constexpr const char* kFileList = "projectfiles/hdlprojectfilelist.h";
constexpr const char* kEmptyName = "null makes the file of the empty name";

constexpr TException kOfObjects[] = {
    {"TDListNodePool::ReleaseInFrontOf(", "-", "services/base/dlist.h",
     "The node that lies in front of `item`"},
    {"TDocumentEdit::Read(", "false", "services/xml/documentedit.h", "Keeps `document`"},
    {"THdlBuildFile::GetVerilogCommandLineOptions(", "\" +libext+.vh +typdelays usual\"",
     "buildfile/hdlbuildfile.h", "general configuration counts as one with the default settings"},
    {"TSourceFileGroups::ReadSourceFileGroups(DListIterator<TElement*>&, ISFileName", "true",
     "projectfiles/sourcefilegroups.h", "Null: it does not."},
    {"TSourceFileGroups::AddSourceFile(IHdlSourceFile*, bool, TSourceFileGroups::TAddition*)",
     "true", "projectfiles/sourcefilegroups.h", "The same, and what undoes it"},
    {"THdlUserSourceFileList::AddAt", "a value", kFileList, kEmptyName},
    {"THdlProjectFileList::AddAt", "a value", kFileList, kEmptyName},
    {"THdlSourceFileList::AddAt", "a value", kFileList, kEmptyName},
    {"THdlTimingDiagramFileList::AddAt", "a value", kFileList, kEmptyName},
    {"THdlProjectFileList::InsertFileAndSetOwner(", "a value", kFileList,
     "at the tail when that is null or"},
    {"THdlProjectFileList::assign(unsigned long", "nothing", kFileList, "Null is never"},
    {"THdlProjectFileList::emplace(", "a value", kFileList, "Null is never"},
    {"THdlProjectFileList::insert(", "a value", kFileList, "Null is never"},
    {"TV2VTranslationOptionsList::ReadFromFile(TXMLList*)", "true",
     "translation/v2vtranslationoptionslist.h", "Always true."},
    {"THpjFile::Read(", "1", "settings/hpjfile.h", "HPJ_FILE_MISSING = 1"},
    {"THpjFile::Save(", "6", "settings/hpjfile.h", "HPJ_FILE_NOT_WRITTEN = 6"},
    {"THdbSFileName::GetFileNameRelativeTo(", "\"../a.vhd\"", "services/names/ifilename.h",
     "Sets `*out`, unless null"},
    {"THdbSFileName::GetRelativeFileNameString(", "*", "services/names/ifilename.h",
     "absolute for null"},
    {"THdbSFileName::IsFileModifiedSinceTimestamp(", "true", "services/names/isfilename.h",
     "null: true"},
    {"TMyString::WordSplit(", "1", "services/base/mystring.h", "Returns the number of words"},
    {"GetFileNumber(", "1", "services/names/isfilename.h", "of the blank name for null"},
    {"ReadWholeFile(", "1", "services/files/filereplace.h", "FILE_READ_MISSING = 1"},
    {"ReplaceWholeFile(", "true", "services/files/filereplace.h", "A null `reason` is allowed"},
    {"ResolveOrvaneEnvVariables(char const*", "\"usual\"", "services/names/environment.h",
     "null variables as none"},
    {"SetProgressObserver(", "an object", "services/base/progressobserver.h",
     "returns the former one"},
    {"Fileservices::SetMessageBox(", "an object", "services/logging/messagebox.h",
     "Returns the box replaced"},
    {"TBinaryLogFile::SetSink(", "an object", "services/logging/binarylog.h",
     "Returns the sink replaced"},
    {"TBaseSimToolServerClientCourier::ReadCurrentServerConfigFromFile(", "false",
     "simtools/simtoolserverclientcourier.h", "Makes `server`, known or not, the current server"},
};

constexpr const char* kBuildFile = "buildfile/hdlbuildfile.h";

constexpr TException kOfEnumerators[] = {
    {"GetDelayTypeFromEnum(", "\"typical\"", "settings/simprojectdelaytype.h",
     "\"typical\" for every other number"},
    {"GetDisplayStringFromHdlLanguage(", "\"None\"", "services/hdl/hdllanguage.h",
     "Numbers outside 0 to 9 give \"None\""},
    {"GetStringFromHdlLanguage(", "\"None\"", "services/hdl/hdllanguage.h",
     "Numbers outside 0 to 9 give \"None\""},
    {"GetSimulatorDllNamePrefix(", "\"NONE\"", "services/hdl/simulatortype.h",
     "\"NONE\" for anything outside 0 to 29"},
    {"GetSimulatorNameFromType(", "\"None\"", "services/hdl/simulatortype.h",
     "\"None\" outside 0 to 30"},
    {"GetSystemCDllName(", "\"NONEsc_usuald.dll\"", "services/hdl/simulatortype.h",
     "\"NONE\" for anything outside 0 to 29"},
    {"GetTestBuilderDllName(", "\"NONEusuald.dll\"", "services/hdl/simulatortype.h",
     "\"NONE\" for anything outside 0 to 29"},
    {"THdlBuildFile::AddComponentName(", "true", kBuildFile, "False for a duplicate"},
    {"THdlBuildFile::GetErrorString(", "\"Error not defined.\"", kBuildFile, "Static, never null"},
    {"THdlBuildFile::GetFilesToCompile(", "an object", kBuildFile, "Never null"},
    {"THdlBuildFile::GetSourceFileGroup(", "an object", kBuildFile, "Never null"},
    {"THpjFile::GetErrorString(", "\"unknown error\"", "settings/hpjfile.h", "Static, never null"},
    {"TProjectSimGeneralConfig::GetCompileLanguageFiles(", "true",
     "settings/projectsimgeneralconfig.h", "true for every other language"},
    // SIM_ZORVIK_VHDL.
    {"TSimTypeLanguageMap::GetDefaultOrSupportedSimulator(THdlLanguage, TSimulatorType)", "4",
     "services/hdl/simtypelanguagemap.h", "else the language's default"},
    {"TSourceFileGroups::GetOrCreateGroup(", "an object", "projectfiles/sourcefilegroups.h",
     "made when missing"},
    {"TSourceFileGroups::LookUpGroup(", "an object", "projectfiles/sourcefilegroups.h",
     "The same list"},
    {"TTBIdentifier::GetEscapedName(", "\"counter\"", "services/hdl/identifier.h",
     "The text under which `language` reads this identifier"},
};

/// A count that the caller knows alone.
constexpr TException kOfNumbers[] = {
    {"TV2VTranslationOptionsList::PopulateWithDefaultOptions(", "-",
     "translation/v2vtranslationoptionslist.h",
     "one option for each of the first `count` rows of `table`"},
};

template <std::size_t kCount>
const TException* FindException(const TException (&exceptions)[kCount], const std::string& symbol) {
    for (const TException& each : exceptions)
        if (symbol.starts_with(each.Operation)) return &each;
    return nullptr;
}

/// Keeps the values from being given that the header forbids.
template <std::size_t kCount>
void Forbid(const TException (&exceptions)[kCount], TMisuse misuse, TMisuseRow* row) {
    const TException* const exception = FindException(exceptions, row->Symbol);
    if (!exception || exception->Result != std::string("-")) return;
    for (std::vector<TGiven>& values : row->Parameters) {
        for (TGiven& value : values)
            if (value.Misuse == misuse) value.Misuse = TMisuse::FORBIDDEN;
        // There is nothing else to give.
        if (values.front().Misuse == TMisuse::FORBIDDEN) row->Call = nullptr;
    }
}

/// A row with what came of its calls.
struct TCalledRow {
    TMisuseRow Row;
    TRowOutcomes Outcomes;
};

const std::vector<TCalledRow>& CalledRows() {
    static const std::vector<TCalledRow> called = [] {
        std::vector<TCalledRow> rows;
        for (TMisuseRow& row : MisuseRows()) {
            if (!row.Call) continue;
            Forbid(kOfObjects, TMisuse::NULL_OBJECT, &row);
            Forbid(kOfNumbers, TMisuse::ODD, &row);
            if (!row.Call) continue;
            const TemporaryFolder folder;
            TRowOutcomes outcomes = CallInAllWays(row, folder.Path());
            rows.push_back({std::move(row), std::move(outcomes)});
        }
        return rows;
    }();
    return called;
}

/// Whether the call has usual values but for one parameter, to which that misuse was given.
bool IsMisuseOfOne(const TMisuseRow& row, const TCallOutcome& call, TMisuse misuse) {
    std::size_t unusual = 0;
    bool isMisuse = false;
    for (std::size_t at = 0; at < call.Values.size(); ++at) {
        if (call.Values[at] == 0) continue;
        ++unusual;
        isMisuse = row.Parameters[at][call.Values[at]].Misuse == misuse;
    }
    return unusual == 1 && isMisuse;
}

/// The call that differs in giving the misuse `to`, where that one gave `from`.
const TCallOutcome* FindOther(const TCalledRow& called, const TCallOutcome& call, TMisuse from,
                              TMisuse to) {
    std::vector<std::size_t> values = call.Values;
    for (std::size_t at = 0; at < values.size(); ++at) {
        const std::vector<TGiven>& given = called.Row.Parameters[at];
        if (given[values[at]].Misuse != from) continue;
        const auto found = std::find_if(given.begin(), given.end(),
                                        [&](const TGiven& each) { return each.Misuse == to; });
        if (found != given.end()) values[at] = static_cast<std::size_t>(found - given.begin());
    }
    for (const TCallOutcome& other : called.Outcomes.Calls)
        if (other.IsChanged == call.IsChanged && other.Values == values) return &other;
    return nullptr;
}

bool IsNothing(const std::string& result) {
    static const std::set<std::string> nothing = {"nothing", "false",   "null", "0",
                                                  "\"\"",    "a value", "empty"};
    return nothing.contains(result);
}

/// Expects of each misuse of one parameter what the exceptions say, else what no exception says.
template <std::size_t kCount>
std::size_t ExpectNothing(const TException (&exceptions)[kCount], TMisuse misuse,
                          bool isUnchanged) {
    std::size_t calls = 0;
    for (const auto& [row, outcomes] : CalledRows()) {
        const TException* const exception = FindException(exceptions, row.Symbol);
        for (const TCallOutcome& call : outcomes.Calls) {
            if (!IsMisuseOfOne(row, call, misuse)) continue;
            ++calls;
            if (!exception) {
                EXPECT_TRUE(IsNothing(call.Result)) << TextOf(row, call) << ": " << call.Result;
                if (isUnchanged) {
                    EXPECT_EQ(call.Changes, "") << TextOf(row, call);
                }
            } else if (exception->Result != std::string("*") && !IsNothing(call.Result)) {
                EXPECT_EQ(call.Result, exception->Result) << TextOf(row, call);
            }
        }
    }
    return calls;
}

std::string ReadHeader(const char* header) {
    std::ifstream stream(std::string(HDLBUILDFILE_SOURCE_DIR "/src/") + header);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::set<std::string> ExportedNames() {
    std::ifstream stream(HDLBUILDFILE_SOURCE_DIR "/abi/linux.txt");
    std::set<std::string> names;
    for (std::string line; std::getline(stream, line);) names.insert(line);
    return names;
}

/// Type information, tables and thunks of classes, and allocation: nobody calls those.
bool IsOfNoOperation(const std::string& name) {
    for (const char* const beginning : {"typeinfo ", "vtable ", "VTT ", "virtual thunk ",
                                        "non-virtual thunk ", "operator new", "operator delete"})
        if (name.starts_with(beginning)) return true;
    return false;
}

}  // namespace

TEST(Misuse, IsTriedOfEveryExportedOperation) {
    std::set<std::string> tried;
    std::size_t hidden = 0;
    for (const TMisuseRow& row : MisuseRows()) {
        tried.insert(row.Symbol);
        if (!row.Call) ++hidden;
    }
    std::set<std::string> missing;
    for (const std::string& name : ExportedNames())
        if (!tried.contains(name) && !IsOfNoOperation(name)) missing.insert(name);
    EXPECT_THAT(missing, testing::IsEmpty());
    // What classes hide, and objects.
    EXPECT_LT(hidden, tried.size() / 8);
}

TEST(Misuse, EndsNoProcess) {
    for (const TCalledRow& called : CalledRows()) EXPECT_EQ(called.Outcomes.Crash, "");
}

TEST(Misuse, TakesANullTextForAnEmptyOne) {
    std::size_t pairs = 0;
    for (const TCalledRow& called : CalledRows()) {
        const auto& [row, outcomes] = called;
        const TException* const exception = FindException(kOfTexts, row.Symbol);
        for (const TCallOutcome& call : outcomes.Calls) {
            if (!IsMisuseOfOne(row, call, TMisuse::NULL_TEXT)) continue;
            const TCallOutcome* const other =
                FindOther(called, call, TMisuse::NULL_TEXT, TMisuse::EMPTY_TEXT);
            ASSERT_NE(other, nullptr) << TextOf(row, call);
            ++pairs;
            EXPECT_EQ(call.Result, exception ? exception->Result : other->Result)
                << TextOf(row, call);
            EXPECT_EQ(exception ? call.Changes : call.After, exception ? "" : other->After)
                << TextOf(row, call);
        }
    }
    EXPECT_GT(pairs, 300u);
}

TEST(Misuse, IgnoresNullObjects) {
    EXPECT_GT(ExpectNothing(kOfObjects, TMisuse::NULL_OBJECT, true), 400u);
}

TEST(Misuse, KnowsNothingOfWhatIsNoEnumerator) {
    EXPECT_GT(ExpectNothing(kOfEnumerators, TMisuse::OUTSIDE, false), 300u);
}

TEST(Misuse, DiffersWhereTheHeaderSaysSo) {
    const auto expectWords = [](const auto& exceptions) {
        for (const TException& each : exceptions) {
            EXPECT_NE(ReadHeader(each.Header).find(each.Words), std::string::npos)
                << each.Operation << ": " << each.Words;
            const TMisuseRows rows = MisuseRows();
            EXPECT_TRUE(std::any_of(rows.begin(), rows.end(), [&each](const TMisuseRow& row) {
                return row.Symbol.starts_with(each.Operation);
            })) << each.Operation;
        }
    };
    expectWords(kOfTexts);
    expectWords(kOfObjects);
    expectWords(kOfEnumerators);
    expectWords(kOfNumbers);
}
