#include "projectfiles/readsources.h"
#include <array>
#include <new>

/// A source and its list side by side, in two lines of the processor's cache that it fetches as
/// one: whoever looks at the one needs the other next.
struct alignas(128) TReadSources::TRecord {
    explicit TRecord(const ISFileName* name) {
        Dependencies.Source = TIHdlSourceFileList::HAS_SOURCE;
        new (Memory.data()) TReadSourceFile(name, &Dependencies);
    }
    TRecord(const TRecord&) = delete;
    TRecord& operator=(const TRecord&) = delete;
    ~TRecord() {
        if (Dependencies.Source == TIHdlSourceFileList::HAD_SOURCE) return;
        // A source that was initialised anew has a list of its own.
        if (TIHdlSourceFileList* list = Source()->GetDependencyList(); list != &Dependencies)
            delete list;
        Source()->~TReadSourceFile();
    }

    TReadSourceFile* Source() {
        return std::launder(reinterpret_cast<TReadSourceFile*>(Memory.data()));
    }

    alignas(TReadSourceFile) std::array<std::byte, sizeof(TReadSourceFile)> Memory;
    TIHdlSourceFileList Dependencies;
};

TReadSourceFile::~TReadSourceFile() {
    // The source is the first thing in its record.
    auto* record = std::launder(reinterpret_cast<TReadSources::TRecord*>(this));
    record->Dependencies.Source = TIHdlSourceFileList::HAD_SOURCE;
}

struct TReadSources::TBlock {
    static constexpr std::size_t kSize = 65536 / sizeof(TRecord) - 1;

    TBlock() = default;
    TBlock(const TBlock&) = delete;
    TBlock& operator=(const TBlock&) = delete;
    ~TBlock() {
        for (std::size_t i = 0; i < Count; ++i) At(i)->~TRecord();
    }
    TRecord* At(std::size_t i) {
        return std::launder(reinterpret_cast<TRecord*>(Memory.data() + i * sizeof(TRecord)));
    }
    TReadSourceFile* Make(const ISFileName* name) {
        auto* record = new (Memory.data() + Count * sizeof(TRecord)) TRecord(name);
        ++Count;
        return record->Source();
    }

    std::size_t Count = 0;
    alignas(TRecord) std::array<std::byte, kSize * sizeof(TRecord)> Memory;
};

TReadSources::TReadSources() = default;

TReadSources::~TReadSources() = default;

TReadSourceFile* TReadSources::Make(const ISFileName* name) {
    if (Blocks.empty() || Blocks.back()->Count == TBlock::kSize)
        Blocks.push_back(std::unique_ptr<TBlock>(new TBlock));
    return Blocks.back()->Make(name);
}
