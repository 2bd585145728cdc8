#pragma once
#include "projectfiles/readsources.h"
#include "projectfiles/sourcesahead.h"
#include <typeinfo>

/// TSourcesAhead for a walk that takes each source with its dependencies and their names. Only
/// sources that were read are asked for them: those of a caller's class answer what they like.
class TDependenciesAhead {
public:
    explicit TDependenciesAhead(const TIHdlSourceFileList& list)
        : Sources(list),
          Lists(list.begin()),
          Files(list.begin()),
          Names(list.begin()),
          End(list.end()) {
        for (int i = 0; i < kLists; ++i) FetchNextList();
        for (int i = 0; i < kFiles; ++i) FetchNextFiles();
        for (int i = 0; i < kNames; ++i) FetchNextNames();
    }
    /// To be called for each source of the walk.
    void Step() {
        Sources.Step();
        FetchNextList();
        FetchNextFiles();
        FetchNextNames();
    }

private:
    using TPosition = TIHdlSourceFileList::const_iterator;
    // So many sources ahead: each step needs what the step before has fetched.
    static constexpr int kLists = 8;
    static constexpr int kFiles = 5;
    static constexpr int kNames = 2;

    static const THdlSourceFile* AsRead(const IHdlSourceFile* file) {
        return &typeid(*file) == &typeid(TReadSourceFile)
                   ? static_cast<const TReadSourceFile*>(file)
                   : nullptr;
    }
    // Null when there is none; moves on.
    const TIHdlSourceFileList* NextList(TPosition* position) const {
        if (*position == End) return nullptr;
        const THdlSourceFile* const source = AsRead(*(*position)++);
        const TIHdlSourceFileList* const list = source ? source->GetDependencyList() : nullptr;
        return list && !list->empty() ? list : nullptr;
    }

    void FetchNextList() {
        if (const TIHdlSourceFileList* list = NextList(&Lists)) __builtin_prefetch(&*list->begin());
    }
    void FetchNextFiles() {
        if (const TIHdlSourceFileList* list = NextList(&Files))
            for (const IHdlSourceFile* file : *list) __builtin_prefetch(file);
    }
    void FetchNextNames() {
        const TIHdlSourceFileList* const list = NextList(&Names);
        if (!list) return;
        for (const IHdlSourceFile* file : *list)
            if (const THdlSourceFile* source = AsRead(file)) FetchAhead(source->GetFileName());
    }

    TSourcesAhead Sources;
    TPosition Lists;
    TPosition Files;
    TPosition Names;
    TPosition End;
};
