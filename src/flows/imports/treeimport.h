#pragma once
#include "flows/imports/importreader.h"
#include "flows/trees/treereaders.h"
#include <initializer_list>
#include <set>

/// What the readers of files with trees share: values with their places, and what is told of them.
class TTreeImport {
public:
    using TReadTree = bool (*)(std::string_view text, TTree* tree, TTreeFault* fault);

    /// Both must outlive the object.
    TTreeImport(TImportReader& reader, const TImportFile& file) : Reader(reader), File(file) {}

    /// Reads the file; false when it is no tree or no `kind`, which is told.
    bool Read(TReadTree read, TTreeKind kind);
    const TTree& GetRoot() const { return Root; }
    TImportReader& GetReader() const { return Reader; }

    /// That relative paths are taken against.
    const std::string& GetFolder() const { return File.Folder; }
    TImportPlace PlaceOf(const TTree& value) const { return PlaceOf(value.Place); }
    TImportPlace KeyPlaceOf(const TTree& value) const { return PlaceOf(value.KeyPlace); }
    /// A path of the file: whole, with '/'.
    std::string PathOf(const std::string& path) const {
        return TImportReader::WholeOf(path, File.Folder);
    }

    /// The members of a map under `key`, or the entries of a list; none when it is missing, null or
    /// of another kind, which is told.
    const std::vector<TTree>& ListIn(const TTree& map, std::string_view key) const;
    const std::vector<TTree>& MapIn(const TTree& map, std::string_view key) const;
    /// A single value under `key`; null when it is missing, null, empty or of another kind, which
    /// is told.
    const TTree* ValueIn(const TTree& map, std::string_view key) const;
    std::string TextIn(const TTree& map, std::string_view key) const;
    /// Whether the entry is of that kind; told when not.
    bool IsMap(const TTree& value) const;
    bool IsSingle(const TTree& value) const;

    /// Tells each member that is none of these, unless it asks nothing, as an empty list does. Of
    /// `describing`, which nothing is built of, a note is told once.
    void LoseOthers(const TTree& map, std::initializer_list<std::string_view> known,
                    std::initializer_list<std::string_view> describing = {});
    /// Tells once that a build has no words for `what`.
    void LoseOnce(const std::string& what, const TTree& value);
    void Lose(const std::string& what, const TTree& value) { Reader.Lose(what, PlaceOf(value)); }
    void Fail(const std::string& what, const TTree& value) const {
        Reader.Fail(what, PlaceOf(value));
    }

    /// Adds a directory of the file, unless it is there.
    void AddIncludeDirectory(THdlLanguage language, const std::string& path, const TTree& value);
    /// Adds a word for the compilers of a language, and tells that it is kept as it is.
    void AddOption(THdlLanguage language, const std::string& word, const TTree& value);

private:
    TImportPlace PlaceOf(const TTreePlace& place) const {
        return {File.Name, place.Line, place.Column};
    }
    const std::vector<TTree>& ValuesIn(const TTree& map, std::string_view key,
                                       TTreeKind kind) const;

    TImportReader& Reader;
    const TImportFile& File;
    TTree Root;
    std::set<std::string> Lost;
    std::set<std::string> Described;
    std::set<std::string> Folders;
};
