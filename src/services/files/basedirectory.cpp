#include "services/files/basedirectory.h"
#include "services/files/pathconventions.h"
#include "services/files/pathpieces.h"
#include "services/files/pathtext.h"
#include <algorithm>

namespace {

bool MayHaveDrive(std::string_view path) {
    return path.size() > 1 && path[1] == ':';
}

bool IsStep(std::string_view part) {
    return part.empty() || part == "." || part == "..";
}

}  // namespace

TBaseDirectory::TBaseDirectory(std::string_view canonical)
    : Text(canonical),
      Buffer(canonical),
      Delimiter(SplitPath(canonical).Drive.empty() ? kPathDelimiter : '\\'),
      IsPlain(!canonical.empty() && canonical.back() == Delimiter &&
              !canonical.starts_with("\\\\?")) {}

std::string_view TBaseDirectory::Resolve(std::string_view relative) {
    if (IsPlain && AppendPlain(relative)) return Buffer;
    Buffer = CanonicalPath(JoinPath(Text, relative));
    return Buffer;
}

// False for a name that has to be normalised.
bool TBaseDirectory::AppendPlain(std::string_view relative) {
    if (relative.empty() || MayHaveDrive(relative)) return false;
    const bool hasBackslash = relative.find('\\') != std::string_view::npos;
    std::size_t part = 0;
    for (std::size_t end = 0; end != std::string_view::npos; part = end + 1) {
        end = hasBackslash ? relative.find_first_of("/\\", part) : relative.find('/', part);
        const std::string_view text = relative.substr(part, end - part);
        // A delimiter at the end is that of a directory.
        if (IsStep(text) && !(text.empty() && end == std::string_view::npos)) return false;
    }
    const bool hasOtherDelimiter = hasBackslash || Delimiter != '/';
    Buffer.replace(0, Buffer.size(), Text);
    Buffer += relative;
    if (hasOtherDelimiter)
        std::replace_if(Buffer.begin() + static_cast<std::ptrdiff_t>(Text.size()), Buffer.end(),
                        IsPathDelimiter, Delimiter);
    return true;
}

std::string_view TBaseDirectory::MakeRelative(std::string_view canonical) {
    if (IsPlain && canonical.size() > Text.size() && canonical.starts_with(Text)) {
        const std::string_view below = canonical.substr(Text.size());
        if (!MayHaveDrive(below) && !IsPathDelimiter(below[0])) {
            if (Delimiter == '/') return below;
            Buffer = below;
            std::replace(Buffer.begin(), Buffer.end(), '\\', '/');
            return Buffer;
        }
    }
    Buffer = RelativeToDirectory(Text, canonical);
    return Buffer;
}
