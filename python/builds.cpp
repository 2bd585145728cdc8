#include "flows/buildchanges.h"
#include "flows/buildtops.h"
#include "flows/listedsources.h"
#include "flows/toptexts.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "python/bindings.h"
#include "services/hdl/sourcefileextensions.h"
#include "services/names/isfilename.h"
#include <initializer_list>
#include <unordered_map>

void RaiseReadError(const TXMLReadError& error, const ISFileName* file) {
    const auto numberOrNone = [](int number) -> py::object {
        if (number > 0) return py::int_(number);
        return py::none();
    };
    Raise(error.Missing ? "MissingError" : "ReadError",
          py::make_tuple(PathTextOf(file), numberOrNone(error.Line), numberOrNone(error.Column),
                         TextOf(error.Reason)));
}

void RaiseAs(const char* error, const ISFileName* file, const std::string& reason) {
    Raise(error, py::make_tuple(PathTextOf(file), TextOf(reason)));
}

void RaiseWriteError(const ISFileName* file, const std::string& reason) {
    RaiseAs(reason == TEditedFile::kChanged ? "ChangedError" : "WriteError", file, reason);
}

void RaiseMakeError(const ISFileName* file, const std::string& reason) {
    RaiseAs(reason == TBuildEdit::kExists ? "ExistsError" : "WriteError", file, reason);
}

py::object TopObjectOf(const TBuildTop& top) {
    const auto textOrNone = [](const std::string& text) -> py::object {
        if (text.empty()) return py::none();
        return TextOf(text);
    };
    return Pure("Top")(ToLanguage(top.Language), TextOf(top.Library), TextOf(top.Entity),
                       textOrNone(top.Architecture));
}

namespace {

using TSessionPointer = std::shared_ptr<TSession>;

void ReadInto(TSession& session) {
    TXMLReadError error;
    if (!WorkOn(session, [&] { return session.Read(&error); }))
        RaiseReadError(error, session.GetFile());
}

/// Waits for the lock while other threads run, unless a signal raises an exception.
std::unique_ptr<TBuildLock> TakeLock(const ISFileName* file) {
    auto lock = std::make_unique<TBuildLock>();
    bool isInterrupted = false;
    std::string reason;
    {
        const py::gil_scoped_release release;
        reason = lock->Take(file->Canonical(false), [&] {
            const py::gil_scoped_acquire acquire;
            isInterrupted = PyErr_CheckSignals() != 0;
            return !isInterrupted;
        });
    }
    if (isInterrupted) throw py::error_already_set();
    if (!reason.empty()) RaiseAs("LockError", file, reason);
    return lock;
}

TSessionPointer ReadBuild(const py::object& path, bool lock) {
    const ISFileName* const file = FileOf(path);
    auto session = std::make_shared<TSession>(file);
    if (lock) session->SetLock(TakeLock(file));
    ReadInto(*session);
    return session;
}

TSessionPointer MakeBuild(const py::object& path, const py::object& language) {
    const THdlLanguage top = FromLanguage(language);
    const ISFileName* const file = FileOf(path);
    auto session = std::make_shared<TSession>(file);
    const std::string reason = WorkOn(*session, [&] { return session->Make(top); });
    if (!reason.empty()) RaiseMakeError(file, reason);
    return session;
}

bool WriteBuild(TSession& session) {
    bool isChanged = false;
    AwaitIdle(session);
    const std::unique_ptr<TBuildLock> lock =
        session.HasLock() ? nullptr : TakeLock(session.GetFile());
    const std::string reason =
        WorkOn(session, [&] { return session.Write(lock.get(), &isChanged); });
    if (!reason.empty()) RaiseWriteError(session.GetFile(), reason);
    return isChanged;
}

void CloseBuild(TSession& session) {
    AwaitIdle(session);
    session.SetLock(nullptr);
}

py::str DiffBuild(TSession& session) {
    std::string difference;
    const std::string reason = WorkOn(session, [&] { return session.Compare(&difference); });
    if (!reason.empty()) RaiseWriteError(session.GetFile(), reason);
    return TextOf(difference);
}

bool LeaveBuild(TSession& session, const py::object& type, const py::object&, const py::object&) {
    try {
        if (type.is_none()) WriteBuild(session);
    } catch (...) {
        CloseBuild(session);
        throw;
    }
    CloseBuild(session);
    return false;
}

std::vector<IHdlSourceFile*> SourcesIn(const TIHdlSourceFileList& list) {
    return {list.begin(), list.end()};
}

std::vector<IHdlSourceFile*> ListAll(THdlBuildFile& build) {
    std::vector<IHdlSourceFile*> sources;
    for (const THdlLanguage language : build.GetSourceFileLanguages()) {
        const TIHdlSourceFileList& group = *build.GetSourceFileGroup(language);
        sources.insert(sources.end(), group.begin(), group.end());
    }
    return sources;
}

TSourceSequence GetSources(const TSessionPointer& session) {
    AwaitIdle(*session);
    return {session, ListAll(session->GetBuild())};
}

TSourceSequence GetGroup(const TSessionPointer& session, const py::object& language) {
    const THdlLanguage group = FromLanguage(language);
    AwaitIdle(*session);
    return {session, SourcesIn(*session->GetBuild().GetSourceFileGroup(group))};
}

TSourceSequence GetMissing(const TSessionPointer& session) {
    const std::vector<IHdlSourceFile*> sources = WorkOn(*session, [&] {
        std::vector<IHdlSourceFile*> missing = ListAll(session->GetBuild());
        std::erase_if(missing,
                      [](const IHdlSourceFile* source) { return source->GetFileName()->Exists(); });
        return missing;
    });
    return {session, sources};
}

struct TOrdered {
    THdlLanguage Language;
    std::vector<IHdlSourceFile*> Sources;
};

std::vector<TOrdered> OrderOf(TSession& session, const py::object& language) {
    std::vector<THdlLanguage> languages;
    if (!language.is_none()) languages.push_back(FromLanguage(language));
    return WorkOn(session, [&] {
        THdlBuildFile& build = session.GetBuild();
        if (languages.empty()) languages = build.GetSourceFileLanguages();
        std::vector<TOrdered> order;
        for (const THdlLanguage one : languages) {
            build.OrderFilesForCompile(one);
            order.push_back({one, SourcesIn(*build.GetFilesToCompile(one))});
        }
        return order;
    });
}

TSourceSequence GetOrder(const TSessionPointer& session, const py::object& language) {
    std::vector<IHdlSourceFile*> sources;
    for (const TOrdered& order : OrderOf(*session, language))
        sources.insert(sources.end(), order.Sources.begin(), order.Sources.end());
    return {session, sources};
}

/// The collector of garbage would walk the rows again and again while they are made.
class TWithoutCollector {
public:
    TWithoutCollector() : WasOn(PyGC_Disable() != 0) {}
    ~TWithoutCollector() {
        if (WasOn) PyGC_Enable();
    }
    TWithoutCollector(const TWithoutCollector&) = delete;
    TWithoutCollector& operator=(const TWithoutCollector&) = delete;

private:
    bool WasOn;
};

py::list GetOrderTable(TSession& session, const py::object& language) {
    const std::vector<TOrdered> order = OrderOf(session, language);
    const THdlBuildFile& build = session.GetBuild();
    const TWithoutCollector without;
    std::size_t count = 0;
    for (const TOrdered& group : order) count += group.Sources.size();
    py::list rows(count);
    std::unordered_map<std::string, py::str> libraries;
    Py_ssize_t number = 0;
    for (const TOrdered& group : order) {
        const py::object name = ToLanguage(group.Language);
        for (const IHdlSourceFile* const source : group.Sources) {
            const std::string library = LibraryOfSource(*source, build);
            auto known = libraries.find(library);
            if (known == libraries.end()) known = libraries.emplace(library, TextOf(library)).first;
            py::tuple row(3);
            PyTuple_SET_ITEM(row.ptr(), 0, name.inc_ref().ptr());
            PyTuple_SET_ITEM(row.ptr(), 1, known->second.inc_ref().ptr());
            PyTuple_SET_ITEM(row.ptr(), 2, PathTextOf(source->GetFileName()).release().ptr());
            PyList_SET_ITEM(rows.ptr(), number++, row.release().ptr());
        }
    }
    return rows;
}

THdlLanguage LanguageOf(const py::object& language, const ISFileName* file) {
    if (!language.is_none()) return FromLanguage(language);
    const THdlLanguage found =
        TSourceFileExtensions::GetInstance()->GetSourceFileLanguageFromExtension(
            file->GetExtOnly());
    if (found == LANGUAGE_NONE)
        RaiseValueError(std::string(file->Canonical(false)) +
                        ": the extension is that of no language");
    return found;
}

TSourceHandle AddOne(const TSessionPointer& session, const py::object& path,
                     const py::object& library, const py::object& language, bool isLibraryFile) {
    const ISFileName* const file = FileOf(path);
    const THdlLanguage group = LanguageOf(language, file);
    CheckSourceName(file, session->GetFile());
    const std::string ownLibrary =
        library.is_none() ? ""
                          : NameOf(library, "library of " + std::string(file->Canonical(false)));
    AwaitIdle(*session);
    if (FindListed(session->GetBuild(), file).Source)
        RaiseValueError(std::string(file->Canonical(false)) + " is in the build already");
    IHdlSourceFile* const added = AddSource(session->GetBuild(), file, group);
    if (!ownLibrary.empty()) added->SetPrecompiledLibraryGroupName(ownLibrary.c_str());
    if (isLibraryFile) added->SetLibraryFlag(true);
    return {session, added};
}

py::object FindOne(const TSessionPointer& session, const py::object& path) {
    const ISFileName* const file = FileOf(path);
    AwaitIdle(*session);
    IHdlSourceFile* const found = FindListed(session->GetBuild(), file).Source;
    if (!found) return py::none();
    return py::cast(TSourceHandle(session, found));
}

py::object GetOne(const TSessionPointer& session, const py::object& path) {
    py::object found = FindOne(session, path);
    if (!found.is_none()) return found;
    PyErr_SetObject(PyExc_KeyError, path.ptr());
    throw py::error_already_set();
}

bool HoldsSource(const TSessionPointer& session, const py::object& named) {
    if (!py::isinstance<TSourceHandle>(named)) {
        const ISFileName* const file = FileIfPath(named);
        AwaitIdle(*session);
        return file && FindListed(session->GetBuild(), file).Source;
    }
    const auto& handle = named.cast<const TSourceHandle&>();
    AwaitIdle(*session);
    return handle.GetSession() == session && !handle.IsGone() &&
           FindListed(session->GetBuild(), handle.GetFile()).Source;
}

void RemoveSources(const TSessionPointer& session, const py::args& named) {
    std::vector<IHdlSourceFile*> sources;
    for (const py::handle one : named) {
        const py::object source = py::isinstance<TSourceHandle>(one)
                                      ? py::reinterpret_borrow<py::object>(one)
                                      : FindOne(session, py::reinterpret_borrow<py::object>(one));
        if (source.is_none()) RaiseValueError(PathBytesOf(one) + " is no source of the build");
        const auto& handle = source.cast<const TSourceHandle&>();
        if (handle.GetSession() != session) RaiseValueError("the source is one of another build");
        sources.push_back(handle.Get());
    }
    session->Remove(sources);
}

py::list GetTops(TSession& session) {
    AwaitIdle(session);
    py::list tops;
    for (const TBuildTop& top : ListTops(session.GetBuild())) tops.append(TopObjectOf(top));
    return tops;
}

/// A component as its text, with the parts that are given beside it.
std::string NamedTopText(const py::object& top, const py::object& library,
                         const py::object& architecture) {
    std::string text = NameOf(top, "top-level component");
    if (!library.is_none()) text = NameOf(library, "library of the component") + "." + text;
    if (!architecture.is_none()) text += "(" + NameOf(architecture, "architecture") + ")";
    return text;
}

/// The parts of a Top of Python.
TBuildTop TopFrom(const py::object& top) {
    const py::object architecture = top.attr("architecture");
    return {FromLanguage(top.attr("language")), BytesOf(top.attr("library")),
            BytesOf(top.attr("entity")), architecture.is_none() ? "" : BytesOf(architecture)};
}

bool IsWholeTop(const py::object& top, std::initializer_list<const py::object*> parts) {
    if (!py::isinstance(top, Pure("Top"))) return false;
    for (const py::object* const part : parts)
        if (!part->is_none())
            throw py::type_error("a Top has its library, architecture and language");
    return true;
}

bool AddOneTop(TSession& session, const py::object& top, const py::object& library,
               const py::object& architecture, const py::object& language) {
    const bool isWhole = IsWholeTop(top, {&library, &architecture, &language});
    const std::string text = isWhole ? NameOf(py::str(top), "top-level component")
                                     : NamedTopText(top, library, architecture);
    THdlLanguage wanted = isWhole              ? TopFrom(top).Language
                          : language.is_none() ? LANGUAGE_NONE
                                               : FromLanguage(language);
    AwaitIdle(session);
    if (wanted == LANGUAGE_NONE) wanted = session.GetBuild().GetTopLanguage();
    if (wanted == LANGUAGE_NONE) RaiseValueError("the build has no top-level language: give one");
    const TNamedTop named = ReadTopToAdd(text, wanted, session.GetBuild());
    if (!named.Complaint.empty()) RaiseValueError(named.Complaint);
    return AddTop(session.GetBuild(), named.Top);
}

bool RemoveOneTop(TSession& session, const py::object& top, const py::object& library,
                  const py::object& architecture, const py::object& language) {
    if (IsWholeTop(top, {&library, &architecture, &language})) {
        const TBuildTop whole = TopFrom(top);
        AwaitIdle(session);
        return RemoveTop(session.GetBuild(), whole);
    }
    const std::string text = NamedTopText(top, library, architecture);
    const THdlLanguage wanted = language.is_none() ? LANGUAGE_NONE : FromLanguage(language);
    AwaitIdle(session);
    return RemoveTopsCalled(text, wanted, session.GetBuild());
}

py::str DescribeBuild(TSession& session) {
    AwaitIdle(session);
    return py::str("<hdlbuildfile.Build {!r}, sources: {}>")
        .format(PathTextOf(session.GetFile()), ListAll(session.GetBuild()).size());
}

template <THdlLanguage (THdlBuildFile::*Get)() const>
py::object GetLanguage(TSession& session) {
    AwaitIdle(session);
    return ToLanguage((session.GetBuild().*Get)());
}

template <void (THdlBuildFile::*Set)(THdlLanguage)>
void SetLanguage(TSession& session, const py::object& language) {
    const THdlLanguage value = FromLanguage(language);
    AwaitIdle(session);
    (session.GetBuild().*Set)(value);
}

template <std::string (THdlBuildFile::*Get)() const>
py::str GetText(TSession& session) {
    AwaitIdle(session);
    return TextOf((session.GetBuild().*Get)());
}

template <void (THdlBuildFile::*Set)(const char*)>
void SetText(TSession& session, const py::object& text) {
    const std::string value = NameOf(text, "name of the build's library or snapshot");
    AwaitIdle(session);
    (session.GetBuild().*Set)(value.c_str());
}

void BindFile(TBuildClass& build) {
    using namespace py::literals;
    build
        .def_static("read", &ReadBuild, "path"_a, py::kw_only(), "lock"_a = false,
                    R"(Reads a build file.

With ``lock`` the file is locked first, until the ``with`` block ends, or close(), or the build dies:
whoever else changes it with this module or with hdlbuild waits, for 10 seconds at most. Sources that are
missing do not matter.

Raises ReadError, and LockError where the lock cannot be had.)")
        .def_static("new", &MakeBuild, "path"_a, "language"_a = "VHDL",
                    R"(Begins a build where no file is; write() makes the file.

``language`` is that of its top-level component. Raises ExistsError where a file is.)")
        .def(
            "write", &WriteBuild,
            R"(Saves what was changed: every other byte of the file stays, comments and unknown elements too.

Returns whether there was a change to save. Raises, with the file as it was, ChangedError when the file
was changed or removed by others since it was read, LockError when others have its lock for too long, and
WriteError when it cannot take the change and when it cannot be written.)")
        .def("reload", &ReadInto,
             R"(Reads the file again, and forgets what was changed and not written.

Sources stay what they are when the file lists them still. Raises ReadError, with the build as it was.)")
        .def("close", &CloseBuild, "Lets go of the lock, if the build has it.")
        .def("diff", &DiffBuild, "What write() would change, as a unified diff; \"\" for nothing.")
        .def_property_readonly(
            "changed",
            [](TSession& s) { return WorkOn(s, [&] { return s.GetEdit().IsDifferent(); }); },
            "Whether there is something to write.")
        .def("__enter__", [](py::object self) { return self; })
        .def("__exit__", &LeaveBuild, "exception_type"_a, "exception"_a, "traceback"_a,
             "Writes, unless the block ended with an exception, and lets go of the lock.")
        .def_property_readonly(
            "path", [](const TSession& s) { return PathObjectOf(s.GetFile()); },
            "The whole path of the build file.")
        .def("__repr__", &DescribeBuild);
}

void BindSettings(TBuildClass& build) {
    using namespace py::literals;
    build
        .def_property("top_language", &GetLanguage<&THdlBuildFile::GetTopLanguage>,
                      &SetLanguage<&THdlBuildFile::SetTopLanguage>,
                      "The language of the top-level component.")
        .def_property("hvl_language", &GetLanguage<&THdlBuildFile::GetHvlLanguage>,
                      &SetLanguage<&THdlBuildFile::SetHvlLanguage>,
                      "The language of the test benches.")
        .def_property("hdl_language", &GetLanguage<&THdlBuildFile::GetHdlLanguage>,
                      &SetLanguage<&THdlBuildFile::SetHdlLanguage>, "The language of the design.")
        .def_property("library", &GetText<&THdlBuildFile::GetDestinationLibrary>,
                      &SetText<&THdlBuildFile::SetDestinationLibrary>,
                      "The library of the sources that name none; \"\" means \"work\".")
        .def_property("snapshot", &GetText<&THdlBuildFile::GetSnapshotName>,
                      &SetText<&THdlBuildFile::SetSnapshotName>,
                      "The name of the simulation's snapshot.")
        .def_property_readonly(
            "languages",
            [](TSession& s) {
                AwaitIdle(s);
                py::list languages;
                for (const THdlLanguage language : s.GetBuild().GetSourceFileLanguages())
                    if (!s.GetBuild().GetSourceFileGroup(language)->empty())
                        languages.append(ToLanguage(language));
                return languages;
            },
            "The languages that have sources.")
        .def_property_readonly("tops", &GetTops, "The top-level components.")
        .def(
            "add_top", &AddOneTop, "top"_a, "library"_a = py::none(), "architecture"_a = py::none(),
            "language"_a = py::none(),
            R"(Records a top-level component: a Top, or its name with a library and an architecture or without.

``tb``, ``sim.tb`` and ``sim.tb(rtl)`` are names; what the name lacks may be given beside it. Without a library it
is that of the build, without a language the top-level one. False when an equal one is recorded. Raises
ValueError for what is no name of the language.)")
        .def(
            "remove_top", &RemoveOneTop, "top"_a, "library"_a = py::none(),
            "architecture"_a = py::none(), "language"_a = py::none(),
            "Takes a top-level component away, named as for add_top(); without a language those of "
            "all. False when none is equal.");
}

void BindLists(TBuildClass& build) {
    using namespace py::literals;
    build
        .def_property_readonly("sources", &GetSources,
                               "All sources, in the order of the languages, then of the groups.")
        .def("group", &GetGroup, "language"_a, "The sources of one language, as they are listed.")
        .def_property_readonly("missing", &GetMissing,
                               "The sources that do not exist: the disk is asked each time.")
        .def("order", &GetOrder, "language"_a = py::none(),
             R"(The sources of a language, or of all, in compile order.

VHDL is ordered by its dependencies, which come along also where no group lists them; every other
language is as it is listed.)")
        .def("order_table", &GetOrderTable, "language"_a = py::none(),
             "The same at once, as a list of (language, library, path), with texts for paths.")
        .def("find", &FindOne, "path"_a, "The source of a path; None when there is none.")
        .def("__getitem__", &GetOne, "path"_a, "The source of a path. Raises KeyError.")
        .def("__contains__", &HoldsSource, "source"_a,
             "Whether a path is that of a source, or a source is one of the build.")
        .def("__iter__", [](const TSessionPointer& s) { return py::iter(py::cast(GetSources(s))); })
        .def("__len__",
             [](TSession& s) {
                 AwaitIdle(s);
                 return ListAll(s.GetBuild()).size();
             })
        .def("__bool__", [](const TSession&) { return true; })
        .def("add", &AddOne, "path"_a, "library"_a = py::none(), "language"_a = py::none(),
             py::kw_only(), "is_library_file"_a = false,
             R"(Adds a source at the end of its group, and returns it.

Without a language the extension tells. The file need not exist. Raises ValueError for a path that is
listed, for an extension of no language, and for names that no build file can hold: with bytes that are
no UTF-8, with characters that XML lacks, with blanks around them.)")
        .def("remove", &RemoveSources,
             R"(Takes sources, given as such or by their paths, out of the build.

They are no dependencies of others any more. Raises ValueError, with nothing removed, for what is no
source of the build.)");
}

}  // namespace

TBuildClass BindBuilds(py::module_& module) {
    TBuildClass build(module, "Build", py::is_final(),
                      R"(A build: which sources take part, in which libraries and order.

A relative path is taken against the working directory. Paths are equal without regard to case.

As a context manager it writes what was changed when the block ends, unless an exception ends it.
Reading, ordering, scanning, checking, exporting and writing let other threads run; a build that is
busy has them wait.)");
    TakeConstructor(build);
    BindFile(build);
    BindSettings(build);
    BindLists(build);
    return build;
}
