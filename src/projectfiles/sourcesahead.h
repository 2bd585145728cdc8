#pragma once
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/base/fetchahead.h"

/// Has the sources of a list and their names on the way from memory before a walk along the list
/// comes to them: for lists whose sources do not fit into the processor's cache.
class TSourcesAhead {
public:
    explicit TSourcesAhead(const TIHdlSourceFileList& list)
        : Source(list.begin()), Name(list.begin()), End(list.end()) {
        for (int i = 0; i < kSources; ++i) FetchNextSource();
        for (int i = 0; i < kNames; ++i) FetchNextName();
    }
    /// To be called for each source of the walk.
    void Step() {
        FetchNextSource();
        FetchNextName();
    }

private:
    // So many sources ahead: a name is known when its source has been fetched.
    static constexpr int kSources = 16;
    static constexpr int kNames = 8;

    void FetchNextSource() {
        if (Source != End) FetchAhead(*Source++);
    }
    void FetchNextName() {
        if (Name != End) FetchAhead((*Name++)->GetFileName());
    }

    TIHdlSourceFileList::const_iterator Source;
    TIHdlSourceFileList::const_iterator Name;
    TIHdlSourceFileList::const_iterator End;
};
