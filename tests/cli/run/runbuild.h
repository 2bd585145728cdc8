#pragma once
#include "tests/cli/toolrun.h"
#include <string>
#include <vector>

/// A top-level component of a build.
struct TTop {
    const char* Entity;
    const char* Architecture;
};

std::string TopsText(const char* language, const std::vector<TTop>& tops);
/// A build file of one source and the top-level component "t", with `settings` in between.
std::string VerilogBuildText(const std::string& source, const std::string& settings = {});
/// "my build.xml" of two packages, one of them in a folder with a quote in its name, and a top over
/// each.
void WriteVhdlBuild(const WorkingFolder& folder);

/// Runs the tool on "my build.xml" behind the shell's words `before`, its errors behind its
/// results. Times are "T", digests "D" and the current folder is ".".
std::string Ran(const std::string& arguments, const std::string& before = {});

/// Gives a file a new time.
void Touch(const std::string& file);
void AppendTo(const std::string& file, const std::string& text);
/// Lets a file be called.
void MakeProgram(const std::string& file);
