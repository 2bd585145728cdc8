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
        for (int i = 0; i < 2 * kDistance; ++i) Step();
    }
    /// To be called for each source of the walk.
    void Step() {
        if (Steps++ >= kDistance && Name != End) {
            FetchAhead((*Name)->GetFileName());
            ++Name;
        }
        if (Source == End) return;
        FetchAhead(*Source);
        ++Source;
    }

private:
    static constexpr int kDistance = 8;
    TIHdlSourceFileList::const_iterator Source;
    TIHdlSourceFileList::const_iterator Name;
    TIHdlSourceFileList::const_iterator End;
    int Steps = 0;
};
