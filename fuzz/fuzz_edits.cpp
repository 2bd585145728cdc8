#include "flows/buildattributes.h"
#include "flows/buildchanges.h"
#include "flows/buildedit.h"
#include "flows/buildtops.h"
#include "flows/listedsources.h"
#include "flows/textreaders.h"
#include "fuzz/buildtext.h"
#include "projectfiles/ihdlsourcefile.h"
#include "services/hdl/hdllanguagetable.h"
#include "services/names/isfilename.h"
#include "settings/projectsimgeneralconfig.h"
#include "tests/support/memoryfilesystem.h"
#include "tests/support/recorders.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr const char* kBuild = "/fuzz/b.xml";

const std::string& NameOf(unsigned number) {
    static const std::vector<std::string> names = {
        "/fuzz/n.vhd",         "/fuzz/rtl/a.vhd",     "/up.v",
        "/fuzz/a & b<c>\"'.v", "/fuzz/\xC3\xA4.vhd",  "/fuzz/ blank .vhd",
        "/fuzz/${IP}.v",       "C:\\w\\x.vhd",        "/fuzz/RTL/A.VHD",
        "/fuzz/]]>--.vhd",     "/fuzz/line\nend.vhd",
    };
    return names[number % names.size()];
}

const ISFileName* FileOf(unsigned number) {
    return ISFileName::NewISFileName(NameOf(number).c_str());
}

// In UTF-8, into which a save turns all others.
const std::string& TextOf(unsigned number) {
    static const std::vector<std::string> texts = {
        "",     "work", "a b",  " x ",  "<&>\"'", "\xC3\xA4", "two\nlines", "\t",
        "--->", "]]>",  "\x01", "\x7F", "%s",     "false",    "Verilog",    "ns",
    };
    return texts[number % texts.size()];
}

/// What a step may do to the bytes besides adding some.
enum TEffect : unsigned {
    EFFECT_ADDS = 1,
    EFFECT_REMOVES = 2,
    EFFECT_REPLACES = 4,
    EFFECT_MOVES = 8
};

struct TModel {
    THdlBuildFile& Build;
    unsigned Number;  ///< chooses what is changed, and how
    unsigned Effects = 0;

    IHdlSourceFile* Source() const {
        const std::vector<TListedSource> sources = ListSources(Build);
        if (sources.empty()) return nullptr;
        return FindListed(Build, sources[Number % sources.size()].File->GetFileName()).Source;
    }
};

/// `source` is the one that the number chooses; null for steps that change something else.
struct TStepKind {
    char Letter;
    unsigned Effects;
    bool ChangesSource;  ///< left out where the build lists none
    void (*Change)(TModel& model, IHdlSourceFile* source);
};

void Add(TModel& model, IHdlSourceFile*) {
    const auto& languages = GetHdlLanguageTable();
    const THdlLanguage language = languages[model.Number % languages.size()].Language;
    const TProjectSimGeneralConfig* const before = model.Build.GetGeneralConfiguration();
    const bool wasCompiled = before && before->GetCompileLanguageFiles(language);
    AddSource(model.Build, FileOf(model.Number), language);
    const TProjectSimGeneralConfig* const after = model.Build.GetGeneralConfiguration();
    // A flag that was there has another value.
    if (before && after->GetCompileLanguageFiles(language) != wasCompiled)
        model.Effects |= EFFECT_REPLACES;
}

void SetAttribute(TModel& model, IHdlSourceFile*) {
    const auto& attributes = GetBuildAttributes();
    attributes[model.Number % attributes.size()].Set(model.Build, TextOf(model.Number / 9));
}

void SetVariable(TModel& model, IHdlSourceFile*) {
    TPseudoVariables& variables = *model.Build.GetPseudoEnvironmentVariables();
    const std::string& name = TextOf(model.Number);
    if (variables.contains(name)) model.Effects |= EFFECT_REPLACES;
    variables[name] = TextOf(model.Number / 16);
}

void EraseVariable(TModel& model, IHdlSourceFile*) {
    TPseudoVariables& variables = *model.Build.GetPseudoEnvironmentVariables();
    if (!variables.empty())
        variables.erase(
            std::next(variables.begin(), static_cast<int>(model.Number % variables.size())));
}

void AddComponent(TModel& model, IHdlSourceFile*) {
    AddTop(model.Build, {model.Number % 2 == 0 ? LANGUAGE_VHDL : LANGUAGE_VERILOG,
                         TextOf(model.Number / 2), "e" + TextOf(model.Number), "rtl"});
}

void RemoveComponent(TModel& model, IHdlSourceFile*) {
    const std::vector<TBuildTop> tops = ListTops(model.Build);
    if (!tops.empty()) RemoveTop(model.Build, tops[model.Number % tops.size()]);
}

void ForceTops(TModel& model, IHdlSourceFile*) {
    model.Build.SetForceTopLevelComponents(model.Number % 2 == 0);
}

void SetLog(TModel& model, IHdlSourceFile*) {
    if (TProjectSimGeneralConfig* general = model.Build.GetGeneralConfiguration())
        general->SetLogFileName(("f" + TextOf(model.Number)).c_str());
}

void Remove(TModel& model, IHdlSourceFile* source) {
    RemoveSources(model.Build, {source});
}

void Rename(TModel& model, IHdlSourceFile* source) {
    RenameSource(model.Build, *source, FileOf(model.Number / 4));
}

void Depend(TModel& model, IHdlSourceFile* source) {
    std::vector<const ISFileName*> files;
    for (const TListedSource& other : ListSources(model.Build))
        if (other.File != source && files.size() < model.Number % 5)
            files.push_back(other.File->GetFileName());
    if (model.Number % 3 == 0) files.push_back(FileOf(model.Number));
    SetDependencies(model.Build, *source, files);
}

void Move(TModel& model, IHdlSourceFile* source) {
    const THdlLanguage language = FindListed(model.Build, source->GetFileName()).Language;
    MoveSources(model.Build, language, {source},
                model.Number / 8 % 2 == 0 ? PLACE_FIRST : PLACE_LAST, nullptr);
}

void SetLibrary(TModel& model, IHdlSourceFile* source) {
    source->SetPrecompiledLibraryGroupName(TextOf(model.Number / 4).c_str());
}

void Flag(TModel&, IHdlSourceFile* source) {
    source->SetLibraryFlag(!source->IsLibrary());
}

constexpr TStepKind kSteps[] = {
    {'a', EFFECT_ADDS, false, Add},           {'s', EFFECT_REPLACES, false, SetAttribute},
    {'v', EFFECT_ADDS, false, SetVariable},   {'w', EFFECT_REMOVES, false, EraseVariable},
    {'t', EFFECT_ADDS, false, AddComponent},  {'u', EFFECT_REMOVES, false, RemoveComponent},
    {'F', EFFECT_REPLACES, false, ForceTops}, {'g', EFFECT_REPLACES, false, SetLog},
    {'r', EFFECT_REMOVES, true, Remove},      {'n', EFFECT_MOVES, true, Rename},
    {'d', EFFECT_MOVES, true, Depend},        {'m', EFFECT_MOVES, true, Move},
    {'l', EFFECT_REPLACES, true, SetLibrary}, {'f', EFFECT_REPLACES, true, Flag},
};

/// Two characters a step: what is done, and the number of the step. Returns the effects of all.
unsigned RunProgram(const std::string& program, THdlBuildFile& build) {
    unsigned effects = 0;
    for (std::size_t place = 0; place + 1 < program.size(); place += 2) {
        const auto* const kind =
            std::find_if(std::begin(kSteps), std::end(kSteps),
                         [&](const TStepKind& step) { return step.Letter == program[place]; });
        if (kind == std::end(kSteps)) continue;
        TModel model{build, static_cast<unsigned char>(program[place + 1])};
        IHdlSourceFile* const source = kind->ChangesSource ? model.Source() : nullptr;
        if (source || !kind->ChangesSource) kind->Change(model, source);
        effects |= kind->Effects | model.Effects;
    }
    return effects;
}

/// Whether `whole` becomes `part` when some of its characters are taken out.
bool IsSubsequence(const std::string& part, const std::string& whole) {
    std::size_t met = 0;
    for (const char character : whole)
        if (met < part.size() && part[met] == character) ++met;
    return met == part.size();
}

/// What stands between marks that only comments have, as far as there is no section in the way.
std::vector<std::string> CommentsOf(const std::string& document) {
    std::vector<std::string> comments;
    for (std::size_t begin = 0; (begin = document.find("<!--", begin)) != std::string::npos;) {
        const std::size_t end = std::min(document.find("-->", begin), document.size());
        comments.push_back(document.substr(begin, end - begin));
        begin = end;
    }
    return comments;
}

void CheckBytes(unsigned effects, const std::string& before, const std::string& after) {
    if (effects == EFFECT_ADDS && !IsSubsequence(before, after))
        Give("something went though all was added", after);
    if (effects == EFFECT_REMOVES && !IsSubsequence(after, before))
        Give("something came though all was removed", after);
    if ((effects & (EFFECT_REMOVES | EFFECT_MOVES)) == 0 && CommentsOf(before) != CommentsOf(after))
        Give("a comment that nothing touched has changed", after);
}

std::string TextOfAll(const THdlBuildFile& build) {
    return TextOfBuild(build) + TextOfLanguages(build);
}

void CheckFound(const std::string& document, const std::string& wanted) {
    TSimWrapHdlBuildFile found;
    TXMLReadError error;
    if (!ReadBuildText(document, ISFileName::NewISFileName(kBuild), &found, &error))
        Give("the edited document cannot be parsed", error.Reason + "\n" + document);
    if (const std::string text = TextOfAll(found); text != wanted)
        Give("the edited document has another build", wanted + "\n" + text + "\n" + document);
}

void Edit(const std::string& program, const std::string& document, MemoryFileSystem& files) {
    TBuildEdit edit(ISFileName::NewISFileName(kBuild));
    TXMLReadError error;
    if (!edit.ReadToChange(&error)) return;
    const unsigned effects = RunProgram(program, *edit.GetBuild());
    const std::string wanted = TextOfAll(*edit.GetBuild());
    // Some texts no document can hold, some documents cannot take a change.
    if (!edit.FindEdits().empty()) {
        if (files.Text(kBuild) != document) Give("it was saved", files.Text(kBuild));
        return;
    }
    if (const std::string reason = edit.GetFile().Save(); !reason.empty())
        Give("it is not saved", reason);
    const std::string edited = files.Text(kBuild);
    if (edited != edit.GetFile().GetChanged()) Give("something else was saved", edited);
    if (effects == 0 && edited != document) Give("without a change something changed", edited);
    CheckBytes(effects, document, edited);
    CheckFound(edited, wanted);
}

}  // namespace

// The first line is a program of edits, the rest the document that it edits.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const std::size_t end = text.find('\n');
    if (end == std::string::npos) return -1;
    const std::string document = text.substr(end + 1);
    const RecordingLog log;
    const RecordingMessageBox box;
    MemoryFileSystem files;
    files.Put(kBuild, document);
    Edit(text.substr(0, end), document, files);
    if (files.List() != std::string(kBuild) + "\n") Give("files are left over", files.List());
    return 0;
}
