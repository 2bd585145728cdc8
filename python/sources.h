#pragma once
#include "python/session.h"
#include <memory>
#include <pybind11/pybind11.h>
#include <vector>

class IHdlSourceFile;
namespace py = pybind11;

/// A source that Python holds, and the name by which it is found again once the build is read anew.
struct THeldSource {
    IHdlSourceFile* Source;
    const ISFileName* File;
    std::uint32_t ReadCount;
};

/// A source of a build, as Python holds it. Whoever asks it for something asks the build first: one
/// that was removed, or is gone since the build was read again, is an exception and no dangling
/// pointer.
class TSourceHandle {
public:
    TSourceHandle(std::shared_ptr<TSession> session, const THeldSource& held)
        : Session(std::move(session)), Held(held), Origin(Session->GetOrigin(held.File)) {}
    TSourceHandle(std::shared_ptr<TSession> session, IHdlSourceFile* source);

    const std::shared_ptr<TSession>& GetSession() const { return Session; }
    const ISFileName* GetFile() const { return Held.File; }
    /// The name that the source had when it came into the build. It never changes.
    const ISFileName* GetOrigin() const { return Origin; }
    /// Waits while the build works. Raises SourceGone.
    IHdlSourceFile* Get() const;
    bool IsGone() const { return !Find(); }
    bool operator==(const TSourceHandle& other) const {
        return Session == other.Session && Held.File == other.Held.File && Origin == other.Origin;
    }
    /// Has the source that another name was given.
    void Follow(IHdlSourceFile* source);

private:
    IHdlSourceFile* Find() const;

    std::shared_ptr<TSession> Session;
    mutable THeldSource Held;
    const ISFileName* Origin;
};

/// Sources as they were listed when it was made.
class TSourceSequence {
public:
    TSourceSequence(std::shared_ptr<TSession> session, const std::vector<IHdlSourceFile*>& sources);

    std::size_t GetSize() const { return Sources.size(); }
    TSourceHandle At(std::size_t number) const { return {Session, Sources[number]}; }

private:
    std::shared_ptr<TSession> Session;
    std::vector<THeldSource> Sources;
};

/// Waits while another thread has the build work; to be called with the interpreter's lock held.
void AwaitIdle(TSession& session);

/// Does what takes long without the interpreter's lock. `work` must not touch Python.
template <class TWork>
auto WorkOn(TSession& session, TWork work) {
    AwaitIdle(session);
    struct TBusy {
        explicit TBusy(TSession& s) : Session(s) { Session.SetBusy(true); }
        ~TBusy() { Session.SetBusy(false); }
        TSession& Session;
    } const busy(session);
    const py::gil_scoped_release release;
    return work();
}
