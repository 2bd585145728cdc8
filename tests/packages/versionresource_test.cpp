#include <gtest/gtest.h>
#include <string>
#include <vector>
#include <windows.h>

namespace {

/// The version resource of one module, as Windows hands it out.
class TVersionResource {
public:
    explicit TVersionResource(const std::string& module) {
        DWORD ignored = 0;
        Block.resize(GetFileVersionInfoSizeA(module.c_str(), &ignored));
        if (!Block.empty() &&
            !GetFileVersionInfoA(module.c_str(), 0, static_cast<DWORD>(Block.size()), Block.data()))
            Block.clear();
    }

    /// A text of the resource, in US English and UTF-16; "(none)" when it is not there.
    std::string TextOf(const std::string& name) const {
        void* text = nullptr;
        UINT length = 0;
        const std::string path = "\\StringFileInfo\\040904B0\\" + name;
        if (Block.empty() || !VerQueryValueA(Block.data(), path.c_str(), &text, &length))
            return "(none)";
        return static_cast<const char*>(text);
    }

    /// The numbers that installers compare: file, product, and the type of the module.
    std::string Numbers() const {
        void* value = nullptr;
        UINT length = 0;
        if (Block.empty() || !VerQueryValueA(Block.data(), "\\", &value, &length)) return "(none)";
        const auto* fixed = static_cast<const VS_FIXEDFILEINFO*>(value);
        return Version(fixed->dwFileVersionMS, fixed->dwFileVersionLS) + " " +
               Version(fixed->dwProductVersionMS, fixed->dwProductVersionLS) + " type " +
               std::to_string(fixed->dwFileType);
    }

private:
    static std::string Version(DWORD high, DWORD low) {
        return std::to_string(HIWORD(high)) + "." + std::to_string(LOWORD(high)) + "." +
               std::to_string(HIWORD(low)) + "." + std::to_string(LOWORD(low));
    }

    std::vector<char> Block;
};

struct TModuleRow {
    const char* Label;
    const char* Module;
    const char* Expected;
};

const TModuleRow kModules[] = {
    {"library", HDLBUILDFILE_DLL,
     "CompanyName: (none)\n"
     "FileDescription: The build model of an HDL simulation project\n"
     "FileVersion: " HDLBUILDFILE_VERSION "\n"
     "InternalName: hdlbuildfile\n"
     "OriginalFilename: hdlbuildfile.dll\n"
     "ProductName: hdlbuildfile\n"
     "ProductVersion: " HDLBUILDFILE_VERSION "\n"
     "numbers: " HDLBUILDFILE_VERSION ".0 " HDLBUILDFILE_VERSION ".0 type 2\n"},
    {"tool", HDLBUILDFILE_TOOL,
     "CompanyName: (none)\n"
     "FileDescription: Shows, checks, orders and changes the builds of HDL simulation projects\n"
     "FileVersion: " HDLBUILDFILE_VERSION "\n"
     "InternalName: hdlbuild\n"
     "OriginalFilename: hdlbuild.exe\n"
     "ProductName: hdlbuildfile\n"
     "ProductVersion: " HDLBUILDFILE_VERSION "\n"
     "numbers: " HDLBUILDFILE_VERSION ".0 " HDLBUILDFILE_VERSION ".0 type 1\n"},
};

}  // namespace

TEST(VersionResource, NamesModuleAndVersion) {
    for (const TModuleRow& row : kModules) {
        SCOPED_TRACE(row.Label);
        const TVersionResource resource(row.Module);
        std::string found;
        for (const char* name : {"CompanyName", "FileDescription", "FileVersion", "InternalName",
                                 "OriginalFilename", "ProductName", "ProductVersion"})
            found += std::string(name) + ": " + resource.TextOf(name) + "\n";
        EXPECT_EQ(found + "numbers: " + resource.Numbers() + "\n", row.Expected);
    }
}
