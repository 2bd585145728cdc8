#include "projectfiles/hdlprojectfile.h"
#include "projectfiles/hdlprojectfilelist.h"
#include "projectfiles/projectfileindex.h"
#include <iterator>

// The forms of std::list's changes in THdlProjectFileList that take ranges and other lists. All end
// in Link and Unlink, or move entries whose holding is counted already.

THdlProjectFileList::iterator THdlProjectFileList::insert(const_iterator position, size_type count,
                                                          THdlProjectFile* file) {
    return LinkAll(position, std::list<THdlProjectFile*>(count, file));
}

THdlProjectFileList::iterator THdlProjectFileList::insert(
    const_iterator position, std::initializer_list<THdlProjectFile*> files) {
    return LinkAll(position, files);
}

THdlProjectFileList::iterator THdlProjectFileList::erase(const_iterator first,
                                                         const_iterator last) {
    while (first != last) first = Unlink(first);
    return AsMutable(last);
}

void THdlProjectFileList::assign(size_type count, THdlProjectFile* file) {
    AssignAll(std::list<THdlProjectFile*>(count, file));
}

void THdlProjectFileList::assign(std::initializer_list<THdlProjectFile*> files) {
    AssignAll(files);
}

THdlProjectFileList& THdlProjectFileList::operator=(std::initializer_list<THdlProjectFile*> files) {
    AssignAll(files);
    return *this;
}

void THdlProjectFileList::resize(size_type count, THdlProjectFile* file) {
    while (size() > count) Unlink(std::prev(end()));
    if (file) LinkAll(end(), std::list<THdlProjectFile*>(count - size(), file));
}

THdlProjectFileList::size_type THdlProjectFileList::remove(THdlProjectFile* file) {
    return remove_if([file](const THdlProjectFile* current) { return current == file; });
}

THdlProjectFileList::size_type THdlProjectFileList::unique() {
    return unique(std::equal_to<>());
}

void THdlProjectFileList::splice(const_iterator position, THdlProjectFileList& other) {
    splice(position, other, other.begin(), other.end());
}

void THdlProjectFileList::splice(const_iterator position, THdlProjectFileList& other,
                                 const_iterator place) {
    splice(position, other, place, std::next(place));
}

void THdlProjectFileList::splice(const_iterator position, THdlProjectFileList& other,
                                 const_iterator first, const_iterator last) {
    DropIndexes(other);
    std::list<THdlProjectFile*>::splice(position, other, first, last);
}

void THdlProjectFileList::reverse() {
    DropIndexes(*this);
    std::list<THdlProjectFile*>::reverse();
}

void THdlProjectFileList::swap(THdlProjectFileList& other) {
    DropIndexes(other);
    std::list<THdlProjectFile*>::swap(other);
}

THdlProjectFileList::iterator THdlProjectFileList::LinkAll(
    const_iterator position, const std::list<THdlProjectFile*>& files) {
    std::list<THdlProjectFile*> made(files);
    return LinkEntries(position, &made);
}

// Takes no memory.
THdlProjectFileList::iterator THdlProjectFileList::LinkEntries(const_iterator position,
                                                               std::list<THdlProjectFile*>* made) {
    made->remove(nullptr);
    auto first = AsMutable(position);
    while (!made->empty()) {
        const auto place = std::prev(made->end());
        std::list<THdlProjectFile*>::splice(first, *made, place);
        first = place;
        (*first)->Hold();
        Index->Added(*this, first);
    }
    return first;
}

void THdlProjectFileList::AssignAll(const std::list<THdlProjectFile*>& files) {
    std::list<THdlProjectFile*> made(files);
    clear();
    LinkEntries(end(), &made);
}
