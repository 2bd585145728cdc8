#include "flows/buildedit.h"
#include "flows/formats/exportformats.h"
#include "flows/imports/importedbuild.h"
#include "services/names/isfilename.h"
#include "tests/flows/imports/importedtext.h"
#include "tests/support/recorders.h"
#include <gtest/gtest.h>
#include <map>
#include <random>

// What a format says comes back from its importer: exported, imported and exported again, a build
// gives the same file.

namespace {

/// The formats that are written and read.
std::vector<std::string> FormatsOfBothWays() {
    std::vector<std::string> names;
    for (const TImportFormat& format : GetImportFormats())
        if (FindExportFormat(format.Name)) names.emplace_back(format.Name);
    return names;
}

/// The plan of a build that is made of the record, as a reader finds it.
TBuildPlan PlanOf(const TImported& imported, const ImportFolder& folder) {
    const RecordingMessageBox box;
    TBuildEdit edit(ISFileName::NewISFileName(folder.Path("b.xml").c_str()));
    EXPECT_EQ(edit.Make(LanguageOfImported(imported), false), "");
    AddImported(imported, &edit);
    EXPECT_EQ(edit.FindEdits(), "");
    return MakePlan(edit.GetFound());
}

bool HasError(const TExported& exported) {
    return std::any_of(exported.Losses.begin(), exported.Losses.end(), [](const auto& loss) {
        return GetDiagnosticRule(loss.Code).Severity == SEVERITY_ERROR;
    });
}

/// With the first top that the format takes.
TExported ExportOf(const std::string& format, const TBuildPlan& plan, const ImportFolder& folder) {
    std::string path = folder.Path() + "/";
    std::replace(path.begin(), path.end(), '\\', '/');
    return FindExportFormat(format)->Write(
        {plan, path, plan.Tops.empty() ? nullptr : &plan.Tops.front()});
}

/// What is in `text`, and what is told but for missing files.
TImported ImportOf(const std::string& format, const std::string& text, const ImportFolder& folder) {
    folder.Write("list", text);
    TImported imported = folder.Import(format.c_str(), {"list"});
    std::erase_if(imported.Diagnostics, [](const TDiagnostic& diagnostic) {
        return diagnostic.Code == DIAGNOSTIC_IMPORTED_FILE_MISSING;
    });
    return imported;
}

TImportedSource SourceOf(const std::string& path, THdlLanguage language) {
    TImportedSource source;
    source.Path = path;
    source.Language = language;
    return source;
}

constexpr const char* kHostileNames[] = {
    "a b", "it's", "q\"q", "'q'",      "d$d",          "d$(d)",    "d${d}", "h#h", "#h",  "c,c",
    "s;s", "p+p",  "+p",   "-m",       "w*",           "w?",       "t...t", "%p",  "[b]", "{b}",
    "(r)", "e=e",  "a&b",  "<t>",      "at@",          "~t",       "b`t",   "p|p", " l",  "t ",
    "c:c", "x/*y", "x/ y", "\xC3\xBC", "\xE6\x97\xA5", "C:/x y/z", "s,\"q'"};

/// A '.' for each name that comes back, '-' for each that the exporter refuses, '!' for the rest.
template <class TMakeRecord, class TNames>
std::string MarksOf(const std::string& format, const TMakeRecord& make, const TNames& namesOf) {
    std::string marks;
    for (const char* const name : kHostileNames) {
        const ImportFolder folder;
        const TBuildPlan plan = PlanOf(make(name, folder), folder);
        const TExported exported = ExportOf(format, plan, folder);
        if (HasError(exported)) {
            marks += '-';
            continue;
        }
        const TImported imported = ImportOf(format, exported.Text, folder);
        const bool isSame = imported.Diagnostics.empty() && !imported.Sources.empty() &&
                            namesOf(PlanOf(imported, folder)) == namesOf(plan);
        marks += isSame ? '.' : '!';
        if (!isSame)
            ADD_FAILURE() << format << " " << name << "\n"
                          << exported.Text << folder.TextOf(imported);
    }
    return marks;
}

THdlLanguage LanguageOf(const std::string& format) {
    if (format == "compile-commands") return LANGUAGE_CPLUSPLUS;
    return format == "vhdl-ls" || format == "hdl-prj" ? LANGUAGE_VHDL : LANGUAGE_VERILOG;
}

/// A project of random size that has a little of everything.
class RandomProject {
public:
    RandomProject(unsigned seed, const ImportFolder& folder) : Numbers(seed), Folder(folder) {}

    TImported Make() {
        TImported imported;
        const std::size_t count = 1 + Any(12);
        for (std::size_t at = 0; at < count; ++at) AddSource(at, &imported.Sources);
        std::stable_sort(
            imported.Sources.begin(), imported.Sources.end(),
            [](const auto& one, const auto& other) { return one.Language < other.Language; });
        if (count % 2 == 0)
            imported.Sources.push_back(
                SourceOf(Folder.Path(Name(count) + ".cpp"), LANGUAGE_CPLUSPLUS));
        AddSettings(&imported);
        const TImportedSource& first = imported.Sources.front();
        const std::string library = first.Library.empty() ? "work" : first.Library;
        if (Any(2)) {
            imported.Tops = {{{first.Language, library, "tb", ""}, {}}};
            // The name of its file tells the language of a top.
            imported.Sources.front().Path =
                Folder.Path(first.Language == LANGUAGE_VHDL ? "tb.vhd" : "tb.v");
        }
        return imported;
    }

    /// Adds words that some tools know, and some do not.
    void AddOptions(TImported* imported) {
        constexpr const char* kVerilogWords[] = {"-Wall",       "--trace",  "-gspecify", "--word",
                                                 "fast",        "-O3",      "-quiet",    "-Ptb.N=3",
                                                 "-Wtimescale", "-Wa, b;c", "-g\\"};
        constexpr const char* kPlusWords[] = {"+go", "+seed=3", "+seed=4", "+t=a.hex", "-n"};
        constexpr const char* kVhdlWords[] = {"-frelaxed", "--warn-no-x", "-nolint", "-P", "a b"};
        TImportedSettings& verilog = imported->Settings[LANGUAGE_VERILOG];
        for (const TPlanStep step : {STEP_ANALYSE, STEP_ELABORATE})
            AddWords(kVerilogWords, &verilog.Options[step]);
        AddWords(kPlusWords, &verilog.Options[STEP_RUN]);
        for (auto& words : imported->Settings[LANGUAGE_VHDL].Options) AddWords(kVhdlWords, &words);
    }

private:
    template <std::size_t kCount>
    void AddWords(const char* const (&words)[kCount], std::vector<TImportedOption>* to) {
        for (std::size_t count = Any(6); count > 0; --count)
            to->push_back({words[Any(kCount)], {}});
    }
    std::size_t Any(std::size_t count) { return Numbers() % count; }
    std::string Name(std::size_t number) {
        constexpr const char* kNames[] = {"rtl/a", "b",   "../x/c", "my d/e f", "g#h", "\xC3\xA4/i",
                                          "j'k",   "l+m", "n;o",    "p,q",      "r$s"};
        constexpr std::size_t kPlainNames = 3;
        const std::size_t count = Any(16) ? kPlainNames : std::size(kNames);
        return kNames[Any(count)] + std::to_string(number);
    }
    void AddSource(std::size_t number, std::vector<TImportedSource>* sources) {
        constexpr const char* kLibraries[] = {"", "work", "util", "ip"};
        const bool isVhdl = Any(2);
        const std::string extension = isVhdl ? ".vhd" : Any(2) ? ".sv" : ".v";
        TImportedSource source = SourceOf(Folder.Path(Name(number) + extension),
                                          isVhdl ? LANGUAGE_VHDL : LANGUAGE_VERILOG);
        source.Library = kLibraries[Any(std::size(kLibraries))];
        source.IsLibraryFile = !isVhdl && Any(4) == 0;
        sources->push_back(std::move(source));
    }
    void AddSettings(TImported* imported) {
        TImportedSettings& verilog = imported->Settings[LANGUAGE_VERILOG];
        for (std::size_t count = Any(3); count > 0; --count)
            verilog.IncludeDirectories.push_back({Folder.Path(Name(count)), {}});
        for (std::size_t count = Any(3); count > 0; --count)
            verilog.LibraryDirectories.push_back({Folder.Path(Name(count)), {}});
        if (Any(2)) verilog.LibraryExtensions = {{".v", {}}, {".sv", {}}};
        for (std::size_t count = Any(3); count > 0; --count)
            verilog.Defines.push_back(
                {{"D" + std::to_string(count), Any(2) ? std::to_string(Any(100)) : ""}, {}});
        constexpr const char* kVerilogYears[] = {"2005", "2009", "2012"};
        if (Any(2)) verilog.Standard = {kVerilogYears[Any(3)], {}};
        if (Any(2)) verilog.Delay = static_cast<TSimProjectDelayType>(Any(3));
        constexpr const char* kYears[] = {"1993", "2002", "2008", "2019"};
        if (Any(2)) imported->Settings[LANGUAGE_VHDL].Standard = {kYears[Any(4)], {}};
    }

    std::mt19937 Numbers;
    const ImportFolder& Folder;
};

}  // namespace

TEST(RoundTrip, GivesTheNamesThatTheExporterTakes) {
    const bool hasDrives = std::filesystem::path("C:/x").is_absolute();
    const std::map<std::string, std::string> expected = {
        {"blueprint", "....................................."},
        // Elsewhere a drive is a name with a colon.
        {"depfile", hasDrives ? ".....-....-...--.--.---....-..--....."
                              : ".....-....-...--.--.---....-..--...-."},
        {"filelist", "---------...................--.--..--"},
        {"icarus", "..-..--........................-....-"},
        {"libmap", "-------..--...---...........--.--..--"},
        {"osvvm", "....................................."},
        {"slang", "....---........................-....."},
        {"vcs", "---------...................--.--..--"},
        {"verible", "....................................."},
        {"verilator", "....---........................-....."},
        {"vunit-csv", "....................................."},
    };
    std::map<std::string, std::string> marks;
    for (const std::string& format : FormatsOfBothWays()) {
        const THdlLanguage language = LanguageOf(format);
        const auto make = [&](const std::string& name, const ImportFolder& folder) {
            TImported imported;
            const std::string path = name + (language == LANGUAGE_VHDL        ? ".vhd"
                                             : language == LANGUAGE_CPLUSPLUS ? ".cpp"
                                                                              : ".v");
            imported.Sources = {SourceOf(
                name[1] == ':' && name[2] == '/' ? path : folder.Path("s/" + path), language)};
            return imported;
        };
        marks[format] = MarksOf(format, make, [](const TBuildPlan& plan) {
            return plan.Sources.size() == 1 ? plan.Sources.front().Path : "none";
        });
    }
    // Of others it is enough that no name is lost.
    std::erase_if(marks, [&](const auto& row) { return !expected.contains(row.first); });
    EXPECT_EQ(marks, expected);
}

TEST(RoundTrip, GivesTheFoldersThatTheExporterTakes) {
    const std::map<std::string, std::string> expected = {
        {"filelist", "---------..--...............--.--..--"},
        {"icarus", "-.-..--....--...............--.--..--"},
        {"libmap", "-------..--...---...........--.--..--"},
        {"slang", "....---....--..................-....."},
        {"vcs", "---------..--...............--.--..--"},
        {"verible", ".............................-......."},
        {"verilator", "....---....--..................-....."},
    };
    std::map<std::string, std::string> marks;
    for (const char* const format :
         {"filelist", "icarus", "libmap", "slang", "vcs", "verible", "verilator"}) {
        const auto make = [&](const std::string& name, const ImportFolder& folder) {
            TImported imported;
            imported.Sources = {SourceOf(folder.Path("a.v"), LANGUAGE_VERILOG)};
            imported.Settings[LANGUAGE_VERILOG].IncludeDirectories = {
                {name[1] == ':' && name[2] == '/' ? name : folder.Path("s/" + name), {}}};
            return imported;
        };
        marks[format] = MarksOf(format, make, [](const TBuildPlan& plan) {
            return plan.FindSettings(LANGUAGE_VERILOG)->IncludeDirectories;
        });
    }
    EXPECT_EQ(marks, expected);
}

TEST(RoundTrip, GivesTheSameFileAgain) {
    for (const std::string& format : FormatsOfBothWays()) {
        std::size_t written = 0;
        for (unsigned seed = 0; seed < 60; ++seed) {
            const ImportFolder folder;
            const TBuildPlan plan = PlanOf(RandomProject(seed, folder).Make(), folder);
            const TExported exported = ExportOf(format, plan, folder);
            if (HasError(exported)) continue;
            const TImported imported = ImportOf(format, exported.Text, folder);
            if (imported.Sources.empty()) continue;
            ++written;
            EXPECT_EQ(folder.TextOf(TImported{{}, {}, {}, imported.Diagnostics}), "")
                << format << " " << seed;
            const TExported again = ExportOf(format, PlanOf(imported, folder), folder);
            EXPECT_EQ(again.Text, exported.Text) << format << " " << seed;
        }
        EXPECT_GT(written, 20u) << format;
    }
}

TEST(RoundTrip, GivesTheSameOptionsOfEdamAgain) {
    for (const char* const format : {"edam-json", "edam-yaml"}) {
        std::size_t written = 0;
        for (unsigned seed = 0; seed < 150; ++seed) {
            const ImportFolder folder;
            RandomProject random(seed, folder);
            TImported project = random.Make();
            random.AddOptions(&project);
            const TExported exported = ExportOf(format, PlanOf(project, folder), folder);
            if (HasError(exported)) continue;
            TImported imported = ImportOf(format, exported.Text, folder);
            std::erase_if(imported.Diagnostics, [](const TDiagnostic& diagnostic) {
                return diagnostic.Code == DIAGNOSTIC_IMPORTED_OPTION;
            });
            EXPECT_EQ(folder.TextOf(TImported{{}, {}, {}, imported.Diagnostics}), "")
                << format << " " << seed;
            ++written;
            const TExported again = ExportOf(format, PlanOf(imported, folder), folder);
            EXPECT_EQ(again.Text, exported.Text) << format << " " << seed;
        }
        EXPECT_GT(written, 100u) << format;
    }
}
