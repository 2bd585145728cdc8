#include "cli/servers/serversloss.h"
#include "services/hdl/simulatortype.h"
#include <algorithm>
#include <initializer_list>
#include <map>
#include <set>

namespace {

/// Walks the document as its reader does. Every step returns whether all of it would be kept; the
/// first thing that would not is in Loss then.
class TServersWalk {
public:
    explicit TServersWalk(const TXMLList& document) : Element(document) {}

    std::string Find() {
        if (!Element.NotAtTail()) return "";
        if (Name() != kRoot)
            WalkSection();
        else if (HasOnly({}, kRoot))
            WalkChildren(&TServersWalk::WalkSection);
        return Loss;
    }

private:
    static constexpr const char* kRoot = "HdlBuildFileList";
    static constexpr const char* kSection = "ExternalSimulatorSettings";

    bool Lose(const std::string& what) {
        Loss = what;
        return false;
    }

    std::string Name() const { return Element.Current()->Name.Str(); }
    bool IsAt(TElement::ElemTypes type) const { return Element.Current()->ElemType == type; }

    bool HasOnly(std::initializer_list<const char*> names, const std::string& place) {
        for (const auto& attribute : Element.Current()->GetAttributes())
            if (std::find(names.begin(), names.end(), attribute.first) == names.end())
                return Lose("the unknown attribute " + attribute.first + " of " + place);
        return true;
    }

    bool WalkChildren(bool (TServersWalk::*walkChild)()) {
        const std::string place = Name();
        for (++Element; !IsAt(TElement::END);) {
            if (IsAt(TElement::TEXT)) return Lose("a text in " + place);
            if (!(this->*walkChild)()) return false;
        }
        ++Element;
        return true;
    }

    bool WalkSection() {
        if (Name() != kSection) return Lose("the unknown element " + Name());
        if (++Sections > 1) return Lose(std::string("the second ") + kSection);
        return HasOnly({}, kSection) && WalkChildren(&TServersWalk::WalkTool);
    }

    bool WalkTool() {
        if (Name() != "Tool") return Lose("the unknown element " + Name());
        const std::string name = Element.Current()->GetAttribute("Name");
        const TSimulatorType type = GetSimulatorTypeFromName(name.c_str());
        const auto& record = GetSimulatorTable()[static_cast<std::size_t>(type)];
        if (record.Languages.empty()) return Lose("the unknown simulator '" + name + "'");
        if (!HasOnly({"Name", "Path", "PliLibPath"}, record.Name)) return false;
        ++Element;
        std::string language;
        if (IsAt(TElement::TEXT)) {
            language = Element.Current()->Text.Str();
            ++Element;
        }
        if (!IsAt(TElement::END)) return Lose("the unknown element " + Name());
        ++Element;
        return TakeLanguage(record, language);
    }

    // A reader has one record for each language of a simulator.
    bool TakeLanguage(const TSimulatorRecord& simulator, const std::string& text) {
        const THdlLanguage language = GetHdlLanguageFromString(text.c_str());
        const std::string name = simulator.Name;
        if (language == LANGUAGE_NONE) return Lose("the language '" + text + "' of " + name);
        std::set<THdlLanguage>& met = Met[simulator.Type];
        if (!met.insert(language).second)
            return Lose("the second " + name + " for " + GetStringFromHdlLanguage(language));
        return met.size() <= simulator.Languages.size() || Lose("the second " + name);
    }

    DListIterator<TElement*> Element;
    int Sections = 0;
    std::map<TSimulatorType, std::set<THdlLanguage>> Met;
    std::string Loss;
};

}  // namespace

std::string FindServersLoss(const TXMLList& document) {
    return TServersWalk(document).Find();
}
