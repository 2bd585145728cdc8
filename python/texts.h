#pragma once
#include "services/hdl/hdllanguage.h"
#include <pybind11/pybind11.h>
#include <string>
#include <string_view>

class ISFileName;
struct TDiagnostic;

namespace py = pybind11;

// Texts between Python and the library. Bytes that are no UTF-8, as names of files may hold them,
// become lone surrogates, and those become the bytes again: as os.fsdecode and os.fsencode do.

py::str TextOf(std::string_view text);
/// ValueError for a text with a zero in it, which no file and no name has.
std::string BytesOf(const py::handle& text);

/// A path as os.fspath takes it: str, bytes or os.PathLike. The library takes a relative one
/// against the working directory of that moment.
std::string PathBytesOf(const py::handle& path);
const ISFileName* FileOf(const py::handle& path);
/// Null for what is no path of a file.
const ISFileName* FileIfPath(const py::handle& path);
/// One path or several; a str is one.
std::vector<std::string> PathsOf(const py::handle& paths);
std::vector<std::string> TextsOf(const py::handle& texts);

// What a build file can hold: its readers take blanks around names away, and XML knows no bytes
// that are no UTF-8 and few control characters. ValueError for anything else.

/// `whose` tells what the name is for.
std::string NameOf(const py::handle& text, const std::string& whose);
void CheckSourceName(const ISFileName* source, const ISFileName* buildFile);

py::str PathTextOf(const ISFileName* file);
py::object PathObjectOf(std::string_view path);
py::object PathObjectOf(const ISFileName* file);

/// A member of the enumeration.
py::object ToLanguage(THdlLanguage language);
/// The language of a member or of its text. ValueError for any other.
THdlLanguage FromLanguage(const py::handle& language);

/// What the pure part of the module defines, such as "Finding".
py::object Pure(const char* name);
/// Raises an exception of the pure part.
[[noreturn]] void Raise(const char* name, const py::args& arguments);
[[noreturn]] void RaiseValueError(const std::string& text);
