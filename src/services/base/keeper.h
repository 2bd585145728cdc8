#pragma once
#include <list>
#include <memory>

// Some rules drop an object without destroying it: pointers that were handed out stay valid. Such
// an object is kept in one place, either until the process ends or by the TKeeper that deletes it.
// Its destructor calls ForgetKept, so that whoever knows the object may still delete it.
//
// All threads may keep and forget objects at the same time. An object, the keeper that has it and
// the one that takes it belong to one thread at a time.

/// Keeps an object reachable, and never deletes it. An object that a TKeeper has stays there. Null
/// is ignored, here and below.
void KeepUntilExit(const void* object);
/// The object is about to be deleted.
void ForgetKept(const void* object);
/// Takes an object away from the TKeeper that has it and keeps it until the process ends: it is a
/// caller's from now on. False, with nothing done, when no TKeeper has it.
bool HandOver(const void* object);

/// Objects that are deleted together.
class TKeeper {
public:
    using TDelete = void (*)(const void* object);

    TKeeper() = default;
    TKeeper(const TKeeper&) = delete;
    TKeeper& operator=(const TKeeper&) = delete;
    ~TKeeper() { DeleteAll(); }

    /// Takes the object, wherever it was kept, to delete it in the end. One that a TKeeper has
    /// takes no memory.
    template <class T>
    void Keep(T* object) {
        Keep(object, [](const void* kept) { delete static_cast<const T*>(kept); });
    }
    void Keep(const void* object, TDelete deleteObject);
    /// The same for an object that nobody has yet: it is deleted when memory runs out. Returns it.
    template <class T>
    T* Keep(std::unique_ptr<T> object) {
        Keep(object.get());
        return object.release();
    }
    bool Has(const void* object) const;
    bool IsEmpty() const { return Objects.empty(); }
    /// Deletes an object that this keeper has.
    void Delete(const void* object);
    /// Deletes all, in the order in which they were kept.
    void DeleteAll();
    /// Takes what `other` has, without memory.
    void TakeAll(TKeeper* other);
    /// Hands all over.
    void HandOverAll();

private:
    friend class TKeptObjects;
    struct TKept {
        const void* Object;
        TDelete Delete;
    };
    std::list<TKept> Objects;
};
