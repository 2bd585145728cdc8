#include "services/names/ifilename.h"
#include "services/files/pathpieces.h"
#include "services/files/pathtext.h"
#include "services/names/filenamequeries.h"
#include "services/names/utilfilename.h"

namespace {

class TOwnFileName final : public TFileNameQueries<IFileName> {
public:
    explicit TOwnFileName(std::string_view path) { SetPath(path); }
    TOwnFileName(const TOwnFileName&) = delete;
    TOwnFileName& operator=(const TOwnFileName&) = delete;

    void Release() const override {}
    IFileName* CloneFileName() const override { return NewOwnFileName(Storage); }
    void FormCanonicalName() override {}
    void SetPart(unsigned int part, const std::string& text) override {
        SetPath(PathWithPart(Storage, part, text));
    }
    void StripParts(unsigned int parts) override { SetPath(PathWithoutParts(Storage, parts)); }
    void Pop() override { SetPath(ParentOf(Storage)); }
    void PushFileName(const char* name) override {
        TUtilFileName path(Storage.c_str());
        path.PushFileName(name);
        SetPath(path.GetParts(PART_ALL));
    }
    void PushDirectory(const char* name) override {
        TUtilFileName path(Storage.c_str());
        path.PushDirectory(name);
        SetPath(path.GetParts(PART_ALL));
    }

private:
    void SetPath(std::string_view path) {
        Storage = CanonicalPath(path);
        SetText(Storage);
    }

    std::string Storage;
};

}  // namespace

IFileName* NewOwnFileName(std::string_view path) {
    return new TOwnFileName(path);
}

void IFileName::CreateRelativeFileName(const char* base, const char* path, std::string* out, bool,
                                       bool) {
    if (!out) return;
    const std::string given = path ? path : "";
    *out = IsRelativePath(given.c_str())
               ? given
               : RelativeToDirectory(CanonicalPath(base ? base : ""), CanonicalPath(given));
}

void IFileName::CreateNiceFileNameForUI(const char* base, const char* path, std::string* out) {
    if (!out) return;
    const std::string given = path ? path : "";
    std::string relative;
    CreateRelativeFileName(base, given.c_str(), &relative, false, false);
    *out = LeavesDirectory(relative) && !IsRelativePath(given.c_str()) ? CanonicalPath(given)
                                                                       : std::move(relative);
}
