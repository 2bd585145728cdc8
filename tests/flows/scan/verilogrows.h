#pragma once
#include "flows/scan/includefiles.h"
#include "flows/scan/verilogscan.h"
#include "tests/flows/scan/scannedtext.h"
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <string>
#include <vector>

struct TVerilogRow {
    const char* Text;
    const char* Found;
};

/// What a text gives in which names have `defines`, and files the texts in `files`.
inline std::string ScanV(std::string_view text, const std::vector<TScanDefine>& defines = {},
                         const std::map<std::string, std::string>& files = {}) {
    TIncludeFiles includes([&](const std::string& path) {
        const auto found = files.find(path);
        return found == files.end() ? std::optional<std::string>() : found->second;
    });
    TScanOptions options;
    options.Defines = defines;
    options.IncludeFolders = {"inc"};
    options.Includes = &includes;
    return TextOf(ScanVerilog(text, "src/file.sv", options));
}

inline void ExpectFoundV(const std::vector<TVerilogRow>& rows) {
    for (const TVerilogRow& row : rows) EXPECT_EQ(ScanV(row.Text), row.Found) << row.Text;
}

/// The lines of needs that a text gives in a module, on its second line.
inline std::string NeedsInModule(const std::string& text) {
    const std::string found = ScanV("module m;\n" + text + "\nendmodule");
    const std::string before = "module m 1:8\n";
    return found.starts_with(before) ? found.substr(before.size()) : found;
}

struct TVerilogNeedsRow {
    const char* Text;
    const char* Needs;
};

inline void ExpectNeedsV(const std::vector<TVerilogNeedsRow>& rows) {
    for (const TVerilogNeedsRow& row : rows)
        EXPECT_EQ(NeedsInModule(row.Text), row.Needs) << row.Text;
}
