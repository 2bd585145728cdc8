#include "cli/builtwith.h"
#include <CLI/Version.hpp>
#include <expat.h>
#include <nlohmann/json_fwd.hpp>
#include <sstream>
#include <tbb/version.h>
#include <toml++/impl/version.h>

namespace {

std::string Dotted(int major, int minor, int patch) {
    return std::to_string(major) + "." + std::to_string(minor) + "." + std::to_string(patch);
}

TBuiltWith Compiler() {
#ifdef __clang__
    return {"Clang", Dotted(__clang_major__, __clang_minor__, __clang_patchlevel__), "C++20"};
#else
    return {"GCC", Dotted(__GNUC__, __GNUC_MINOR__, __GNUC_PATCHLEVEL__), "C++20"};
#endif
}

}  // namespace

std::vector<TBuiltWith> GetBuiltWith() {
    std::vector<TBuiltWith> rows = {
        Compiler(),
        {"TBB", Dotted(TBB_VERSION_MAJOR, TBB_VERSION_MINOR, TBB_VERSION_PATCH),
         "memory, work in parallel"},
        {"Expat", Dotted(XML_MAJOR_VERSION, XML_MINOR_VERSION, XML_MICRO_VERSION), "reading XML"},
        {"SimpleIni", HDLBUILDFILE_SIMPLEINI_VERSION, "INI files"},
        {"CLI11", CLI11_VERSION, "command lines"},
        {"nlohmann-json",
         Dotted(NLOHMANN_JSON_VERSION_MAJOR, NLOHMANN_JSON_VERSION_MINOR,
                NLOHMANN_JSON_VERSION_PATCH),
         "reading JSON"},
        {"yaml-cpp", HDLBUILDFILE_YAML_CPP_VERSION, "reading YAML"},
        {"toml++", Dotted(TOML_LIB_MAJOR, TOML_LIB_MINOR, TOML_LIB_PATCH), "reading TOML"},
    };
    // Names and versions by turns; none where the page was left out.
    std::istringstream pageLibraries(HDLBUILDFILE_PAGE_LIBRARIES);
    for (std::string name, version; pageLibraries >> name >> version;)
        rows.push_back({name, version, "the page of graphs"});
    return rows;
}
