#include "python/texts.h"
#include "flows/knownnames.h"
#include "services/hdl/hdllanguagetable.h"
#include "services/names/isfilename.h"
#include "services/xml/xmltext.h"
#include <array>
#include <string>
#include <unordered_map>

namespace {

/// Why a build file cannot hold the name; "" when it can.
std::string NameComplaint(std::string_view name) {
    constexpr std::string_view kBlanks = " \t\n\v\f\r";
    if (!IsUtf8(name)) return "it is no UTF-8";
    const std::size_t forbidden = FindForbiddenCharacter(name);
    if (forbidden != std::string_view::npos)
        return "it has the character " + DescribeCharacter(name, forbidden);
    if (!name.empty() && (kBlanks.find(name.front()) != std::string_view::npos ||
                          kBlanks.find(name.back()) != std::string_view::npos))
        return "it begins or ends with a blank";
    return "";
}

void ThrowIfNull(const void* object) {
    if (!object) throw py::error_already_set();
}

/// What the pure part defines, looked up once; lives as long as the interpreter.
PyObject* Borrow(const char* name) {
    static std::unordered_map<std::string, PyObject*>& known =
        *new std::unordered_map<std::string, PyObject*>;
    PyObject*& object = known[name];
    if (!object)
        object =
            py::object(py::module_::import("hdlbuildfile._records").attr(name)).release().ptr();
    return object;
}

PyObject* PathClass() {
    static PyObject* const path =
        py::object(py::module_::import("pathlib").attr("Path")).release().ptr();
    return path;
}

}  // namespace

py::str TextOf(std::string_view text) {
    PyObject* const object =
        PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "surrogateescape");
    ThrowIfNull(object);
    return py::reinterpret_steal<py::str>(object);
}

std::string BytesOf(const py::handle& text) {
    if (!PyUnicode_Check(text.ptr()))
        throw py::type_error(std::string("a str is wanted, not ") + Py_TYPE(text.ptr())->tp_name);
    const auto bytes = py::reinterpret_steal<py::bytes>(
        PyUnicode_AsEncodedString(text.ptr(), "utf-8", "surrogateescape"));
    ThrowIfNull(bytes.ptr());
    std::string result(PyBytes_AS_STRING(bytes.ptr()),
                       static_cast<std::size_t>(PyBytes_GET_SIZE(bytes.ptr())));
    if (result.find('\0') != std::string::npos) RaiseValueError("embedded null character");
    return result;
}

std::string PathBytesOf(const py::handle& path) {
    PyObject* encoded = nullptr;
    if (!PyUnicode_FSConverter(path.ptr(), &encoded)) throw py::error_already_set();
    const auto bytes = py::reinterpret_steal<py::bytes>(encoded);
    const std::string text(PyBytes_AS_STRING(encoded),
                           static_cast<std::size_t>(PyBytes_GET_SIZE(encoded)));
    if (text.empty()) RaiseValueError("the path is empty");
    return text;
}

const ISFileName* FileOf(const py::handle& path) {
    return ISFileName::NewISFileName(PathBytesOf(path).c_str());
}

const ISFileName* FileIfPath(const py::handle& path) {
    if (!PyUnicode_Check(path.ptr()) && !PyBytes_Check(path.ptr()) &&
        !py::hasattr(path, "__fspath__"))
        return nullptr;
    try {
        return FileOf(path);
    } catch (py::error_already_set& error) {
        if (error.matches(PyExc_ValueError)) return nullptr;
        throw;
    }
}

std::string NameOf(const py::handle& text, const std::string& whose) {
    std::string name = BytesOf(text);
    const std::string complaint = NameComplaint(name);
    if (!complaint.empty())
        RaiseValueError("no build file can hold '" + name + "' as the " + whose + ": " + complaint);
    return name;
}

void CheckSourceName(const ISFileName* source, const ISFileName* buildFile) {
    const std::string name = source->GetRelativeFileNameString(buildFile, false, false);
    const std::string complaint = NameComplaint(name);
    if (!complaint.empty())
        RaiseValueError(std::string(source->Canonical(false)) +
                        ": no build file can hold the name: " + complaint);
}

std::vector<std::string> PathsOf(const py::handle& paths) {
    std::vector<std::string> result;
    const bool isOne = PyUnicode_Check(paths.ptr()) || PyBytes_Check(paths.ptr()) ||
                       py::hasattr(paths, "__fspath__");
    if (isOne)
        result.push_back(PathBytesOf(paths));
    else
        for (const py::handle path : paths) result.push_back(PathBytesOf(path));
    return result;
}

std::vector<std::string> TextsOf(const py::handle& texts) {
    std::vector<std::string> result;
    if (PyUnicode_Check(texts.ptr()))
        result.push_back(BytesOf(texts));
    else
        for (const py::handle text : texts) result.push_back(BytesOf(text));
    return result;
}

py::str PathTextOf(const ISFileName* file) {
    const std::string_view text = file ? file->Canonical(false) : "";
    PyObject* const object =
        PyUnicode_DecodeFSDefaultAndSize(text.data(), static_cast<Py_ssize_t>(text.size()));
    ThrowIfNull(object);
    return py::reinterpret_steal<py::str>(object);
}

py::object PathObjectOf(std::string_view path) {
    const auto text = py::reinterpret_steal<py::object>(
        PyUnicode_DecodeFSDefaultAndSize(path.data(), static_cast<Py_ssize_t>(path.size())));
    ThrowIfNull(text.ptr());
    PyObject* const object = PyObject_CallOneArg(PathClass(), text.ptr());
    ThrowIfNull(object);
    return py::reinterpret_steal<py::object>(object);
}

py::object PathObjectOf(const ISFileName* file) {
    return PathObjectOf(file ? file->Canonical(false) : "");
}

py::object ToLanguage(THdlLanguage language) {
    static std::array<PyObject*, LANGUAGE_NONE + 1> known{};
    PyObject*& member = known.at(static_cast<std::size_t>(language));
    if (!member)
        member = Pure("Language")(TextOf(GetStringFromHdlLanguage(language))).release().ptr();
    return py::reinterpret_borrow<py::object>(member);
}

namespace {

std::vector<std::string> OfferedLanguages() {
    std::vector<std::string> names;
    for (const THdlLanguageRecord& record : GetHdlLanguageTable())
        if (record.IsOffered) names.emplace_back(record.Name);
    return names;
}

}  // namespace

THdlLanguage FromLanguage(const py::handle& language) {
    const std::string text = BytesOf(language);
    const THdlLanguage found = GetHdlLanguageFromString(text.c_str());
    if (found == LANGUAGE_NONE || !GetHdlLanguageRecord(found).IsOffered)
        RaiseValueError(UnknownName("language", text, OfferedLanguages()));
    return found;
}

py::object Pure(const char* name) {
    return py::reinterpret_borrow<py::object>(Borrow(name));
}

void Raise(const char* name, const py::args& arguments) {
    const py::object type = Pure(name);
    const py::object error = type(*arguments);
    PyErr_SetObject(type.ptr(), error.ptr());
    throw py::error_already_set();
}

void RaiseValueError(const std::string& text) {
    PyErr_SetObject(PyExc_ValueError, TextOf(text).ptr());
    throw py::error_already_set();
}
