#pragma once
#include "flows/documentfindings.h"
#include "services/xml/xmllist.h"
#include <string_view>
#include <unordered_map>

class TDocumentWords;

/// The sources that a build file names, in its order, with their places.
class TSourceMentions {
public:
    /// Lets `words` meet each element. Deletes the elements, which it is done with. Paths are
    /// relative to `directory`.
    TSourceMentions(TXMLList* document, const TXMLPlaces& places, const char* directory,
                    TDocumentWords* words);

    std::vector<TRepeatedSource> FindRepeated() const;
    std::vector<TSpelledSource> FindSpelled() const;
    /// Finds folders and what no group lists. Asks the disk for each name that no read has recorded
    /// as loaded, once.
    void LookAtFiles(TDocumentFindings* findings) const;
    /// Where the file is listed first, in whatever case; kNoXMLPlace for one that is not.
    std::uint32_t FindPlace(const ISFileName* file) const;

private:
    struct TSameIgnoringCase {
        bool operator()(std::string_view a, std::string_view b) const {
            return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                              [](char x, char y) { return Folded(x) == Folded(y); });
        }
        static char Folded(char c) {
            return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        }
    };

    struct THashIgnoringCase {
        std::size_t operator()(std::string_view text) const {
            std::uint64_t hash = 0xcbf29ce484222325U;
            for (const char c : text)
                hash = (hash ^ static_cast<unsigned char>(TSameIgnoringCase::Folded(c))) *
                       0x100000001b3U;
            return static_cast<std::size_t>(hash ^ hash >> 32);
        }
    };

    /// What all mentions that are equal ignoring case have in common.
    struct TName {
        const ISFileName* First = nullptr;
        std::size_t Listings = 0;
        std::uint32_t Place = kNoXMLPlace;  // of the first listing
        bool IsSpelled = false;             // in two ways at least
    };

    /// One way in which the document names a source. Handles are the same for the same spelling.
    struct TMention {
        const ISFileName* File;
        const ISFileName* Dependent;  // null for a listed source and for an entry without a name
        std::uint32_t Language;
        std::uint32_t Library;
        std::uint32_t Place;
        const TName* Name = nullptr;
    };

    void Collect(TXMLList* document, const TXMLPlaces& places, const char* directory,
                 TDocumentWords* words);
    std::uint32_t NumberOfLibrary(const char* name);
    void CompareNames();
    void Meet(TMention* mention, bool isListed);

    std::vector<std::string> Languages = {""};
    std::vector<std::string> Libraries = {""};
    std::unordered_map<std::string, std::uint32_t> NumbersOfLibraries;
    std::vector<TMention> Listed;
    std::vector<TMention> Dependencies;  // each spelling once
    std::unordered_map<std::string_view, TName, THashIgnoringCase, TSameIgnoringCase> Names;
};
