#pragma once
#include "translation/v2vtranslationoption.h"
#include <cstddef>
#include <vector>

class ISFileName;

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"  // as its base

/// A switch with files as arguments, for example "-p" with packages.
///
/// Files are written relative to the component of the owning list, but the names that are read
/// count from the working directory; without a component they are written with their canonical
/// names.
class HDLBUILDFILE_API TV2VTranslationFileOption : public TV2VTranslationOption {
public:
    /// As TV2VTranslationOption, without files.
    TV2VTranslationFileOption(const char* dashOption, const char* optionString,
                              const char* description, bool enabled);

    bool HasStringOption() override;
    void WriteToFile(TXMLList* document) override;
    bool ReadFromFile(DListIterator<TElement*>& elemI) override;
    /// The canonical names, quoted where they need it, joined by single blanks.
    const char* GetListDisplayString() override;
    /// The same with the names relative to the component's directory.
    const char* GetListString() override;

    /// AddFileNoDup of the name.
    virtual void AddAnOption(const char* text);
    /// Forgets the files; handles are never released.
    virtual void ClearList();

    /// Appends the file of that name; null and empty names are not added.
    void AddFileNoDup(const char* name);
    /// Appends the handle, which must outlive the option, unless it is null or blank. Despite the
    /// name a file that is already there is appended again, as FindFile never finds one.
    void AddFileNoDup(const ISFileName* file);
    void AddFileNoDup(std::nullptr_t) {}
    /// Always false: entries are told apart by their places, which no argument shares.
    bool FindFile(const ISFileName* file) const;

private:
    std::vector<const ISFileName*> Files;
};

#pragma GCC diagnostic pop
