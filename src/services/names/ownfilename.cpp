#include "services/names/ownfilename.h"
#include "services/names/filenamequeries.h"
#include "services/names/utilfilename.h"
#include <string>

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
