#pragma once
#include <string>
#include <string_view>

/// A path cut into its parts, by TFileNameParts bits; one after the other they are the whole text,
/// which must outlive them.
struct TPathPieces {
    std::string_view Drive;      ///< "C:" or "\\host"
    std::string_view Root;       ///< one delimiter, or more where the path is not canonical
    std::string_view Folders;    ///< with the delimiter that ends them
    std::string_view Name;       ///< the last part without its extension
    std::string_view Extension;  ///< from the last dot of the last part on

    /// The selected parts; everything for 0.
    std::string Join(unsigned int parts) const;
};

TPathPieces SplitPath(std::string_view path);

/// `path` with `text` in place of the selected parts; a directory part gets the delimiter that ends
/// it.
std::string PathWithPart(std::string_view path, unsigned int part, std::string_view text);
std::string PathWithoutParts(std::string_view path, unsigned int parts);

/// `name` below the directory `directory`, which may lack its final delimiter; an absolute name, or
/// one below an empty directory, is the result itself.
std::string JoinPath(std::string_view directory, std::string_view name);
/// The directory that holds the last part; a root stays as it is.
std::string ParentOf(std::string_view path);
/// Without the delimiter that ends a directory; a root keeps it.
std::string_view WithoutFinalDelimiter(std::string_view canonical);

/// The canonical `path` relative to the canonical directory `base`, as IFileName explains it.
std::string RelativeToDirectory(std::string_view base, std::string_view path);
/// Whether RelativeToDirectory leads out of the directory.
bool LeavesDirectory(std::string_view relative);

/// At most `length` bytes, with "..." in the middle of what is longer; cut between characters.
std::string SqueezePath(std::string_view path, int length);

/// The same text, one copy per distinct text, for the life of the process. Pieces of path texts
/// repeat (directories, extensions), and callers may hold those of many files at once.
const std::string& KeptPath(std::string_view text);
char* KeptPathText(std::string_view text);
