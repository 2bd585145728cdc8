#pragma once
#include "tests/support/temporaryfolder.h"
#include <fstream>
#include <gtest/gtest.h>
#include <hdlbuildfile.h>
#include <iostream>
#include <sstream>
#include <string>

/// What an example prints that runs in an empty folder, and its status unless that is 0.
inline std::string OutputOf(int (*example)()) {
    const TemporaryFolder folder;
    const std::filesystem::path former = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path());
    std::ostringstream output;
    std::streambuf* const console = std::cout.rdbuf(output.rdbuf());
    const int status = example();
    std::cout.rdbuf(console);
    std::filesystem::current_path(former);
    if (status != 0) output << "status " << status << "\n";
    return output.str();
}

/// What the file beside the example says that it prints.
inline std::string ExpectedOutput(const std::string& name) {
    std::ifstream stream(HDLBUILDFILE_SOURCE_DIR "/examples/classes/" + name + ".txt",
                         std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}
