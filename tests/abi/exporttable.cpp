#include "tests/abi/exporttable.h"
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <cxxabi.h>
#include <fstream>
#include <iterator>
#include <memory>
#include <vector>
#ifdef _WIN32
#include <windows.h>
#else
#include <elf.h>
#endif

namespace {

void ReplaceAll(std::string& text, const std::string& from, const std::string& to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
}

}  // namespace

std::string Demangled(const char* symbol) {
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(symbol, nullptr, nullptr, &status), &std::free);
    std::string text = status == 0 ? name.get() : symbol;
    ReplaceAll(text,
               "std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >",
               "std::string");
    ReplaceAll(text, "std::basic_string_view<char, std::char_traits<char> >", "std::string_view");
    ReplaceAll(text, "[abi:cxx11]", "");
    return text;
}

#ifdef _WIN32

TExportTable ReadExportTable() {
    TExportTable table;
    const auto* base = reinterpret_cast<const char*>(LoadLibraryW(L"hdlbuildfile.dll"));
    if (!base) return table;
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    const auto* exports =
        reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base + directory.VirtualAddress);
    const auto* names = reinterpret_cast<const DWORD*>(base + exports->AddressOfNames);
    table.LibraryName = base + exports->Name;
    for (DWORD i = 0; i < exports->NumberOfNames; ++i)
        table.Symbols.insert(Demangled(base + names[i]));
    return table;
}

#else

namespace {

/// The entries of the section of one type, and the string table that goes with them.
template <class Entry>
struct TSection {
    std::vector<Entry> Entries;
    std::string Texts;
};

template <class Entry>
TSection<Entry> ReadSection(const std::string& file, std::uint32_t type) {
    TSection<Entry> section;
    Elf64_Ehdr header;
    std::memcpy(&header, file.data(), sizeof header);
    std::vector<Elf64_Shdr> sections(header.e_shnum);
    std::memcpy(sections.data(), file.data() + header.e_shoff, header.e_shnum * sizeof(Elf64_Shdr));
    for (const Elf64_Shdr& each : sections) {
        if (each.sh_type != type) continue;
        section.Entries.resize(each.sh_size / sizeof(Entry));
        std::memcpy(section.Entries.data(), file.data() + each.sh_offset, each.sh_size);
        const Elf64_Shdr& texts = sections[each.sh_link];
        section.Texts = file.substr(texts.sh_offset, texts.sh_size);
    }
    return section;
}

}  // namespace

TExportTable ReadExportTable() {
    TExportTable table;
    std::ifstream stream(HDLBUILDFILE_LIBRARY, std::ios::binary);
    const std::string file{std::istreambuf_iterator<char>(stream), {}};
    if (file.size() < sizeof(Elf64_Ehdr)) return table;
    const auto dynamic = ReadSection<Elf64_Dyn>(file, SHT_DYNAMIC);
    for (const Elf64_Dyn& entry : dynamic.Entries)
        if (entry.d_tag == DT_SONAME) table.LibraryName = &dynamic.Texts[entry.d_un.d_val];
    const auto symbols = ReadSection<Elf64_Sym>(file, SHT_DYNSYM);
    for (const Elf64_Sym& symbol : symbols.Entries)
        if (symbol.st_shndx != SHN_UNDEF)
            table.Symbols.insert(Demangled(&symbols.Texts[symbol.st_name]));
    return table;
}

#endif
