#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <vector>

#include "services/xml/documentedit.h"
#include "services/xml/xmlstream.h"
#include "tests/services/xml/documents.h"
#include "tests/services/xml/editing.h"

namespace {

using TRandom = std::mt19937;

int Below(int count, TRandom* random) {
    return static_cast<int>((*random)() % static_cast<unsigned>(count));
}
bool Once(int in, TRandom* random) {
    return Below(in, random) == 0;
}

struct TModelSource {
    std::string Name;
    std::string Library = "work";  // the default
    std::vector<std::string> Needs;
    bool operator==(const TModelSource&) const = default;
};

/// A small build, as some reader makes it of a document.
struct TModel {
    std::string Snapshot = "none";
    std::map<std::string, std::map<std::string, std::string>> Settings;
    std::map<std::string, std::vector<TModelSource>> Groups;
    std::vector<std::string> Directories;
    bool operator==(const TModel&) const = default;
};

constexpr const char* kLanguages[] = {"A", "B"};
constexpr const char* kOptions[] = {"Delay", "Force", "Options"};
constexpr const char* kDefault = "default";

TModel MakeEmptyModel() {
    TModel model;
    for (const char* language : kLanguages) {
        model.Groups[language];
        for (const char* option : kOptions) model.Settings[language][option] = kDefault;
    }
    return model;
}

void WriteStream(const TModel& model, TXMLList* list) {
    PushStart(list, "Build", {{"Snapshot", model.Snapshot}});
    for (const auto& [language, settings] : model.Settings) {
        PushStart(list, "Settings", {{"Language", language}});
        for (const auto& [option, value] : settings) PushTextElement(list, option.c_str(), value);
        PushEnd(list, "Settings");
    }
    if (!model.Directories.empty()) {
        PushStart(list, "Directories");
        for (const std::string& directory : model.Directories)
            PushTextElement(list, "Directory", directory);
        PushEnd(list, "Directories");
    }
    for (const auto& [language, sources] : model.Groups) {
        PushStart(list, "Group", {{"Language", language}});
        for (const TModelSource& source : sources) {
            PushStart(list, "Source", {{"Library", source.Library}});
            PushText(list, source.Name);
            for (const std::string& need : source.Needs) PushTextElement(list, "Need", need);
            PushEnd(list, "Source");
        }
        PushEnd(list, "Group");
    }
    PushEnd(list, "Build");
}

std::string NameOf(std::string text) {
    return text.starts_with("./") ? text.substr(2) : text;
}

/// What is not known is passed over; of values given twice the last counts.
TModel ReadModel(const std::string& document) {
    TXMLList list;
    ReadStream(document, &list);
    TModel model = MakeEmptyModel();
    std::string language;
    std::string name;
    TModelSource* source = nullptr;
    for (TElementIterator element(list); element.NotAtTail(); ++element) {
        const TElement& current = *element.Current();
        if (current.ElemType == TElement::TEXT) {
            const std::string text = NameOf(TrimmedText(element));
            if (text.empty()) continue;
            if (name == "Source") {
                model.Groups[language].push_back(*source);
                source = &model.Groups[language].back();
                source->Name = text;
            }
            if (name == "Need" && source) source->Needs.push_back(text);
            if (name == "Directory") model.Directories.push_back(text);
            if (std::count(std::begin(kOptions), std::end(kOptions), name) > 0)
                model.Settings[language][name] = text;
        }
        name = current.ElemType == TElement::START ? current.Name.Str() : "";
        if (current.HasAttribute("Language")) language = current.GetAttribute("Language");
        if (name == "Build" && current.HasAttribute("Snapshot"))
            model.Snapshot = current.GetAttribute("Snapshot");
        static TModelSource pushed;
        if (name == "Source") {
            pushed = {};
            if (current.HasAttribute("Library")) pushed.Library = current.GetAttribute("Library");
            source = &pushed;
        }
    }
    return model;
}

/// Writes a model as somebody would by hand.
class THandWriter {
public:
    explicit THandWriter(TRandom* random) : Random(*random) {
        constexpr const char* kLineEnds[] = {"\n", "\r\n", ""};
        constexpr const char* kSteps[] = {"  ", "\t", "", "    "};
        LineEnd = kLineEnds[Below(3, random)];
        Step = LineEnd.empty() ? "" : kSteps[Below(4, random)];
    }

    std::string Write(const TModel& model) {
        Text = Once(2, &Random) ? "<?xml version='1.0'?>" + LineEnd : "";
        Comment("head");
        Open("Build", model.Snapshot == "none" ? "" : Attribute("Snapshot", model.Snapshot));
        for (const auto& [language, settings] : model.Settings) WriteSettings(language, settings);
        if (!model.Directories.empty()) {
            // A list that goes takes along what is in it.
            IsPlain = true;
            Open("Directories", "");
            for (const std::string& directory : model.Directories)
                WriteText("Directory", "", directory);
            Close("Directories");
            IsPlain = false;
        }
        for (const auto& [language, sources] : model.Groups) {
            if (sources.empty() && Once(2, &Random)) continue;
            Open("Group", Attribute("Language", language));
            for (const TModelSource& source : sources) WriteSource(source);
            Close("Group");
        }
        Close("Build");
        Comment("tail");
        return Text;
    }

private:
    void WriteSettings(const std::string& language,
                       const std::map<std::string, std::string>& settings) {
        const auto isDefault = [](const auto& setting) { return setting.second == kDefault; };
        if (std::all_of(settings.begin(), settings.end(), isDefault)) return;
        Open("Settings", Attribute("Language", language));
        std::vector<std::pair<std::string, std::string>> shuffled(settings.begin(), settings.end());
        std::shuffle(shuffled.begin(), shuffled.end(), Random);
        for (const auto& [option, value] : shuffled) {
            if (value == kDefault && Once(2, &Random)) continue;
            if (Once(8, &Random)) WriteText(option, "", "former");
            WriteText(option, "", value);
        }
        Close("Settings");
    }

    void WriteSource(const TModelSource& source) {
        const std::string library =
            source.Library == "work" ? "" : Attribute("Library", source.Library);
        const std::string name = (Once(3, &Random) ? "./" : "") + source.Name;
        if (source.Needs.empty()) return WriteText("Source", library, name);
        BeginLine();
        Text += "<Source" + library + ">" + name;
        Levels += 1;
        for (const std::string& need : source.Needs) {
            // A text goes on to the next tag, or to a line of its own.
            if (!Text.ends_with(name) || Once(2, &Random)) BeginLine();
            if (Once(4, &Random)) Comment("in " + source.Name + " ");
            Text += "<Need>" + need + "</Need>";
        }
        Levels -= 1;
        if (Once(2, &Random)) BeginLine();
        Text += "</Source>";
        Decorate();
    }

    void WriteText(const std::string& name, const std::string& attributes,
                   const std::string& text) {
        BeginLine();
        const std::string blank = Once(4, &Random) ? " " : "";
        const bool isSection = Once(8, &Random);
        Text += "<" + name + attributes + blank + ">" + blank + (isSection ? "<![CDATA[" : "") +
                text + (isSection ? "]]>" : "") + blank + "</" + name + ">";
        Decorate();
    }

    void Open(const std::string& name, const std::string& attributes) {
        BeginLine();
        Text += "<" + name + attributes + ">";
        Levels += 1;
        Decorate();
    }

    void Close(const std::string& name) {
        Levels -= 1;
        BeginLine();
        Text += "</" + name + ">";
    }

    std::string Attribute(const std::string& name, const std::string& value) {
        const std::string quote = Once(2, &Random) ? "'" : "\"";
        return (Once(4, &Random) ? LineEnd + "   " : " ") + name +
               (Once(4, &Random) ? " = " : "=") + quote + value + quote;
    }

    // What is nobody's business but the writer's.
    void Decorate() {
        if (IsPlain) return;
        if (Once(4, &Random)) Comment("beside");
        if (Once(8, &Random)) Text += LineEnd;
        if (Once(6, &Random)) {
            BeginLine();
            Comment("above");
        }
        if (Once(6, &Random)) {
            BeginLine();
            Text += "<u a='" + std::to_string(++Number) + "'><v/></u>";
        }
    }
    void Comment(const std::string& where) {
        Text += "<!-- " + where + std::to_string(++Number) + " -->";
    }
    void BeginLine() {
        if (Text.empty()) return;
        Text += LineEnd;
        for (int i = 0; i < Levels && !LineEnd.empty(); ++i) Text += Step;
    }

    TRandom& Random;
    std::string LineEnd;
    std::string Step;
    std::string Text;
    int Levels = 0;
    int Number = 0;
    bool IsPlain = false;
};

TModelSource MakeSource(int number, TRandom* random) {
    TModelSource source{"s" + std::to_string(number), Once(3, random) ? "lib" : "work", {}};
    for (int i = Below(4, random); i > 0; --i)
        source.Needs.push_back("n" + std::to_string(i) + std::to_string(Below(2, random)));
    return source;
}

TModel MakeModel(TRandom* random) {
    TModel model = MakeEmptyModel();
    if (Once(2, random)) model.Snapshot = "snap";
    for (auto& [language, settings] : model.Settings)
        for (auto& [option, value] : settings)
            if (Once(2, random)) value = option + language;
    for (int i = Below(3, random); i > 0; --i) model.Directories.push_back("d" + std::to_string(i));
    int number = 0;
    for (auto& [language, sources] : model.Groups)
        for (int i = Below(7, random); i > 0; --i) sources.push_back(MakeSource(++number, random));
    return model;
}

void ChangeSources(std::vector<TModelSource>* sources, TRandom* random) {
    const auto any = [&] {
        return sources->begin() + Below(static_cast<int>(sources->size()), random);
    };
    if (Once(2, random))
        sources->insert(sources->begin() + Below(static_cast<int>(sources->size()) + 1, random),
                        MakeSource(100 + Below(100000, random), random));
    if (sources->empty()) return;
    if (Once(3, random)) sources->erase(any());
    if (sources->empty()) return;
    if (Once(3, random)) std::iter_swap(any(), any());
    if (Once(6, random)) std::shuffle(sources->begin(), sources->end(), *random);
    if (Once(3, random)) any()->Library = Once(2, random) ? "other" : "work";
    if (Once(6, random)) any()->Name = "r" + std::to_string(Below(100000, random));
    if (Once(3, random)) any()->Needs = MakeSource(0, random).Needs;
    if (Once(6, random)) any()->Needs.push_back("extra");
}

TModel ChangeModel(TModel model, TRandom* random) {
    if (Once(4, random)) model.Snapshot = Once(2, random) ? "a'b\"&" : "none";
    if (Once(2, random))
        model.Settings[kLanguages[Below(2, random)]][kOptions[Below(3, random)]] =
            Once(2, random) ? "<new>" : kDefault;
    if (Once(4, random)) model.Directories.push_back("new");
    if (Once(4, random) && !model.Directories.empty())
        model.Directories.erase(model.Directories.begin());
    for (auto& [language, sources] : model.Groups)
        if (Once(2, random)) ChangeSources(&sources, random);
    return model;
}

std::vector<std::string> FindAll(const std::string& text, const std::string& begin,
                                 const std::string& end) {
    std::vector<std::string> found;
    for (std::size_t i = text.find(begin); i != std::string::npos; i = text.find(begin, i + 1))
        found.push_back(text.substr(i, text.find(end, i) - i));
    return found;
}

/// The comments and unknown elements that no change may lose: all but those in sources. Comments
/// beside sources move with them, the others stay in their order.
std::vector<std::string> FindStrangers(const std::string& text) {
    std::vector<std::string> found = FindAll(text, "<!-- ", "-->");
    std::erase_if(found,
                  [](const std::string& comment) { return comment.starts_with("<!-- in "); });
    const std::vector<std::string> unknown = FindAll(text, "<u ", ">");
    found.insert(found.end(), unknown.begin(), unknown.end());
    const auto beside = std::stable_partition(
        found.begin(), found.end(),
        [](const std::string& comment) { return !comment.starts_with("<!-- beside"); });
    std::sort(beside, found.end());
    return found;
}

/// The comments in the sources that both models have, in any order.
std::vector<std::string> FindInner(const std::string& text, const TModel& one,
                                   const TModel& other) {
    std::vector<std::string> inner;
    const auto has = [](const TModel& model, const std::string& language, const std::string& name) {
        const auto& sources = model.Groups.at(language);
        return std::any_of(sources.begin(), sources.end(),
                           [&](const TModelSource& source) { return source.Name == name; });
    };
    for (const std::string& comment : FindAll(text, "<!-- in ", "-->")) {
        const std::string name = comment.substr(8, comment.find(' ', 8) - 8);
        for (const char* language : kLanguages)
            if (has(one, language, name) && has(other, language, name)) inner.push_back(comment);
    }
    std::sort(inner.begin(), inner.end());
    return inner;
}

TXMLEditRules MakeModelRules() {
    TXMLEditRules rules = MakeTestRules();
    rules.Elements.push_back({"Delay", {}});
    rules.Elements.push_back({"Force", {}});
    return rules;
}

}  // namespace

TEST(DocumentEdit, GivesTheWantedModelForEveryChangeOfEveryDocument) {
    constexpr unsigned kRuns = 600;
    for (unsigned seed = 0; seed < kRuns; ++seed) {
        TRandom random(seed);
        const TModel model = MakeModel(&random);
        const TModel wanted = ChangeModel(model, &random);
        const std::string document = THandWriter(&random).Write(model);
        ASSERT_EQ(ReadModel(document), model) << seed << "\n" << document;
        TXMLList base;
        TXMLList changed;
        WriteStream(model, &base);
        WriteStream(wanted, &changed);
        TDocumentEdit edit;
        ASSERT_TRUE(edit.Find(document, base, changed, MakeModelRules())) << edit.GetReason();
        const std::string edited = edit.GetEdited();
        const std::string both = std::to_string(seed) + "\n" + document + "\n---\n" + edited;
        ASSERT_EQ(ReadModel(edited), wanted) << both;
        ASSERT_EQ(FindStrangers(edited), FindStrangers(document)) << both;
        ASSERT_EQ(FindInner(edited, model, wanted), FindInner(document, model, wanted)) << both;
        ASSERT_TRUE(edit.IsEmpty() || model != wanted) << both;
        // The same when a reader has met the elements.
        TXMLList list;
        ASSERT_TRUE(edit.Read(document, &list, nullptr));
        ASSERT_TRUE(edit.Find(base, changed, MakeModelRules()));
        ASSERT_EQ(edit.GetEdited(), edited) << both;
        // The same in units of two bytes.
        const std::string mark = "\xFF\xFE";
        ASSERT_TRUE(edit.Find(mark + Utf16(document), base, changed, MakeModelRules()));
        ASSERT_EQ(edit.GetEdited(), mark + Utf16(edited)) << both;
        // And back.
        ASSERT_TRUE(edit.Find(edited, changed, base, MakeModelRules())) << edit.GetReason();
        ASSERT_EQ(ReadModel(edit.GetEdited()), model) << both << "\n---\n" << edit.GetEdited();
    }
}
