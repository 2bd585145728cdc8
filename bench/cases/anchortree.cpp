#include "bench/cases/anchors.h"
#include "bench/cases/section.h"
#include <filesystem>
#include <iostream>
#include <new>
#include <pugixml.hpp>

namespace {

void* Allocate(std::size_t size) {
    return ::operator new(size, std::nothrow);
}

void Free(void* memory) {
    ::operator delete(memory);
}

/// The library's allocator, so that no side has a faster one.
void ShareAllocator() {
    pugi::set_memory_management_functions(Allocate, Free);
}

std::uint64_t CountSources(const pugi::xml_document& document) {
    std::uint64_t count = 0;
    for (const pugi::xml_node group : document.document_element().first_child().children())
        for (const pugi::xml_node child : group.children("SourceFile")) count += !child.empty();
    return count;
}

void PrintCounts(const std::string& path) {
    PrintResult(std::to_string(CountInFile(path, "<SourceFile ")) + " sources, " +
                std::to_string(CountInFile(path, "<Dependency>")) + " dependencies");
}

}  // namespace

void MeasureAnchorWrite(const std::string& build) {
    ShareAllocator();
    pugi::xml_document document;
    document.load_file(build.c_str());
    const std::string written =
        (std::filesystem::path(build).parent_path() / "written-anchor.xml").string();
    MeasureTime([&] {
        if (!document.save_file(written.c_str())) std::cerr << "the build could not be written\n";
    });
    PrintCounts(written);
}

void MeasureAnchorMemory(const std::string& build) {
    ShareAllocator();
    pugi::xml_document document;
    MeasureMemory(build, [&] {
        document.load_file(build.c_str());
        return CountSources(document);
    });
    PrintCounts(build);
}
