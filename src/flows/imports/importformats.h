#pragma once
#include "flows/imports/imported.h"
#include <functional>
#include <string>
#include <string_view>
#include <vector>

class TImportReader;

/// A file that is read.
struct TImportFile {
    std::string Path;    ///< canonical
    std::string Name;    ///< as users see it
    std::string Folder;  ///< relative paths in it are taken against; '/' at its end
    std::string Text;    ///< without a byte order mark
};

/// What is imported.
struct TImportRequest {
    std::vector<std::string> Files;
    /// Relative paths in the files are taken against; "" for the folder of each file.
    std::string Folder;
    /// A canonical path as users see it.
    std::function<std::string(const std::string& path)> TextOf;
    /// Of the build that is made, with '/' at its end; "": it is not known.
    std::string BuildFolder = {};
};

/// Whether the order of the sources in a file is one of compilation.
enum TImportOrder : int { ORDER_COUNTS, ORDER_DOES_NOT_COUNT };

/// One row of the table of formats. The texts are static and never null.
struct TImportFormat {
    const char* Name;
    const char* Description;
    const char* Holds;  ///< what it carries besides the paths of its sources
    TImportOrder Order;
    void (*Read)(TImportReader& reader, const TImportFile& file);
};

/// In alphabetic order. Static.
const std::vector<TImportFormat>& GetImportFormats();
/// Null for an unknown name.
const TImportFormat* FindImportFormat(std::string_view name);

/// Reads the files, one behind the other. What is left in the record fits into a build in the
/// folder of the request; of what does not its diagnostics tell.
TImported Import(const TImportFormat& format, const TImportRequest& request);
