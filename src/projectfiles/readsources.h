#pragma once
#include "projectfiles/hdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include <memory>
#include <vector>

class TReadSources;

/// A source that was read. Whoever has it may delete it; its memory and its dependency list stay
/// until the sources that were read with it go.
class TReadSourceFile final : public THdlSourceFile {
public:
    TReadSourceFile(const ISFileName* name, TIHdlSourceFileList* dependencies)
        : THdlSourceFile(name, dependencies) {}
    TReadSourceFile(const TReadSourceFile&) = delete;
    TReadSourceFile& operator=(const TReadSourceFile&) = delete;
    ~TReadSourceFile() override;
    // The memory belongs to TReadSources.
    static void* operator new(std::size_t, void* place) { return place; }
    static void operator delete(void*) {}
    static void operator delete(void*, void*) {}
};

/// Sources with their dependency lists, in blocks of memory that go together.
class TReadSources {
public:
    TReadSources();
    TReadSources(const TReadSources&) = delete;
    TReadSources& operator=(const TReadSources&) = delete;
    /// Deletes the sources that are still there, and all lists.
    ~TReadSources();

    TReadSourceFile* Make(const ISFileName* name);

private:
    friend class TReadSourceFile;
    struct TRecord;
    struct TBlock;
    std::vector<std::unique_ptr<TBlock>> Blocks;
};
