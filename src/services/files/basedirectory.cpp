#include "services/files/basedirectory.h"
#include "services/files/pathconventions.h"
#include "services/files/pathpieces.h"
#include "services/files/pathtext.h"
#include <algorithm>

namespace {

bool IsStep(std::string_view part) {
    return part.empty() || part == "." || part == "..";
}

}  // namespace

TBaseDirectory::TBaseDirectory(std::string_view directory)
    : Text(CanonicalPath(directory)),
      Delimiter(SplitPath(Text).Drive.empty() ? kPathDelimiter : '\\'),
      IsPlain(Text.ends_with(Delimiter) && !Text.starts_with("\\\\?")) {}

std::string_view TBaseDirectory::Resolve(std::string_view relative) {
    if (IsPlain && AppendPlain(relative)) return Buffer;
    Buffer = CanonicalPath(JoinPath(Text, relative));
    return Buffer;
}

// False for a name that has to be normalised.
bool TBaseDirectory::AppendPlain(std::string_view relative) {
    const bool hasBackslash = relative.find('\\') != std::string_view::npos;
    std::size_t part = 0;
    for (std::size_t end = 0; end != std::string_view::npos; part = end + 1) {
        end = hasBackslash ? relative.find_first_of("/\\", part) : relative.find('/', part);
        if (IsStep(relative.substr(part, end - part))) return false;
    }
    Buffer.assign(Text).append(relative);
    if (hasBackslash || Delimiter != '/')
        std::replace_if(Buffer.begin(), Buffer.end(), IsPathDelimiter, Delimiter);
    return true;
}

std::string_view TBaseDirectory::MakeRelative(std::string_view canonical) {
    if (IsPlain && canonical.size() > Text.size() && canonical.starts_with(Text)) {
        const std::string_view below = canonical.substr(Text.size());
        const bool mayHaveDrive = below.size() > 1 && below[1] == ':';
        if (!mayHaveDrive) {
            if (Delimiter == '/') return below;
            Buffer = below;
            std::replace(Buffer.begin(), Buffer.end(), '\\', '/');
            return Buffer;
        }
    }
    Buffer = RelativeToDirectory(Text, canonical);
    return Buffer;
}
