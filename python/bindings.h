#pragma once
#include "python/sources.h"
#include "python/texts.h"

struct TBuildTop;
struct TXMLReadError;

using TBuildClass = py::class_<TSession, std::shared_ptr<TSession>>;

[[noreturn]] void RaiseReadError(const TXMLReadError& error, const ISFileName* file);
[[noreturn]] void RaiseWriteError(const ISFileName* file, const std::string& reason);
py::object TopObjectOf(const TBuildTop& top);

// One function for each part of the module.
void BindSources(py::module_& module);
TBuildClass BindBuilds(py::module_& module);
void BindReports(py::module_& module, TBuildClass& build);
