#pragma once
#include "filenames/componentnamelist.h"
#include "services/base/keeper.h"
#include <map>
#include <memory>

/// The top-level components of a build: a list of names for each language that has any, and whether
/// they are forced on the simulators. Keeps the build file's "TopLevelComponents" section.
class TTopLevelComponents {
public:
    TTopLevelComponents() = default;
    ~TTopLevelComponents() { NamesRead.HandOverAll(); }
    TTopLevelComponents(const TTopLevelComponents&) = delete;
    TTopLevelComponents& operator=(const TTopLevelComponents&) = delete;

    /// Adds to the list of `language`, which is made when missing. False for a duplicate.
    bool AddComponentName(const char* entity, const char* architecture, const char* library,
                          THdlLanguage language);

    /// Null when the language has no list. The list stays the set's, which frees it in Clear() or
    /// at its own end. One that AddComponentName made lives as long as GetCallersShare().
    const TComponentNameList* GetComponentNameList(THdlLanguage language) const;
    TComponentNameList* GetComponentNameList(THdlLanguage language);

    /// False at first.
    bool GetForceTopLevelComponents() const { return ForceTopLevelComponents; }
    void SetForceTopLevelComponents(bool force) { ForceTopLevelComponents = force; }

    /// Reads the section from its START element and leaves `element` at the next START that does
    /// not belong to it, or at the tail. A list read replaces the one that the language had. False
    /// when the document ends with the start of a Component; what was read up to there is kept.
    bool ReadTopLevelComponentNames(DListIterator<TElement*>& element);

    /// Pushes the section, languages in numeric order, empty lists included. `document` stays the
    /// caller's; null does nothing.
    void WriteTopLevelComponentNames(TXMLList* document) const;

    /// Destroys the lists; their names stay valid, and so does the force flag.
    void Clear();
    /// Deletes the names that were read; to be called before the destructor. Otherwise they stay
    /// valid until the process ends, as do those that callers added.
    void DeleteNamesRead() { NamesRead.DeleteAll(); }

    /// The lists that AddComponentName made. Those that were read go with the set.
    const std::shared_ptr<TKeeper>& GetCallersShare() const { return CallersShare; }

private:
    TComponentNameList* StartList(const char* languageText);

    std::map<THdlLanguage, TComponentNameList*> Lists;
    bool ForceTopLevelComponents = false;
    // The lists mapped and those that a read replaced.
    std::shared_ptr<TKeeper> CallersShare = std::make_shared<TKeeper>();
    TKeeper Read;
    TKeeper NamesRead;
};
