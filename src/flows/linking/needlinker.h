#pragma once
#include "flows/linking/linkeddesign.h"
#include "flows/linking/unitindex.h"
#include "flows/linking/visiblenames.h"
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

/// Finds the unit that each need of a design means, in time in proportion to the needs.
class TNeedLinker {
public:
    /// Keeps `files`, not a copy.
    TNeedLinker(const TDesignFiles& files, const TLinkOptions& options);

    /// To be called once.
    TLinkedDesign Link();

private:
    /// What a need names. Without a library it is a name alone.
    struct TNamed {
        std::string Library;
        std::string Unit;
    };

    void LinkFile(std::uint32_t file);
    void LinkNeeds(TUnitPlace unit, const std::vector<TUnitNeed>& needs);
    void LinkNeed(TNeedPlace place);
    TNamed NameOf(const TUnitNeed& need, std::uint32_t file);
    std::optional<TUnitPlace> FindNamed(const TNamed& named, const TNeedPlace& place);
    void LinkTo(TUnitPlace target, const TNeedPlace& place);
    void LinkComponent(const TNeedPlace& place);
    void LinkVerilogNeed(const TNeedPlace& place);
    bool LinkForeign(const TNeedPlace& place);
    void NoteForeign(TUnitPlace target, const TNeedPlace& place);
    void Depend(std::uint32_t file, const TNeedPlace& place);
    void Keep(TUnitPlace target, const TNeedPlace& place);

    void MarkNeeded(TUnitPlace target, const TNeedPlace& place);
    void MarkInstantiated(TUnitPlace target);
    std::size_t NumberOf(TUnitPlace unit) const { return FirstUnits[unit.File] + unit.Unit; }
    bool IsOfUnit(TUnitPlace unit, TUnitPlace primary) const;
    void ListUnneeded();

    void Miss(const TNeedPlace& place, bool isArchitecture);
    bool NoteElsewhere(const TNeedPlace& place, const std::string& library,
                       const std::string& unit);
    const std::string& WrittenLibrary(const TNeedPlace& place) const;

    const TDesignFiles& Files;
    const TUnitIndex Index;
    TVisibleNames Visible;
    std::unordered_set<std::string> External;
    const bool KeepsUnits;
    TLinkedDesign Design;
    std::vector<std::size_t> FirstUnits;   // of the files, as numbers of units
    std::vector<bool> Needed;              // by number
    std::vector<bool> Instantiated;        // by number
    std::vector<std::uint32_t> LastUsers;  // for each file, one plus the file linked to it last
    std::unordered_map<std::string, std::size_t> MissingByName;
    std::unordered_set<std::string> KnownForeign;
    std::unordered_set<std::string> Anywhere;  // components whose entities are all instantiated
};
