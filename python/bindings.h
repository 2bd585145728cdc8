#pragma once
#include "python/sources.h"
#include "python/texts.h"

struct TBuildTop;
struct TXMLReadError;

using TBuildClass = py::class_<TSession, std::shared_ptr<TSession>>;

[[noreturn]] void RaiseReadError(const TXMLReadError& error, const ISFileName* file);
/// An error of the pure part that takes a file and a reason.
[[noreturn]] void RaiseAs(const char* error, const ISFileName* file, const std::string& reason);
/// Of a build for a file that is not there yet.
[[noreturn]] void RaiseMakeError(const ISFileName* file, const std::string& reason);
[[noreturn]] void RaiseWriteError(const ISFileName* file, const std::string& reason);
py::object TopObjectOf(const TBuildTop& top);

/// Takes the constructor away: objects come from functions of the module. What is called all the
/// same is a TypeError.
void TakeConstructor(const py::handle& type);

// One function for each part of the module.
void BindSources(py::module_& module);
TBuildClass BindBuilds(py::module_& module);
void BindReports(py::module_& module, TBuildClass& build);
