#include "filenames/hdbsfilenamelist.h"
#include "projectfiles/hdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "settings/projectsimgeneralconfig.h"
#include "settings/projectsimlanguageconfig.h"
#include "simtools/basesimtool.h"
#include "tests/buildfile/buildtexts.h"
#include "tests/outofmemory/buildsample.h"
#include "tests/outofmemory/operation.h"
#include "tests/support/recorders.h"
#include "translation/v2vtranslationstringoption.h"

namespace {

struct TSourceEnd {
    void operator()(THdlSourceFile* source) const { DeleteWithDependencies(source); }
};
using TOwnSource = std::unique_ptr<THdlSourceFile, TSourceEnd>;

TOwnSource MakeSource(const std::string& name) {
    return TOwnSource(new THdlSourceFile(name.c_str()));
}

std::string TextOf(const TIHdlSourceFileList& list) {
    std::string text = GetStringFromHdlLanguage(list.GetLanguage());
    for (const IHdlSourceFile* source : list) text += " " + NameOf(source);
    return text + "\n";
}

std::string TextOf(const THdlSourceFile& source) {
    return NameOf(&source) + " " + source.GetPrecompiledLibraryGroupName() + " " +
           GetStringFromHdlLanguage(const_cast<THdlSourceFile&>(source).GetLanguage()) + " " +
           TextOf(*source.GetDependencyList());
}

/// A build that was read, and what callers put into it.
struct TBuild {
    explicit TBuild(const char* sections = kSectionsThatStay) {
        Folder.Write("v.v", "");
        for (int i = 0; i < kSources; ++i) Folder.Write(SourceName(i), "");
        Build.reset(new TSimWrapHdlBuildFile(
            ISFileName::NewISFileName(Folder.Write("b.xml", MakeBuildText(sections)).c_str())));
        for (const auto& source : {Added.get(), AddedC.get()}) {
            source->SetPrecompiledLibraryGroupName("a library group of a long name");
            source->SetProjectLanguageConfig(&Config);
        }
        Config.SetBuildOptions("options of a source, which are long");
        Other.SetSnapshotName("the snapshot of another build");
        Other.AddSourceFile(Elsewhere.get(), false);
        Other.AddComponentName("a_component_of_another_build", "rtl", "work", LANGUAGE_VERILOG);
    }
    ~TBuild() { Other.GetComponentNameList(LANGUAGE_VERILOG)->Flush(); }
    TBuild(const TBuild&) = delete;
    TBuild& operator=(const TBuild&) = delete;

    std::string GetText() const {
        std::string text = TextOf(*Build);
        for (int i = LANGUAGE_VERILOG; i <= LANGUAGE_NONE; ++i)
            if (const auto* names = Build->GetComponentNameList(static_cast<THdlLanguage>(i)))
                text += std::to_string(names->size()) + " ";
        if (const auto* options = Build->GetV2VOptions())
            for (TV2VTranslationOption* option : *options)
                text += option->GetOptionString() + std::string("=") + option->GetListString();
        for (const IHdlSourceFile* source : *Build->GetSourceFileGroup(LANGUAGE_VHDL))
            text += TextOf(*source->GetDependencyList());
        return text;
    }
    const ISFileName* HandleOf(const std::string& name) const {
        return ISFileName::NewISFileName(Folder.Path(name).c_str());
    }

    RecordingMessageBox Box;
    const TemporaryFolder& Folder = GetEmptyFolder();
    TProjectSimLanguageConfig Config;
    TProjectSimGeneralConfig General;
    TOwnSource Added = MakeSource("an added source.vhd");
    TOwnSource AddedC = MakeSource("an added source.cpp");
    TOwnSource Elsewhere = MakeSource("a source of another build.v");
    TSimWrapHdlBuildFile Other;
    TOwnBuild Build;
};

/// The same without what stays when the build lets go of it.
struct TSmallBuild : TBuild {
    TSmallBuild() : TBuild("") {}
};

std::vector<TWorkRow> MakeBuildEdits() {
    return {
        OperationRow<TBuild>("adding a source",
                             [](TBuild* a) { a->Build->AddSourceFile(a->Added.get(), false); }),
        OperationRow<TBuild>("adding a source of a new language",
                             [](TBuild* a) { a->Build->AddSourceFile(a->AddedC.get(), true); }),
        OperationRow<TBuild>("removing a source",
                             [](TBuild* a) {
                                 a->Build->GetSourceFileGroup(LANGUAGE_VHDL)
                                     ->RemoveSourceFile(a->HandleOf(SourceName(2)));
                             }),
        OperationRow<TBuild>(
            "making a source",
            [](TBuild* a) { a->Build->CreateOrGetSourceFile("a new source.vhd"); }),
        OperationRow<TBuild>("adding a dependency",
                             [](TBuild* a) {
                                 const ISFileName* name = a->HandleOf(SourceName(2));
                                 a->Build->GetSourceFileGroup(LANGUAGE_VHDL)
                                     ->GetSourceFile(name)
                                     ->AddDependency(a->Added.get());
                             }),
        OperationRow<TBuild>("adding a component",
                             [](TBuild* a) {
                                 a->Build->AddComponentName("an_added_component", "rtl", "work",
                                                            LANGUAGE_VHDL);
                             }),
        OperationRow<TBuild>(
            "storing a configuration",
            [](TBuild* a) { a->Build->AddLanguageConfig(LANGUAGE_SYSTEMC, &a->Config); }),
        OperationRow<TBuild>(
            "replacing a configuration",
            [](TBuild* a) { a->Build->AddLanguageConfig(LANGUAGE_VHDL, &a->Config); }),
        OperationRow<TBuild>(
            "storing the configuration of a source",
            [](TBuild* a) { a->Build->AddLanguageConfigForSourceFile(a->Added.get()); }),
        OperationRow<TBuild>("adding a tool",
                             [](TBuild* a) {
                                 auto tool = std::make_unique<TBaseSimTool>();
                                 tool->SetLanguage(LANGUAGE_VHDL);
                                 a->Build->AddSimTool(tool.release());
                             }),
        OperationRow<TBuild>(
            "setting a text",
            [](TBuild* a) { a->Build->SetSnapshotName("a snapshot of another long name"); }),
        OperationRow<TBuild>("adding variables",
                             [](TBuild* a) {
                                 a->Build->AddPseudoEnvironmentVariablesForFilename(
                                     a->Build->GetFileName(), "A_PREFIX_OF_SOME_LENGTH");
                             }),
        OperationRow<TSmallBuild>("clearing a build", [](TSmallBuild* a) { a->Build->ClearAll(); }),
        OperationRow<TSmallBuild>("initialising a build",
                                  [](TSmallBuild* a) { a->Build->Initialize(); }),
        OperationRow<TSmallBuild>("assigning a build",
                                  [](TSmallBuild* a) { *a->Build = a->Other; }),
        OperationRow<TBuild>("filling options",
                             [](TBuild* a) {
                                 TV2VTranslationOptionsList::PopulateWithDefaultVerilog2VhdlOptions(
                                     a->Build->GetV2VOptions());
                             }),
        OperationRow<TBuild>("adding an option",
                             [](TBuild* a) {
                                 a->Build->GetV2VOptions()->AddOptionNoDup(
                                     "-long", "-an option of a long name", "a help text", true);
                             }),
        OperationRow<TBuild>("adding an option that was made",
                             [](TBuild* a) {
                                 auto* const options = a->Build->GetV2VOptions();
                                 if (options->FindOption("-made")) return;
                                 options->AddOptionNoDup(new TV2VTranslationStringOption(
                                     "-made", "-an option of a long name", "a help text", true));
                             }),
        OperationRow<TBuild>("ordering",
                             [](TBuild* a) { a->Build->OrderFilesForCompile(LANGUAGE_VHDL); }),
    };
}

/// A source, and lists of sources that share names.
struct TSources {
    TSources() {
        Source->SetPrecompiledLibraryGroupName("a library group of a long name");
        for (int i = 0; i < kSources; ++i) {
            Many.push_back(MakeSource(SourceName(i)));
            Listed.AddSourceFile(Many.back().get(), false);
            Source->AddDependency(Many.back().get());
        }
        // Two entries of one name.
        *Many[3] = *Many[5];
        Other->AddDependency(Source.get());
    }

    std::string GetText() const { return TextOf(*Source) + TextOf(*Other) + TextOf(Listed); }

    TOwnSource Source = MakeSource("a source.vhd");
    TOwnSource Other = MakeSource("another source.v");
    std::vector<TOwnSource> Many;
    TIHdlSourceFileList Listed;
};

std::vector<TWorkRow> MakeSourceEdits() {
    return {
        OperationRow<TSources>("copying a source",
                               [](TSources* a) {
                                   auto* const copy = new THdlSourceFile(*a->Source);
                                   a->Other.reset(copy);
                               }),
        OperationRow<TSources>("assigning a source", [](TSources* a) { *a->Other = *a->Source; }),
        OperationRow<TSources>("naming a library group",
                               [](TSources* a) {
                                   a->Source->SetPrecompiledLibraryGroupName(
                                       "a group of another long name");
                               }),
        OperationRow<TSources>("assigning a list",
                               [](TSources* a) { a->Listed = *a->Other->GetDependencyList(); }),
        OperationRow<TSources>("listing a source",
                               [](TSources* a) { a->Listed.AddSourceFile(a->Other.get(), true); }),
        OperationRow<TSources>("removing a source of a shared name",
                               [](TSources* a) { a->Listed.RemoveSourceFile(a->Many[5].get()); }),
        OperationRow<TSources>("removing a dependency",
                               [](TSources* a) { a->Source->RemoveDependency(a->Many[1].get()); }),
        OperationRow<TSources>(
            "removing by name",
            [](TSources* a) { a->Listed.RemoveSourceFile(a->Many[7]->GetFileName()); }),
    };
}

/// A list of tracked file names.
struct TNames {
    TNames() {
        Names.SetListName("a list of names");
        Names.AddAtTail("the first file of the list");
        Names.AddAtTail("the second file of the list");
    }
    std::string GetText() const {
        std::string text;
        for (const THdbSFileNameList* names :
             {&Names, static_cast<const THdbSFileNameList*>(Copy.get())}) {
            if (!names) continue;
            text += names->GetName() + std::string(":");
            for (DListIterator<THdbSFileName*> file(*names); file.NotAtTail(); ++file)
                text += std::string(" ") + file.Current()->GetNameAndExt();
        }
        return text;
    }
    void AddOnce(bool atHead, const char* name) {
        if (Names.GetCount() > 2) return;
        if (atHead)
            Names.AddAtHead(name);
        else
            Names.AddAtTail(name);
    }

    THdbSFileNameList Names;
    std::unique_ptr<THdbSFileNameList> Copy;
};

std::vector<TWorkRow> MakeNameEdits() {
    return {
        OperationRow<TNames>("adding a name at the tail",
                             [](TNames* a) { a->AddOnce(false, "a file at the tail"); }),
        OperationRow<TNames>("adding a name at the head",
                             [](TNames* a) { a->AddOnce(true, "a file at the head"); }),
        OperationRow<TNames>(
            "copying names",
            [](TNames* a) { a->Copy = std::make_unique<THdbSFileNameList>(a->Names); }),
    };
}

}  // namespace

std::vector<TWorkRow> MakeEditWorks() {
    std::vector<TWorkRow> works = MakeBuildEdits();
    for (const auto make : {MakeSourceEdits, MakeNameEdits})
        for (TWorkRow& row : make()) works.push_back(std::move(row));
    return works;
}
