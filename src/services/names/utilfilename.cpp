#include "services/names/utilfilename.h"
#include "services/files/pathconventions.h"
#include "services/files/pathpieces.h"
#include "services/files/pathtext.h"

namespace {

// Keys of Results that are no sums of TFileNameParts bits.
constexpr unsigned kCanonical = 1U << 16;
constexpr unsigned kWithoutFinalSlash = 1U << 17;

}  // namespace

TUtilFileName::TUtilFileName(const char* text, int) : Text(text ? text : "") {}

void TUtilFileName::PushFileName(const char* name) {
    if (name && *name) SetText(JoinPath(Text, name));
}

void TUtilFileName::PushDirectory(const char* name) {
    if (!name || !*name) return;
    std::string path = JoinPath(Text, name);
    if (!IsPathDelimiter(path.back()))
        path += SplitPath(path).Drive.empty() ? kPathDelimiter : '\\';
    SetText(std::move(path));
}

void TUtilFileName::Pop() {
    const std::string last =
        SplitPath(WithoutFinalDelimiter(Text)).Join(PART_NAME | PART_EXTENSION);
    // "a/.." is the directory of a, whose parent is not a.
    const bool isStep = last == "." || last == "..";
    SetText(ParentOf(isStep ? CanonicalPath(Text) : Text));
}

void TUtilFileName::StripParts(unsigned int parts) {
    SetText(PathWithoutParts(Text, parts));
}

bool TUtilFileName::HasParts(unsigned int parts) const {
    return !SplitPath(Text).Join(parts).empty();
}

const char* TUtilFileName::GetParts(unsigned int parts) const {
    return Kept(parts, SplitPath(Text).Join(parts));
}

const char* TUtilFileName::Canonical(bool) const {
    return Kept(kCanonical, CanonicalPath(Text));
}

const char* TUtilFileName::CanonicalWithoutFinalSlash() const {
    return Kept(kWithoutFinalSlash, WithoutFinalDelimiter(CanonicalPath(Text)));
}

const char* TUtilFileName::Kept(unsigned int form, std::string_view result) const {
    std::string& kept = Results[form];
    // The caller may still hold the text of the last call, which stays where it is.
    if (kept != result) kept = result;
    return kept.c_str();
}

void TUtilFileName::SetText(std::string text) {
    Text = std::move(text);
    Results.clear();
}
