#include "flows/diagnosticrules.h"
#include <algorithm>

namespace {

constexpr std::string_view kPrefix = "HB";

bool IsIdOf(std::string_view id, TDiagnosticCode code) {
    const std::string known = GetDiagnosticId(code);
    return std::equal(id.begin(), id.end(), known.begin(), known.end(), [](char a, char b) {
        return (a >= 'a' && a <= 'z' ? static_cast<char>(a - 'a' + 'A') : a) == b;
    });
}

}  // namespace

const std::vector<TDiagnosticRule>& GetDiagnosticRules() {
    static const std::vector<TDiagnosticRule> rules = {
        {DIAGNOSTIC_NO_BUILD, "no-build", SEVERITY_ERROR,
         "no HdlBuildFile element: the document describes no build",
         "Name the file that holds the build. A build file has an HdlBuildFile element around its "
         "sections."},
        {DIAGNOSTIC_READ_RESULT, "unreadable-section", SEVERITY_ERROR, "read result {1}: {2}",
         "Mend what the read result names. Sections behind one that cannot be read may be missing "
         "from the build, so do not save it before."},
        {DIAGNOSTIC_UNKNOWN_ELEMENT, "unknown-element", SEVERITY_WARNING, "unknown element {1}",
         "Take the element out, or correct its name. Readers pass over it, and a save drops it."},
        {DIAGNOSTIC_MISSPELT_ELEMENT, "misspelt-element", SEVERITY_ERROR,
         "unknown element {1}: {2} misspelt?",
         "Correct the name; case matters. What such an element holds is not read."},
        {DIAGNOSTIC_ELEMENT_ENDS_SECTION, "element-ends-section", SEVERITY_ERROR,
         "unknown element {1} in {2}: what follows it in the section is not read",
         "Take the element out. Readers of this section stop at the first element that they do not "
         "know."},
        {DIAGNOSTIC_UNKNOWN_ATTRIBUTE, "unknown-attribute", SEVERITY_WARNING,
         "unknown attribute {1} of {2}",
         "Take the attribute out, or correct its name; case matters. Readers pass over it, and a "
         "save drops it."},
        {DIAGNOSTIC_MISPLACED_ELEMENT, "misplaced-element", SEVERITY_ERROR,
         "{1} outside of {2}: it is not read", "Move the element to where it belongs."},
        {DIAGNOSTIC_MISSING_FILE, "missing-file", SEVERITY_ERROR, "missing file: {1} ({2})",
         "Restore or generate the file, correct its path, which is relative to the folder of the "
         "build file, or take its SourceFile element out."},
        {DIAGNOSTIC_REPEATED_SOURCE, "repeated-source", SEVERITY_ERROR,
         "named {1} times: {2} ({3})",
         "Keep one SourceFile element of the source. The build holds a path once, so the other "
         "elements' libraries and flags are lost."},
        {DIAGNOSTIC_SPELLINGS, "spellings", SEVERITY_ERROR, "{1} spellings: {2}",
         "Spell the path everywhere as its SourceFile element does. Where the file system "
         "distinguishes case, one of the files does not exist."},
        {DIAGNOSTIC_FOLDER, "folder-as-source", SEVERITY_ERROR, "not a file but a folder: {1}",
         "List the files of the folder one by one."},
        {DIAGNOSTIC_SOURCE_IN_LIBRARIES, "source-in-libraries", SEVERITY_ERROR,
         "in {1} libraries: {2} ({3})",
         "Keep one SourceFile element of the source. The build holds a path once; to compile the "
         "text into several libraries, list copies of the file."},
        {DIAGNOSTIC_CYCLE, "dependency-cycle", SEVERITY_ERROR, "dependency cycle of {1}: {2}",
         "Take out one Dependency of the cycle. With a cycle no order is a compile order."},
        {DIAGNOSTIC_MISSING_DEPENDENCY, "missing-dependency", SEVERITY_ERROR,
         "dependency that does not exist: {1} of {2}",
         "Restore or generate the file, correct the path of the Dependency element, or take it "
         "out. The compile order has the file in it."},
        {DIAGNOSTIC_UNLISTED_DEPENDENCY, "unlisted-dependency", SEVERITY_WARNING,
         "dependency that no group lists: {1} of {2}",
         "List the file as a SourceFile with its library. The compile order has it in the "
         "destination library of the build."},
        {DIAGNOSTIC_UNKNOWN_LANGUAGE, "unknown-language", SEVERITY_ERROR,
         "unknown language \"{1}\"",
         "Name a language as docs/build-file.md lists them. An unknown one counts as None."},
        {DIAGNOSTIC_UNKNOWN_SIMULATOR, "unknown-simulator", SEVERITY_ERROR,
         "unknown simulator \"{1}\"",
         "Name a simulator as `hdlbuild simulators` lists them. An unknown one counts as none."},
        {DIAGNOSTIC_UNKNOWN_TIME_UNIT, "unknown-time-unit", SEVERITY_WARNING,
         "unknown time unit \"{1}\"",
         "Use fs, ps, ns, us, ms or s. Instead of an unknown unit the default is taken."},
        {DIAGNOSTIC_SETTINGS_WITHOUT_LANGUAGE, "settings-without-language", SEVERITY_ERROR,
         "LanguageSettings without a language: they and all sections behind them are not read",
         "Give the element its Language attribute."},
        {DIAGNOSTIC_UNREADABLE_LIST, "unreadable-list", SEVERITY_ERROR,
         "{1} is no list of {2} elements: the {3} settings are not read from there on",
         "Give the list at least one entry and nothing but entries, each with a text, or take it "
         "out."},
        {DIAGNOSTIC_UNREAD_SOURCE, "unread-source", SEVERITY_ERROR, "not scanned: {1}",
         "Make the file readable, or take its SourceFile element out. What it records and what it "
         "holds is not known."},
        {DIAGNOSTIC_REPEATED_UNIT, "repeated-unit", SEVERITY_WARNING,
         "{1} {2} is declared here and in {3}",
         "Keep one of the files in the library. Others depend on the first one, and a compiler "
         "takes what it meets last."},
        {DIAGNOSTIC_MISSING_UNIT, "missing-unit", SEVERITY_WARNING, "no file holds {1} ({2})",
         "Add the file that holds the unit, correct the library of that file, or name the library "
         "with --external when others provide it."},
        {DIAGNOSTIC_UNIT_ELSEWHERE, "unit-elsewhere", SEVERITY_WARNING,
         "no file holds {1}; {2} holds the unit in library {3}, but is needed in {4} here",
         "Compile the file into the library in which it is needed, or change the name. The build "
         "holds a path once; to compile the text into several libraries, list copies of the file."},
        {DIAGNOSTIC_LACKING_DEPENDENCY, "lacking-dependency", SEVERITY_ERROR,
         "{1} has no dependency on {2}, which holds {3}",
         "Run `hdlbuild scan` on the build. Without the dependency the order may be wrong."},
        {DIAGNOSTIC_UNEXPLAINED_DEPENDENCY, "unexplained-dependency", SEVERITY_WARNING,
         "nothing in it needs {1}, on which it depends",
         "Take the Dependency out, or run `hdlbuild scan --exact`, unless something else than the "
         "text asks for it."},
        {DIAGNOSTIC_UNBOUND_COMPONENT, "unbound-component", SEVERITY_NOTE,
         "no entity has the name of component {1} ({2})",
         "Add the file that holds the entity, unless a configuration binds the component or it is "
         "a black box."},
        {DIAGNOSTIC_UNNEEDED_UNIT, "unneeded-unit", SEVERITY_NOTE, "nobody needs {1} {2}",
         "Take the file out when it is a leftover."},
        {DIAGNOSTIC_TOP_CANDIDATE, "top-candidate", SEVERITY_NOTE, "nobody instantiates {1} {2}",
         "Record it as a top-level component when it is one: `hdlbuild scan --set-tops` does."},
        {DIAGNOSTIC_FOREIGN_NEED, "foreign-need", SEVERITY_NOTE,
         "{1} {2} is written in another language, in {3}",
         "Compile that language first where the simulator asks for it: orders do not cross "
         "groups."},
        {DIAGNOSTIC_MISSING_INCLUDE, "missing-include", SEVERITY_WARNING,
         "no folder holds the included file {1} ({2})",
         "Add the folder of the file to the include directories of the build's Verilog settings. "
         "What the file defines and holds is not known."},
        {DIAGNOSTIC_LATE_SOURCE, "late-source", SEVERITY_WARNING,
         "listed behind {1}, which needs it to be compiled before",
         "Run `hdlbuild scan --sort` on the build, or move the source: those of Verilog are "
         "compiled as they are listed."},
        {DIAGNOSTIC_UNHELD_TOP, "unheld-top", SEVERITY_ERROR,
         "top-level component {1}: no source of library {2} holds it",
         "Add the file that holds the unit, correct the name or the library of the Component, or "
         "name the library with --external when others provide it."},
        {DIAGNOSTIC_UNKNOWN_VARIABLE, "unknown-variable", SEVERITY_WARNING,
         "a variable without a value: {1}",
         "Set the variable in the environment or in the build. Other tools get it as it is "
         "written."},
        {DIAGNOSTIC_NOT_EXPORTED, "not-exported", SEVERITY_WARNING, "{1} has no words for {2}",
         "Give it to the tool by other means where it is needed."},
        {DIAGNOSTIC_UNWRITABLE_NAME, "unwritable-name", SEVERITY_ERROR,
         "{1} cannot hold the name \"{2}\": {3}",
         "Rename the file or folder, or take another format."},
        {DIAGNOSTIC_LEFT_OUT, "left-out", SEVERITY_NOTE,
         "{1} of {2} sources are left out: {3} does not need them",
         "Run `hdlbuild needed --rest --top` to see which. Leave --top out to have all sources "
         "written."},
        {DIAGNOSTIC_UNSCANNED_TOP, "unscanned-top", SEVERITY_WARNING,
         "no source holds {1}: none is left out",
         "Add the file that holds the unit, or correct the name of the top-level component."},
        {DIAGNOSTIC_NOT_IMPORTED, "not-imported", SEVERITY_WARNING, "a build has no words for {1}",
         "Give it to the simulator by other means where it is needed, and import with --lossy."},
        {DIAGNOSTIC_IMPORTED_OTHERWISE, "imported-otherwise", SEVERITY_WARNING,
         "named again in another way: {1} (first: {2})",
         "Keep one of the places. The build holds a path once, with the library and flag of the "
         "first place; to compile the text into several libraries, list copies of the file."},
        {DIAGNOSTIC_IMPORTED_NO_LANGUAGE, "imported-no-language", SEVERITY_WARNING,
         "no language has the extension of {1}",
         "Import with --lossy, and add the file with `hdlbuild add --language` when it is a "
         "source."},
        {DIAGNOSTIC_UNSET_VARIABLE, "unset-variable", SEVERITY_WARNING,
         "the variable {1} is not set",
         "Set it in the environment. With --lossy the text is what the tool of the format makes of "
         "it."},
        {DIAGNOSTIC_IMPORTED_AGAIN, "imported-again", SEVERITY_NOTE,
         "named again: {1} (first: {2})",
         "Nothing is to be done: the build holds the path once, at its first place."},
        {DIAGNOSTIC_IMPORTED_OPTION, "imported-option", SEVERITY_NOTE,
         "kept as a compile option: {1}",
         "See whether the simulator that the build is for knows the option. A word behind it that "
         "belongs to it may have been taken for a source."},
        {DIAGNOSTIC_IMPORTED_FILE_MISSING, "imported-file-missing", SEVERITY_NOTE,
         "does not exist: {1}",
         "Restore or generate the file, or take relative paths against another folder with "
         "--relative-to. The build names it all the same."},
        {DIAGNOSTIC_IMPORT_SYNTAX, "import-syntax", SEVERITY_ERROR, "not of the format: {1}",
         "Correct the place, or name the format that the file has."},
        {DIAGNOSTIC_IMPORT_UNREADABLE, "import-unreadable", SEVERITY_ERROR, "{1}: {2}",
         "Make the file readable, correct its name, or take relative paths against another folder "
         "with --relative-to."},
        {DIAGNOSTIC_IMPORT_CYCLE, "import-cycle", SEVERITY_ERROR, "files that name each other: {1}",
         "Take one of the places out."},
        {DIAGNOSTIC_IMPORT_TOO_DEEP, "import-too-deep", SEVERITY_ERROR,
         "more than {1} files, each named by the one before", "Name the files in fewer steps."},
        {DIAGNOSTIC_IMPORTED_FOR_ALL, "imported-for-all", SEVERITY_NOTE,
         "taken for all sources: {1}",
         "See whether files of one name lie in several of the directories: the first one is "
         "included."},
        {DIAGNOSTIC_IMPORT_DESCRIBES, "import-describes", SEVERITY_NOTE,
         "left out, as nothing is built of it: {1}",
         "Nothing is to be done: it describes the project, or is for other tools."},
        {DIAGNOSTIC_TWO_STANDARDS, "two-standards", SEVERITY_ERROR,
         "the options ask for VHDL {1} and {2}, but a library has one standard",
         "Leave one of the options in the VHDL settings of the build."},
        {DIAGNOSTIC_MIXED_TOP, "mixed-top", SEVERITY_ERROR,
         "top-level component {1} needs sources in {2}, which {3} does not simulate",
         "Choose other top-level components with --top, or simulate it where both languages are "
         "known."},
        {DIAGNOSTIC_TOP_WITHOUT_TOOL, "top-without-tool", SEVERITY_WARNING,
         "top-level component {1} is left out: no chosen simulator knows {2}",
         "Give a simulator of its language with --with, too, or choose others with --top."},
    };
    return rules;
}

const TDiagnosticRule& GetDiagnosticRule(TDiagnosticCode code) {
    const std::vector<TDiagnosticRule>& rules = GetDiagnosticRules();
    return *std::find_if(rules.begin(), rules.end(),
                         [code](const TDiagnosticRule& rule) { return rule.Code == code; });
}

const TDiagnosticRule* FindDiagnosticRule(std::string_view id) {
    for (const TDiagnosticRule& rule : GetDiagnosticRules())
        if (IsIdOf(id, rule.Code)) return &rule;
    return nullptr;
}

std::string GetDiagnosticId(TDiagnosticCode code) {
    return std::string(kPrefix) + std::to_string(code);
}

const char* GetSeverityText(TDiagnosticSeverity severity) {
    static constexpr const char* kTexts[] = {"note", "warning", "error"};
    return kTexts[severity];
}

std::string GetDiagnosticText(const TDiagnostic& diagnostic) {
    std::string text;
    std::string_view rest = GetDiagnosticRule(diagnostic.Code).Text;
    for (std::size_t at; (at = rest.find('{')) != std::string_view::npos;
         rest.remove_prefix(at + 3)) {
        const auto place = static_cast<std::size_t>(rest[at + 1] - '1');
        text += rest.substr(0, at);
        if (place < diagnostic.Names.size()) text += diagnostic.Names[place];
    }
    return text + std::string(rest);
}

std::string GetSourcePlaceText(const TDiagnosticSource& source) {
    if (source.Line == 0) return source.Path;
    const std::string line = source.Path + ":" + std::to_string(source.Line);
    return source.Column == 0 ? line : line + ":" + std::to_string(source.Column);
}
