#include "python/sources.h"
#include "flows/buildchanges.h"
#include "flows/listedsources.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "python/bindings.h"
#include "services/names/isfilename.h"

void AwaitIdle(TSession& session) {
    while (session.IsBusy()) {
        const py::gil_scoped_release release;
        session.WaitUntilIdle();
    }
}

TSourceHandle::TSourceHandle(std::shared_ptr<TSession> session, IHdlSourceFile* source)
    : TSourceHandle(session, {source, source->GetFileName(), session->GetReadCount()}) {}

IHdlSourceFile* TSourceHandle::Find() const {
    if (Held.ReadCount != Session->GetReadCount()) {
        Held.Source = FindListed(Session->GetBuild(), Held.File).Source;
        Held.ReadCount = Session->GetReadCount();
    }
    return Held.Source && !Session->IsRemoved(Held.Source) ? Held.Source : nullptr;
}

IHdlSourceFile* TSourceHandle::Get() const {
    AwaitIdle(*Session);
    IHdlSourceFile* const source = Find();
    if (!source) Raise("SourceGone", py::make_tuple(PathTextOf(Held.File)));
    return source;
}

void TSourceHandle::Follow(IHdlSourceFile* source) {
    Held = {source, source->GetFileName(), Session->GetReadCount()};
}

TSourceSequence::TSourceSequence(std::shared_ptr<TSession> session,
                                 const std::vector<IHdlSourceFile*>& sources)
    : Session(std::move(session)) {
    Sources.reserve(sources.size());
    for (IHdlSourceFile* const source : sources)
        Sources.push_back({source, source->GetFileName(), Session->GetReadCount()});
}

namespace {

constexpr const char* kNoSource = " is no source of the build";

using TSources = std::vector<IHdlSourceFile*>;

/// Texts that many sources share, as one object of Python.
py::object LibraryTextOf(const IHdlSourceFile& source, const THdlBuildFile& build) {
    return TextOf(LibraryOfSource(source, build));
}

/// The source that a caller names, by itself or by its path.
IHdlSourceFile* SourceOf(TSession& session, const py::handle& named) {
    if (py::isinstance<TSourceHandle>(named)) {
        const auto& handle = named.cast<const TSourceHandle&>();
        if (handle.GetSession().get() != &session)
            RaiseValueError("the source is one of another build");
        return handle.Get();
    }
    const std::string path = PathBytesOf(named);
    AwaitIdle(session);
    IHdlSourceFile* const found =
        FindListed(session.GetBuild(), ISFileName::NewISFileName(path.c_str())).Source;
    if (!found) RaiseValueError(path + kNoSource);
    return found;
}

TSources SourcesOf(TSession& session, const py::args& named) {
    TSources sources;
    for (const py::handle one : named) sources.push_back(SourceOf(session, one));
    return sources;
}

TSourceSequence DependenciesOf(const TSourceHandle& handle) {
    const TIHdlSourceFileList* const list = handle.Get()->GetDependencyList();
    return {handle.GetSession(), list ? TSources(list->begin(), list->end()) : TSources()};
}

/// All or none.
TSourceHandle& DependOn(TSourceHandle& handle, const py::args& others) {
    IHdlSourceFile* const source = handle.Get();
    const TSources dependencies = SourcesOf(*handle.GetSession(), others);
    for (const IHdlSourceFile* const dependency : dependencies)
        if (dependency == source)
            RaiseValueError(std::string(source->GetFileName()->Canonical(false)) +
                            " cannot depend on itself");
    for (IHdlSourceFile* const dependency : dependencies) source->AddDependency(dependency);
    return handle;
}

/// All or none. A dependency may be one that no group lists.
TSourceHandle& DependNotOn(TSourceHandle& handle, const py::args& others) {
    IHdlSourceFile* const source = handle.Get();
    std::vector<const ISFileName*> files;
    for (const py::handle other : others) {
        const bool isSource = py::isinstance<TSourceHandle>(other);
        const ISFileName* const file =
            isSource ? other.cast<const TSourceHandle&>().Get()->GetFileName() : FileOf(other);
        if (!source->GetDependency(file))
            RaiseValueError(std::string(source->GetFileName()->Canonical(false)) +
                            " does not depend on " + file->Canonical(false));
        files.push_back(file);
    }
    for (const ISFileName* const file : files) source->RemoveDependency(file);
    return handle;
}

std::string NamedPath(const IHdlSourceFile* source) {
    return source->GetFileName()->Canonical(false);
}

void Move(TSourceHandle& handle, const py::handle& neighbour, TGroupPlace place) {
    TSession& session = *handle.GetSession();
    IHdlSourceFile* const source = handle.Get();
    const TBuildSource own = FindListed(session.GetBuild(), source->GetFileName());
    if (!own.Source)
        RaiseValueError(std::string(source->GetFileName()->Canonical(false)) + kNoSource);
    IHdlSourceFile* const other = neighbour.is_none() ? nullptr : SourceOf(session, neighbour);
    if (other == source) return;
    if (other && FindListed(session.GetBuild(), other->GetFileName()).Language != own.Language)
        RaiseValueError("the sources are in different groups");
    MoveSources(session.GetBuild(), own.Language, {source}, place, other);
}

void Rename(TSourceHandle& handle, const py::handle& path) {
    TSession& session = *handle.GetSession();
    const ISFileName* const file = FileOf(path);
    CheckSourceName(file, session.GetFile());
    IHdlSourceFile* const source = handle.Get();
    if (FindListed(session.GetBuild(), file).Source)
        RaiseValueError(std::string(file->Canonical(false)) + " is in the build already");
    handle.Follow(session.Rename(source, file));
}

py::str DescribeSource(const TSourceHandle& handle) {
    AwaitIdle(*handle.GetSession());
    if (handle.IsGone())
        return py::str("<hdlbuildfile.Source {!r}, gone>").format(PathTextOf(handle.GetFile()));
    return py::str("<hdlbuildfile.Source {!r} in {!r}>")
        .format(PathTextOf(handle.GetFile()),
                LibraryTextOf(*handle.Get(), handle.GetSession()->GetBuild()));
}

std::size_t PlaceOf(const TSourceSequence& sources, Py_ssize_t number) {
    const auto size = static_cast<Py_ssize_t>(sources.GetSize());
    if (number < 0) number += size;
    if (number < 0 || number >= size) throw py::index_error("source index out of range");
    return static_cast<std::size_t>(number);
}

py::object ItemOf(const TSourceSequence& sources, const py::object& key) {
    if (!PySlice_Check(key.ptr())) {
        const Py_ssize_t number = PyNumber_AsSsize_t(key.ptr(), PyExc_IndexError);
        if (number == -1 && PyErr_Occurred()) throw py::error_already_set();
        return py::cast(sources.At(PlaceOf(sources, number)));
    }
    std::size_t begin = 0;
    std::size_t end = 0;
    std::size_t step = 0;
    std::size_t count = 0;
    if (!key.cast<py::slice>().compute(sources.GetSize(), &begin, &end, &step, &count))
        throw py::error_already_set();
    py::list items;
    for (; count > 0; --count, begin += step) items.append(sources.At(begin));
    return items;
}

/// The places of a source, or of a path.
std::vector<std::size_t> PlacesOf(const TSourceSequence& sources, const py::object& source) {
    std::vector<std::size_t> places;
    const bool isSource = py::isinstance<TSourceHandle>(source);
    const ISFileName* const file = isSource ? nullptr : FileIfPath(source);
    if (!isSource && !file) return places;
    for (std::size_t number = 0; number < sources.GetSize(); ++number) {
        const TSourceHandle one = sources.At(number);
        if (isSource ? one == source.cast<const TSourceHandle&>()
                     : one.GetFile()->IsEquivalent(*file))
            places.push_back(number);
    }
    return places;
}

std::size_t PlaceOfFirst(const TSourceSequence& sources, const py::object& source,
                         const py::object& start, const py::object& stop) {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::size_t step = 0;
    std::size_t count = 0;
    if (!py::slice(start, stop, py::none()).compute(sources.GetSize(), &begin, &end, &step, &count))
        throw py::error_already_set();
    for (const std::size_t place : PlacesOf(sources, source))
        if (place >= begin && place < begin + count) return place;
    RaiseValueError("the source is not in the list");
}

py::object IsEqual(const TSourceSequence& sources, const py::object& other) {
    if (!py::isinstance<TSourceSequence>(other) && !PyList_Check(other.ptr()))
        return py::reinterpret_borrow<py::object>(Py_NotImplemented);
    if (py::len(other) != sources.GetSize()) return py::bool_(false);
    std::size_t number = 0;
    for (const py::handle one : other)
        if (!py::isinstance<TSourceHandle>(one) ||
            !(one.cast<const TSourceHandle&>() == sources.At(number++)))
            return py::bool_(false);
    return py::bool_(true);
}

/// Walks a sequence, which it keeps.
struct TSourceIterator {
    std::shared_ptr<TSourceSequence> Sequence;
    std::size_t Next;
};

}  // namespace

void BindSources(py::module_& module) {
    using namespace py::literals;
    py::class_<TSourceHandle> one(module, "Source", py::is_final(), R"(A source file of a build.

It is os.PathLike. When the source is removed from the build, or a reload finds it no more, whatever
is asked of it raises SourceGone.)");
    TakeConstructor(one);
    one.def("__fspath__", [](const TSourceHandle& s) { return PathTextOf(s.Get()->GetFileName()); })
        .def_property_readonly(
            "filename", [](const TSourceHandle& s) { return PathTextOf(s.Get()->GetFileName()); },
            "The whole path as a str: quicker than ``path``.")
        .def_property_readonly(
            "path", [](const TSourceHandle& s) { return PathObjectOf(s.Get()->GetFileName()); },
            "The whole path.")
        .def_property_readonly(
            "relative",
            [](const TSourceHandle& s) {
                const ISFileName* const file = s.Get()->GetFileName();
                return PathObjectOf(
                    file->GetRelativeFileNameString(s.GetSession()->GetFile(), false, false));
            },
            "The path as the build file has it: relative to the file's folder.")
        .def_property_readonly(
            "language",
            [](const TSourceHandle& s) {
                IHdlSourceFile* const source = s.Get();
                const TBuildSource listed =
                    FindListed(s.GetSession()->GetBuild(), source->GetFileName());
                return ToLanguage(listed.Source ? listed.Language : source->GetLanguage());
            },
            "The language of the group that lists it; of a dependency that no group lists, that of "
            "its extension.")
        .def_property(
            "library",
            [](const TSourceHandle& s) {
                return LibraryTextOf(*s.Get(), s.GetSession()->GetBuild());
            },
            [](const TSourceHandle& s, const py::object& library) {
                IHdlSourceFile* const source = s.Get();
                const std::string text = NameOf(library, "library of " + NamedPath(source));
                source->SetPrecompiledLibraryGroupName(text.c_str());
            },
            "The library that it is compiled into. To set it may raise ValueError, see "
            "Build.add().")
        .def_property(
            "own_library",
            [](const TSourceHandle& s) -> py::object {
                const std::string text = s.Get()->GetPrecompiledLibraryGroupName();
                if (text.empty()) return py::none();
                return TextOf(text);
            },
            [](const TSourceHandle& s, const py::object& library) {
                IHdlSourceFile* const source = s.Get();
                const std::string text =
                    library.is_none() ? "" : NameOf(library, "library of " + NamedPath(source));
                source->SetPrecompiledLibraryGroupName(text.c_str());
            },
            "The library that the build file names for it; None: it is in that of the build.")
        .def_property(
            "is_library_file", [](const TSourceHandle& s) { return s.Get()->IsLibrary(); },
            [](const TSourceHandle& s, bool isOn) { s.Get()->SetLibraryFlag(isOn); },
            "Whether its modules count only when something instantiates them.")
        .def_property_readonly(
            "exists", [](const TSourceHandle& s) { return s.Get()->GetFileName()->Exists(); },
            "Whether the file is there now.")
        .def_property_readonly("dependencies", &DependenciesOf,
                               "The sources that have to be compiled before it.")
        .def_property_readonly(
            "build", [](const TSourceHandle& s) { return s.GetSession(); }, "Its build.")
        .def("depends_on", &DependOn, py::return_value_policy::reference,
             R"(Adds dependencies, given as sources or paths of sources of the build.

Returns the source. Raises ValueError, with nothing added, for what is no source of the build and for
the source itself.)")
        .def("depends_not_on", &DependNotOn, py::return_value_policy::reference,
             R"(Takes dependencies away. Returns the source.

Raises ValueError, with nothing taken away, for what it does not depend on.)")
        .def(
            "clear_dependencies",
            [](TSourceHandle& s) -> TSourceHandle& {
                s.Get()->FlushDependencies();
                return s;
            },
            py::return_value_policy::reference, "Takes all dependencies away. Returns the source.")
        .def(
            "move_first", [](TSourceHandle& s) { Move(s, py::none(), PLACE_FIRST); },
            "Puts it first in its group.")
        .def(
            "move_last", [](TSourceHandle& s) { Move(s, py::none(), PLACE_LAST); },
            "Puts it last in its group.")
        .def(
            "move_before",
            [](TSourceHandle& s, const py::object& other) { Move(s, other, PLACE_BEFORE); },
            "other"_a, "Puts it in front of another source of its group.")
        .def(
            "move_behind",
            [](TSourceHandle& s, const py::object& other) { Move(s, other, PLACE_BEHIND); },
            "other"_a, "Puts it behind another source of its group.")
        .def("rename", &Rename, "path"_a,
             R"(Gives it another path, in its group and in the dependencies of others.

No file is moved. Raises ValueError for a path that the build lists, and for one that no build file
can hold.)")
        .def("__eq__",
             [](const TSourceHandle& s, const py::object& other) -> py::object {
                 if (!py::isinstance<TSourceHandle>(other))
                     return py::reinterpret_borrow<py::object>(Py_NotImplemented);
                 return py::bool_(s == other.cast<const TSourceHandle&>());
             })
        .def("__hash__",
             [](const TSourceHandle& s) {
                 // Of the first name: a source may have another one while it is in a set.
                 return std::hash<const void*>()(s.GetSession().get()) * 31 +
                        std::hash<const void*>()(s.GetOrigin());
             })
        .def("__repr__", &DescribeSource);

    py::class_<TSourceIterator> iterator(module, "SourceIterator", py::is_final(),
                                         "Walks a SourceList.");
    TakeConstructor(iterator);
    iterator.def("__iter__", [](py::object self) { return self; })
        .def("__next__", [](TSourceIterator& place) {
            if (place.Next >= place.Sequence->GetSize()) throw py::stop_iteration();
            return place.Sequence->At(place.Next++);
        });

    py::class_<TSourceSequence, std::shared_ptr<TSourceSequence>> list(
        module, "SourceList", py::is_final(),
        R"(Sources as they were listed when they were asked for: a sequence.

It is equal to a list or another SourceList with equal sources. Where a source is looked for, its path
does as well.)");
    TakeConstructor(list);
    list.def("__len__", &TSourceSequence::GetSize)
        .def("__iter__",
             [](const std::shared_ptr<TSourceSequence>& s) {
                 return TSourceIterator{s, 0};
             })
        .def("__getitem__", &ItemOf)
        .def("index", &PlaceOfFirst, "source"_a, "start"_a = 0, "stop"_a = py::none(),
             "The first place of a source, in the part from start to stop. Raises ValueError.")
        .def("__contains__", [](const TSourceSequence& s,
                                const py::object& source) { return !PlacesOf(s, source).empty(); })
        .def("__eq__", &IsEqual)
        .def(
            "count",
            [](const TSourceSequence& s, const py::object& source) {
                return PlacesOf(s, source).size();
            },
            "source"_a, "How often a source is in the list.")
        .def("__repr__", [](const TSourceSequence& s) {
            return py::str("<hdlbuildfile.SourceList of {}>").format(s.GetSize());
        });
}
