#pragma once
#include "flows/documentfindings.h"
#include "services/names/isfilename.h"
#include "services/xml/elementvisit.h"
#include <deque>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

/// The sources that a build file names, in its order, with their places. Meets the elements of the
/// document one after the other; the questions are for the time behind the last one.
class TSourceMentions {
public:
    /// Paths are relative to `directory`.
    explicit TSourceMentions(const char* directory);

    void Meet(const TMetElement& element);

    std::vector<TRepeatedSource> FindRepeated() const;
    std::vector<TSpelledSource> FindSpelled() const;
    /// Finds folders and what no group lists. Asks the disk for each name that no read has recorded
    /// as loaded, once.
    void LookAtFiles(TDocumentFindings* findings) const;
    /// Where the file is listed first, in whatever case; kNoXMLPlace for one that is not.
    std::uint32_t FindPlace(const ISFileName* file) const;

private:
    /// What all mentions that are equal ignoring case have in common.
    struct TName {
        const ISFileName* First = nullptr;
        std::uint32_t Listings = 0;
        std::uint32_t Place = kNoXMLPlace;  // of the first listing
        bool IsSpelled = false;             // in two ways at least
    };

    struct TListed {
        const ISFileName* File;
        std::uint32_t Language;
        std::uint32_t Library;
        std::uint32_t Place;
    };

    /// Handles are the same for the same spelling.
    struct TDependency {
        const ISFileName* File;
        const ISFileName* Dependent;  // null for an entry without a name
        std::uint32_t Place;
    };

    void MeetStart(const TMetElement& start);
    void MeetFile(std::string_view text);
    const ISFileName* FileOf(std::string_view text);
    std::uint32_t NumberOfLibrary(std::string_view name);
    TName& Note(const ISFileName* file);
    const TName& NameOf(const ISFileName* file) const;
    bool IsMetFirst(const ISFileName* dependency);

    std::string Directory;  // with a delimiter at its end
    std::string Path;       // of the last file

    // Of the tag whose file is to come, if there is one.
    enum { NO_TAG, SOURCE_TAG, DEPENDENCY_TAG } Tag = NO_TAG;
    std::uint32_t Library = 0;
    std::uint32_t Place = 0;
    const ISFileName* Source = nullptr;  // met last

    std::vector<std::string> Languages = {""};
    std::vector<std::string> Libraries = {""};
    std::unordered_map<std::string, std::uint32_t> NumbersOfLibraries;
    // They stay where they are: doubling would need three times the memory.
    std::deque<TListed> Listed;
    std::deque<TDependency> Dependencies;             // each spelling once
    std::vector<const ISFileName*> Met;               // first of each file, by number
    std::unordered_set<const ISFileName*> OthersMet;  // other spellings
    std::vector<TName> Names;                         // by number
};
