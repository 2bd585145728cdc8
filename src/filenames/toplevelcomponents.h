#pragma once
#include "filenames/componentnamelist.h"
#include <map>
#include <memory>
#include <vector>

/// The top-level components of a build: a list of names for each language that has any, and whether
/// they are forced on the simulators. Keeps the build file's "TopLevelComponents" section.
class TTopLevelComponents {
public:
    TTopLevelComponents() = default;
    TTopLevelComponents(const TTopLevelComponents&) = delete;
    TTopLevelComponents& operator=(const TTopLevelComponents&) = delete;

    /// Adds to the list of `language`, which is made when missing. False for a duplicate.
    bool AddComponentName(const char* entity, const char* architecture, const char* library,
                          THdlLanguage language);

    /// Null when the language has no list. The list stays the set's, which frees it in Clear(), or
    /// at its own end when a read replaced the list.
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

private:
    TComponentNameList* StartList(const char* languageText);

    std::map<THdlLanguage, std::unique_ptr<TComponentNameList>> Lists;
    bool ForceTopLevelComponents = false;
    std::vector<std::unique_ptr<TComponentNameList>> Replaced;
};
