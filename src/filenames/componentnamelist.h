#pragma once
#include "services/hdl/identifier.h"
#include "services/xml/xmllist.h"
#include <cstddef>
#include <list>
#include <string>
#include <unordered_map>

class TComponentName;

/// The design units of one language that are simulated as top level, in insertion order.
///
/// Copies share the TComponentName objects. Only Flush() deletes names; the destructor leaves them,
/// and they stay valid until the process ends.
class HDLBUILDFILE_API TComponentNameList {
    using TNames = std::list<const TComponentName*>;

public:
    /// An empty list. Identifiers are read and escaped by the rules of `language`.
    explicit TComponentNameList(THdlLanguage language);
    TComponentNameList(const TComponentNameList& other) = default;
    TComponentNameList& operator=(const TComponentNameList& other) = default;
    ~TComponentNameList() = default;

    THdlLanguage GetLanguage() const { return Language; }

    /// Appends a name unless an equal one is listed: the library is compared case-sensitively, the
    /// identifiers by their language's rule. False, with the list unchanged, for a duplicate. Null
    /// texts count as empty.
    bool AddComponentName(const char* entity, const char* architecture, const char* library);
    bool AddComponentName(TTBIdentifier entity, TTBIdentifier architecture, const char* library);
    bool IsNameInList(TTBIdentifier entity, TTBIdentifier architecture, const char* library) const;

    /// The names, as `const TComponentName*`, in list order.
    TNames::const_iterator begin() const { return Names.begin(); }
    TNames::const_iterator end() const { return Names.end(); }
    std::size_t size() const { return Names.size(); }

    /// Deletes every name: not to be called while a copy of the list is in use.
    void Flush();

    /// Reads the Component elements from `element` on and leaves it at the next start element that
    /// is none, or at the tail. Duplicates are dropped. False when the document ends with the start
    /// of a Component.
    bool ReadFromFile(DListIterator<TElement*>& element);

    /// Pushes one Component element per name. `document` stays the caller's; null does nothing.
    void WriteToFile(TXMLList* document) const;

private:
    TNames Names;
    THdlLanguage Language;
    // Narrows the search to the names of one hash; the comparison decides.
    std::unordered_multimap<std::size_t, const TComponentName*> NamesByHash;
};
