#pragma once
#include "python/sources.h"
#include "python/texts.h"

// One function for each part of the module.
void BindSources(py::module_& module);
void BindBuilds(py::module_& module);
void BindReports(py::module_& module);
