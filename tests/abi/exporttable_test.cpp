#include "tests/abi/exporttable.h"
#include "hdlbuildfile.h"
#include "tests/abi/headerscan.h"
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using testing::IsEmpty;

using TNames = std::set<std::string>;

#ifdef _WIN32
constexpr const char* kReviewedTable = HDLBUILDFILE_SOURCE_DIR "/abi/windows.txt";
#else
constexpr const char* kReviewedTable = HDLBUILDFILE_SOURCE_DIR "/abi/linux.txt";
#endif

/// Which operations of a class are functions: the trivial ones have no code.
struct TClassTraits {
    std::string Name;
    bool IsConstructed;
    bool IsCopied;
    bool IsAssigned;
    bool IsDestroyed;
};

template <class T>
TClassTraits Row(const char* name) {
    return {name,
            std::is_default_constructible_v<T> && !std::is_trivially_default_constructible_v<T>,
            std::is_copy_constructible_v<T> && !std::is_trivially_copy_constructible_v<T>,
            std::is_copy_assignable_v<T> && !std::is_trivially_copy_assignable_v<T>,
            !std::is_trivially_destructible_v<T>};
}

const std::vector<TClassTraits> kClasses = {
    Row<ABaseSimToolCourierObserver>("ABaseSimToolCourierObserver"),
    Row<ACorbaImpl>("ACorbaImpl"),
    Row<AEmbeddedObserverMgr>("AEmbeddedObserverMgr"),
    Row<AHdbObjectObserver>("AHdbObjectObserver"),
    Row<ASFileNameObserver>("ASFileNameObserver"),
    Row<BinaryLogMutex>("BinaryLogMutex"),
    Row<IBaseVisitor>("IBaseVisitor"),
    Row<IBinaryLogSink>("IBinaryLogSink"),
    Row<IBuildManager>("IBuildManager"),
    Row<ICorbaImpl>("ICorbaImpl"),
    Row<ICorbaProjectSimGeneralSettingsImpl>("ICorbaProjectSimGeneralSettingsImpl"),
    Row<ICorbaProjectSimLanguageSettingsImpl>("ICorbaProjectSimLanguageSettingsImpl"),
    Row<ICorbaProjectSimSettingsConfigurationImpl>("ICorbaProjectSimSettingsConfigurationImpl"),
    Row<IFileName>("IFileName"),
    Row<IHdlSourceFile>("IHdlSourceFile"),
    Row<IMessageBox>("IMessageBox"),
    Row<IObserverCaller>("IObserverCaller"),
    Row<IProgressObserver>("IProgressObserver"),
    Row<IProjectComponent>("IProjectComponent"),
    Row<ISFileName>("ISFileName"),
    Row<ISimulationResults>("ISimulationResults"),
    Row<TAttributeList>("TAttributeList"),
    Row<TBaseSimTool>("TBaseSimTool"),
    Row<TBaseSimToolServerClientCourier>("TBaseSimToolServerClientCourier"),
    Row<TBinaryLogDiagnosticGroup>("TBinaryLogDiagnosticGroup"),
    Row<TBinaryLogFile>("TBinaryLogFile"),
    Row<TBinaryLogMessageOneArg>("TBinaryLogMessageOneArg"),
    Row<TBinaryLogMessageTwoArgs>("TBinaryLogMessageTwoArgs"),
    Row<TCheckSite>("TCheckSite"),
    Row<TComponentName>("TComponentName"),
    Row<TComponentNameList>("TComponentNameList"),
    Row<TDListNodePool>("TDListNodePool"),
    Row<TDocumentEdit>("TDocumentEdit"),
    Row<TElement>("TElement"),
    Row<TFileLock>("TFileLock"),
    Row<THdbSFileName>("THdbSFileName"),
    Row<THdbSFileNameList>("THdbSFileNameList"),
    Row<THdlBuildFile>("THdlBuildFile"),
    Row<THdlBuildFileXMLList>("THdlBuildFileXMLList"),
    Row<THdlLibrarySourceFileList>("THdlLibrarySourceFileList"),
    Row<THdlProjectDiagramFile>("THdlProjectDiagramFile"),
    Row<THdlProjectFile>("THdlProjectFile"),
    Row<THdlProjectFileList>("THdlProjectFileList"),
    Row<THdlProjectSourceFile>("THdlProjectSourceFile"),
    Row<THdlProjectStimulusResultsFile>("THdlProjectStimulusResultsFile"),
    Row<THdlProjectTemplateFile>("THdlProjectTemplateFile"),
    Row<THdlProjectUserSourceFile>("THdlProjectUserSourceFile"),
    Row<THdlSourceFile>("THdlSourceFile"),
    Row<THdlSourceFileList>("THdlSourceFileList"),
    Row<THdlTimingDiagramFileList>("THdlTimingDiagramFileList"),
    Row<THdlTimingDiagramTemplateFileList>("THdlTimingDiagramTemplateFileList"),
    Row<THdlUserSourceFileList>("THdlUserSourceFileList"),
    Row<THdlUtilitiesSourceFileList>("THdlUtilitiesSourceFileList"),
    Row<TIHdlSourceFileList>("TIHdlSourceFileList"),
    Row<TMyString>("TMyString"),
    Row<TProgress>("TProgress"),
    Row<TRecordsTrusted>("TRecordsTrusted"),
    Row<TProjectComponent>("TProjectComponent"),
    Row<TProjectDiagramSimConfig>("TProjectDiagramSimConfig"),
    Row<THpjFile>("THpjFile"),
    Row<TProjectSimConfig>("TProjectSimConfig"),
    Row<TProjectSimConfigList>("TProjectSimConfigList"),
    Row<TProjectSimGeneralConfig>("TProjectSimGeneralConfig"),
    Row<TProjectSimLanguageConfig>("TProjectSimLanguageConfig"),
    Row<TProjectSimSettings>("TProjectSimSettings"),
    Row<TProjectTemplateSimConfigList>("TProjectTemplateSimConfigList"),
    Row<TPropCache>("TPropCache"),
    Row<TRope>("TRope"),
    Row<TServerConfigurationFileXMLList>("TServerConfigurationFileXMLList"),
    Row<TSimToolSettings>("TSimToolSettings"),
    Row<TSimTypeLanguageMap>("TSimTypeLanguageMap"),
    Row<TSimWrapHdlBuildFile>("TSimWrapHdlBuildFile"),
    Row<TSourceFileExtensions>("TSourceFileExtensions"),
    Row<TSourceFileGroups>("TSourceFileGroups"),
    Row<TTBIdentifier>("TTBIdentifier"),
    Row<TTimeBase>("TTimeBase"),
    Row<TUtilFileName>("TUtilFileName"),
    Row<TV2VTranslationFileOption>("TV2VTranslationFileOption"),
    Row<TV2VTranslationOption>("TV2VTranslationOption"),
    Row<TV2VTranslationOptionsList>("TV2VTranslationOptionsList"),
    Row<TV2VTranslationStringOption>("TV2VTranslationStringOption"),
    Row<TXMLList>("TXMLList"),
    Row<TXMLSectionFile>("TXMLSectionFile"),
    Row<TXMLString>("TXMLString"),
    Row<hdb::IAccept>("hdb::IAccept"),
    Row<hdb::IHDBBase>("hdb::IHDBBase"),
};

const TNames& Exported() {
    static const TNames symbols = ReadExportTable().Symbols;
    return symbols;
}

TNames ReadLines(const char* path) {
    std::ifstream stream(path, std::ios::binary);
    TNames lines;
    for (std::string line; std::getline(stream, line);) lines.insert(line);
    return lines;
}

TNames Without(TNames names, const TNames& others) {
    for (const std::string& other : others) names.erase(other);
    return names;
}

/// The last component of a full name: "IHDBBase" of "hdb::IHDBBase".
std::string BareName(const std::string& fullName) {
    return fullName.substr(fullName.rfind(':') + 1);
}

/// The class of a member's symbol; "" where it is no member of a marked class.
std::string ClassOf(const std::string& symbol) {
    for (const auto& [name, scanned] : ScannedHeaders().Classes) {
        if (symbol.rfind(name + "::", 0) != 0) continue;
        const std::string member = symbol.substr(name.size() + 2);
        if (member.substr(0, member.find('(')).find("::") == std::string::npos) return name;
    }
    return "";
}

/// Whether a symbol is an operation or a static field of a marked class. Private ones are: inline
/// operations of the class call them, and DLLs export classes whole.
bool IsMember(const std::string& symbol) {
    const std::string owner = ClassOf(symbol);
    if (owner.empty()) return false;
    const std::string bare = BareName(owner);
    const TOperation operation = OperationOf(symbol.substr(owner.size() + 2));
    return operation.Name == bare || operation.Name == "~" + bare ||
           operation.Name == "operator=" ||
           ScannedHeaders().Classes.at(owner).Names.count(operation.Name) != 0;
}

/// Whether a symbol is a table or the type information of a marked class, also as an item class
/// that visitors handle.
bool IsTableOfClass(const std::string& symbol) {
    static const std::regex table(
        "(?:vtable for|VTT for|typeinfo for|typeinfo name for|construction vtable for) "
        "(?:IVisitor<([^>]+)>|([A-Za-z0-9:]+)(?:-in-([A-Za-z0-9:]+))?)");
    std::smatch match;
    if (!std::regex_match(symbol, match, table)) return false;
    const auto& classes = ScannedHeaders().Classes;
    for (std::size_t i = 1; i < match.size(); ++i)
        if (match[i].matched && classes.count(match[i]) == 0) return false;
    return true;
}

bool IsThunk(const std::string& symbol) {
    static const std::regex thunk("(?:non-virtual|virtual) thunk to (.*)");
    std::smatch match;
    return std::regex_match(symbol, match, thunk) && IsMember(match[1]);
}

bool IsMarkedFunction(const std::string& symbol) {
    return ScannedHeaders().Functions.count(symbol.substr(0, symbol.find('('))) != 0;
}

/// ELF has one definition of these for the whole process, the program's or else the library's; the
/// C++ library's own code would otherwise allocate what the library frees.
bool IsAllocationFunction(const std::string& symbol) {
#ifdef _WIN32
    static_cast<void>(symbol);
    return false;
#else
    static const std::regex allocation(R"(operator (new|delete)(\[\])?\([^*]*(void\*[^*]*)?\))");
    return std::regex_match(symbol, allocation);
#endif
}

}  // namespace

TEST(ExportTable, IsTheReviewedOne) {
    const TNames reviewed = ReadLines(kReviewedTable);
    EXPECT_THAT(Without(reviewed, Exported()), IsEmpty()) << "reviewed, but not exported";
    EXPECT_THAT(Without(Exported(), reviewed), IsEmpty()) << "exported, but not reviewed";
}

TEST(ExportTable, BelongsToTheNameThatProgramsLoad) {
#ifdef _WIN32
    EXPECT_EQ(ReadExportTable().LibraryName, "hdlbuildfile.dll");
#else
    EXPECT_EQ(ReadExportTable().LibraryName, "libhdlbuildfile.so." HDLBUILDFILE_ABI);
#endif
}

TEST(ExportTable, HoldsEveryPublicOperationOfEveryMarkedClass) {
    std::map<std::string, std::map<TOperation, int>> exported;
    for (const std::string& symbol : Exported())
        if (const std::string owner = ClassOf(symbol); !owner.empty())
            ++exported[owner][OperationOf(symbol.substr(owner.size() + 2))];
    for (const auto& [name, scanned] : ScannedHeaders().Classes) {
        if (name == "IVisitor") continue;  // a template
        for (const auto& [operation, count] : scanned.Public)
            EXPECT_GE(exported[name][operation], count)
                << name << "::" << operation.Name << " with " << operation.Parameters
                << " parameters" << (operation.IsConstant ? ", const" : "");
    }
}

TEST(ExportTable, HoldsTheOperationsThatTheCompilerWrites) {
    for (const TClassTraits& each : kClasses) {
        const std::string bare = BareName(each.Name);
        const std::string constructor = each.Name + "::" + bare;
        // A constructor that the class declares may take the place of the compiler's.
        const bool isDeclared = ScannedHeaders().Classes.at(each.Name).Names.count(bare) != 0;
        TNames expected;
        if (each.IsConstructed && !isDeclared) expected.insert(constructor + "()");
        if (each.IsCopied) expected.insert(constructor + "(" + each.Name + " const&)");
        if (each.IsAssigned) expected.insert(each.Name + "::operator=(" + each.Name + " const&)");
        if (each.IsDestroyed) expected.insert(each.Name + "::~" + bare + "()");
        EXPECT_THAT(Without(expected, Exported()), IsEmpty());
    }
}

TEST(ExportTable, HoldsEveryMarkedFunction) {
    TNames exported;
    for (const std::string& symbol : Exported())
        exported.insert(symbol.substr(0, symbol.find('(')));
    EXPECT_GE(ScannedHeaders().Functions.size(), 40u);
    EXPECT_THAT(Without(ScannedHeaders().Functions, exported), IsEmpty());
}

TEST(ExportTable, HoldsNothingElse) {
    TNames unexpected;
    for (const std::string& symbol : Exported())
        if (!IsMember(symbol) && !IsTableOfClass(symbol) && !IsThunk(symbol) &&
            !IsMarkedFunction(symbol) && !IsAllocationFunction(symbol))
            unexpected.insert(symbol);
    EXPECT_THAT(unexpected, IsEmpty());
}

TEST(HeaderScan, FindsTheMarkedClasses) {
    TNames scanned;
    for (const auto& [name, each] : ScannedHeaders().Classes) scanned.insert(name);
    TNames listed = {"IVisitor"};  // a template
    for (const TClassTraits& each : kClasses) listed.insert(each.Name);
    EXPECT_EQ(scanned, listed);
}

TEST(HeaderScan, TellsOperationsApart) {
    const std::map<TOperation, int> expected = {{{"AddComponentName", 3, false}, 2},
                                                {{"Flush", 0, false}, 1},
                                                {{"GetLanguage", 0, true}, 1},
                                                {{"IsNameInList", 3, true}, 1},
                                                {{"ReadFromFile", 1, false}, 1},
                                                {{"TComponentNameList", 1, false}, 2},
                                                {{"WriteToFile", 1, true}, 1},
                                                {{"begin", 0, true}, 1},
                                                {{"end", 0, true}, 1},
                                                {{"operator=", 1, false}, 1},
                                                {{"size", 0, true}, 1},
                                                {{"~TComponentNameList", 0, false}, 1}};
    EXPECT_EQ(ScannedHeaders().Classes.at("TComponentNameList").Public, expected);
}
