#pragma once
#include "hdlbuildfile.h"
#include <cstddef>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <vector>

// The ways in which memory passes between a module and the library. Every module that includes this
// header gets functions of its own, compiled as a user's module is.

#ifndef HDLBUILDFILE_PLAIN_HEAP
/// tbbmalloc's own question for replaced allocation functions: the size of `object`, or the answer
/// of `original` for memory of another heap.
extern "C" std::size_t __TBB_malloc_safer_msize(void* object, std::size_t (*original)(void*));
#endif

namespace {

/// Whether the allocation at `memory` was made by the allocator behind the library. Where the
/// library is built over the plain heap, there is but one; the sanitizers watch that build.
bool IsSharedHeap(const void* memory) {
#ifdef HDLBUILDFILE_PLAIN_HEAP
    return memory != nullptr;
#else
    const auto isForeign = [](void*) -> std::size_t { return 0; };
    return __TBB_malloc_safer_msize(const_cast<void*>(memory), isForeign) != 0;
#endif
}

// Longer than what a string keeps inside itself.
constexpr const char* kLongText = "a text that no string keeps within its own few bytes";

bool TakesTextByValue() {
    const std::string text = ResolveOrvaneEnvVariables(kLongText, nullptr);
    return text == kLongText && IsSharedHeap(text.data());
}

bool TakesTextsByValue() {
    const std::vector<std::string> given = {kLongText, kLongText};
    const std::vector<std::string> texts = ResolveOrvaneEnvVariables(given, nullptr);
    return texts == given && IsSharedHeap(texts.data()) && IsSharedHeap(texts[1].data());
}

bool TakesEntriesOfItsMap() {
    TPseudoVariables variables;
    AddPseudoEnvironmentVariablesForFilename(&variables, ISFileName::NewISFileName("/a/b.vhd"),
                                             kLongText);
    bool isShared = !variables.empty();
    for (const auto& entry : variables) isShared = isShared && IsSharedHeap(&entry.first);
    return isShared;
}

bool TakesTextWrittenForIt() {
    TXMLList document;
    document.Psh("a", nullptr, TElement::START, "");
    document.Psh("", nullptr, TElement::TEXT, kLongText);
    document.Psh("a", nullptr, TElement::END, "");
    std::string text;
    const bool isWritten = document.WriteToText(&text, nullptr);
    document.Flush(1);
    return isWritten && IsSharedHeap(text.data());
}

bool DeletesElementsMadeForIt() {
    TXMLList document;
    document.ReadFromText("<a><b/></a>", nullptr);
    bool isShared = document.GetCount() > 0;
    DListIterator<TElement*> element(document);
    for (; element.NotAtTail(); ++element) isShared = isShared && IsSharedHeap(element.Current());
    document.Flush(1);
    return isShared;
}

bool DeletesSourceMadeForIt() {
    THdlBuildFile build;
    const std::unique_ptr<IHdlSourceFile> source(build.CreateOrGetSourceFile("a.vhd"));
    return IsSharedHeap(source.get());
}

bool GivesFileToList() {
    THdlProjectFileList files(THdlProjectFileList::LIST_TYPE_FILE_INPUT, nullptr);
    auto* file = new THdlProjectFile(ISFileName::NewISFileName("/a/b.txt"), nullptr, false);
    const bool isShared = IsSharedHeap(file);
    files.AddAtTailAndSetOwner(file);
    files.Flush(true);
    return isShared && files.empty();
}

/// A file of a class that the library has never seen; its destructor runs in this module.
class TWatchedFile : public THdlProjectFile {
public:
    explicit TWatchedFile(bool* isDeleted)
        : THdlProjectFile(ISFileName::NewISFileName("/a/c.txt"), nullptr, false),
          IsDeleted(isDeleted) {}
    ~TWatchedFile() override { *IsDeleted = true; }

private:
    bool* IsDeleted;
    std::string Text = kLongText;
};

bool GivesObjectOfItsOwnClass() {
    bool isDeleted = false;
    bool isShared = false;
    {
        THdlProjectFileList files(THdlProjectFileList::LIST_TYPE_FILE_INPUT, nullptr);
        auto* file = new TWatchedFile(&isDeleted);
        isShared = IsSharedHeap(file);
        files.AddAtTailAndSetOwner(file);
        files.Flush(true);
    }
    return isShared && isDeleted;
}

bool GivesConfigurationToList() {
    TProjectSimConfigList configurations;
    auto* configuration = new TProjectSimConfig(false);
    const bool isShared = IsSharedHeap(configuration);
    configurations.AddConfiguration(configuration);
    return isShared;
}

struct TPassage {
    const char* Label;
    bool (*Passes)();
};

constexpr TPassage kPassages[] = {
    {"a text by value", TakesTextByValue},
    {"texts by value", TakesTextsByValue},
    {"entries that the library adds to the module's map", TakesEntriesOfItsMap},
    {"a text that the library writes into the module's", TakesTextWrittenForIt},
    {"elements that the library makes and the module deletes", DeletesElementsMadeForIt},
    {"a source that the library makes and the module deletes", DeletesSourceMadeForIt},
    {"a file that the module makes and the library deletes", GivesFileToList},
    {"an object of the module's class that the library deletes", GivesObjectOfItsOwnClass},
    {"a configuration that the module makes and the library deletes", GivesConfigurationToList},
};

/// The labels of the passages in which the memory was not of the library's heap, or got lost.
[[maybe_unused]] std::vector<std::string> FailedPassages() {
    std::vector<std::string> failed;
    for (const TPassage& passage : kPassages)
        if (!passage.Passes()) failed.emplace_back(passage.Label);
    return failed;
}

}  // namespace
