#include "services/files/nativefilesystem.h"
#include "tests/support/lockfilename.h"
#include "tests/support/processes.h"
#include "tests/torture/savecases.h"
#include "tests/torture/tally.h"
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <sys/stat.h>
#include <sys/xattr.h>

// Every save meets what else may have the name of its file, or be beside it.

namespace {

namespace fs = std::filesystem;

/// The name and the place of what a save is to write.
struct TTarget {
    const TSavePlace& Place;
    std::string Name;
    std::string Path;
    std::string Reason;  // why it cannot be written; "" when it can

    std::string Beside(const std::string& name) const { return Place.Path(name); }
};

/// How a save ends: "" when it is done, else the reason that it tells.
using TReason = std::string (*)(const TTarget& target);

std::string Done(const TTarget&) {
    return {};
}

/// What can be done with what stands in the place of a file.
enum TAccess { CAN_BE_READ, CANNOT_BE_READ, IS_NOT_THERE };

/// What stands in the place of a file, or of what is put beside it.
struct TKind {
    const char* Label;
    bool (*Make)(const TTarget& target);
    TReason OfEdit;                 // of a file that was there
    TReason OfOutput;               // written whatever was there
    TReason OfNew = nullptr;        // of a file that must not be there; null when it would be
    const char* Written = nullptr;  // the name that has the new bytes; null for the target's
    bool NeedsRefusal = false;      // of what the administrator alone may do
    TAccess Access = CAN_BE_READ;
};

bool Links(const std::string& to, const TTarget& target) {
    fs::remove(target.Path);
    return symlink(to.c_str(), target.Path.c_str()) == 0;
}
bool LinksToReal(const TTarget& target) {
    fs::rename(target.Path, target.Beside("real"));
    return Links("real", target);
}
std::string LockOf(const TTarget& target) {
    return target.Beside(LockFileName(target.Name));
}
std::string Denied(const TTarget&) {
    return "Permission denied";
}
std::string IsRing(const TTarget&) {
    return "Too many levels of symbolic links";
}
std::string IsFolder(const TTarget&) {
    return "Is a directory";
}
std::string IsDevice(const TTarget&) {
    return "not a regular file";
}
std::string IsMissing(const TTarget&) {
    return "the file does not exist";
}

std::string HasNoFolder(const TTarget&) {
    return "No such file or directory";
}
std::string HasFolderForLock(const TTarget& target) {
    return "\"" + LockOf(target) + "\" is in the way: Is a directory";
}
std::string HasLinkForLock(const TTarget& target) {
    return "\"" + LockOf(target) + "\" is in the way: Too many levels of symbolic links";
}

/// What a save of this machine left whose process is gone.
std::string LeftOver(const TTarget& target) {
    const pid_t gone = StartProcess([] { return true; });
    Succeeds(gone);
    const std::string own = GetNativeFileSystem().GetProcessMark();
    const std::string lock = LockOf(target);
    return lock.substr(0, lock.rfind('.')) + "-" + own.substr(0, own.find('.') + 1) +
           std::to_string(gone) + "-1-1.tmp";
}

const TKind kKinds[] = {
    {"a link to the file", LinksToReal, Done, Done, nullptr, "real"},
    {"a link to nothing", [](const TTarget& target) { return Links("real", target); }, IsMissing,
     Done, Done, "real", false, IS_NOT_THERE},
    {"a link into no folder", [](const TTarget& target) { return Links("none/real", target); },
     IsMissing, HasNoFolder, HasNoFolder, nullptr, false, IS_NOT_THERE},
    {"a ring of links",
     [](const TTarget& target) {
         return symlink(target.Name.c_str(), target.Beside("ring").c_str()) == 0 &&
                Links("ring", target);
     },
     IsRing, IsRing, IsRing, nullptr, false, CANNOT_BE_READ},
    {"a link into a folder that is closed",
     [](const TTarget& target) {
         fs::create_directory(target.Beside("closed"));
         return Links("closed/real", target) && chmod(target.Beside("closed").c_str(), 0) == 0;
     },
     Denied, Denied, Denied, nullptr, true, CANNOT_BE_READ},
    {"a hard link",
     [](const TTarget& target) {
         return link(target.Path.c_str(), target.Beside("other").c_str()) == 0;
     },
     Done, Done},
    {"a folder",
     [](const TTarget& target) {
         return fs::remove(target.Path), fs::create_directory(target.Path);
     },
     IsFolder, IsFolder, nullptr, nullptr, false, CANNOT_BE_READ},
    {"a pipe",
     [](const TTarget& target) {
         return fs::remove(target.Path), mkfifo(target.Path.c_str(), 0600) == 0;
     },
     IsDevice, IsDevice, nullptr, nullptr, false, CANNOT_BE_READ},
    {"a link to a full device", [](const TTarget& target) { return Links("/dev/full", target); },
     IsDevice, IsDevice, nullptr, nullptr, false, CANNOT_BE_READ},
    {"a link to an endless device",
     [](const TTarget& target) { return Links("/dev/zero", target); }, IsDevice, IsDevice, nullptr,
     nullptr, false, CANNOT_BE_READ},
    {"a read-only file",
     [](const TTarget& target) { return chmod(target.Path.c_str(), 0444) == 0; }, Denied, Denied,
     nullptr, nullptr, true},
    {"a file that may not be read",
     [](const TTarget& target) { return chmod(target.Path.c_str(), 0222) == 0; }, Denied, Done,
     nullptr, nullptr, true, CANNOT_BE_READ},
    {"a read-only folder",
     [](const TTarget& target) { return chmod(target.Place.Path().c_str(), 0555) == 0; }, Denied,
     Denied, Denied, nullptr, true},
    {"a folder in the place of the lock",
     [](const TTarget& target) { return fs::create_directory(LockOf(target)); }, HasFolderForLock,
     HasFolderForLock, HasFolderForLock},
    {"a link in the place of the lock",
     [](const TTarget& target) { return symlink("real", LockOf(target).c_str()) == 0; },
     HasLinkForLock, HasLinkForLock, HasLinkForLock},
    {"a lock and a temporary file that are left over",
     [](const TTarget& target) {
         return mknod(LockOf(target).c_str(), 0600, 0) == 0 &&
                mknod(LeftOver(target).c_str(), 0600, 0) == 0;
     },
     Done, Done, Done},
    {"rights and attributes",
     [](const TTarget& target) {
         setxattr(target.Path.c_str(), "user.origin", "value", 5, 0);
         return chmod(target.Path.c_str(), 0660) == 0 &&
                (getuid() != 0 || chown(target.Path.c_str(), 12'345, 12'346) == 0);
     },
     Done, Done},
};

std::string OwnerOf(uid_t user, gid_t group) {
    return std::to_string(user) + ":" + std::to_string(group);
}
std::string Owner() {
    return OwnerOf(getuid(), getgid());
}

/// All that tells one state of a file, a link or a folder from another.
std::string Described(const fs::path& path) {
    struct stat status = {};
    if (lstat(path.c_str(), &status) != 0) return "gone";
    if (S_ISLNK(status.st_mode)) return "link to " + fs::read_symlink(path).string();
    char value[100] = {};
    const bool hasValue = getxattr(path.c_str(), "user.origin", value, sizeof value) >= 0;
    std::string text = std::to_string(status.st_mode) + " " +
                       OwnerOf(status.st_uid, status.st_gid) + (hasValue ? " " : "") + value + "\n";
    if (S_ISREG(status.st_mode)) {
        std::ifstream stream(path, std::ios::binary);
        text += WithoutTimes({std::istreambuf_iterator<char>(stream), {}});
    }
    return text;
}

/// What is in the folder of a save, by name; not the folder that a run makes.
std::map<std::string, std::string> Described(const TSavePlace& place) {
    std::map<std::string, std::string> all;
    for (const auto& entry : fs::directory_iterator(place.Path()))
        if (const std::string name = entry.path().filename(); name != "out")
            all[name] = Described(entry.path());
    return all;
}

/// So that nothing is allowed to the administrator either.
std::string Refused() {
    return getuid() == 0 ? "setpriv --bounding-set -dac_override,-dac_read_search --inh-caps "
                           "-dac_override,-dac_read_search"
                         : "";
}

bool IsLabelled(const TSaveCase& save, const char* label) {
    return save.Label == std::string(label);
}

/// Whether a file that is missing counts as an empty one.
bool MakesMissing(const TSaveCase& save) {
    return IsLabelled(save, "simulators file") || IsLabelled(save, "INI file of the library");
}

/// What a save prints. Programs on the library say it in words of their own, and nothing of INI
/// files.
std::string Message(const TSaveCase& save, const TTarget& target, const TKind& kind) {
    const std::string reason = target.Reason;
    const bool isReport = IsLabelled(save, "report of a run");
    if (isReport && kind.Label == std::string("a read-only folder"))
        return "hdlbuild: error: " + target.Beside("out") + "/: " + reason + "\n";
    std::string before = isReport ? "[1/2] compile work.t\n[2/2] simulate work.t\n" : "";
    if (IsLabelled(save, "command file"))
        before = "hdlbuild: warning: the build has no Verilog settings: the option text is empty\n";
    if (reason.empty()) return before;
    if (save.Program == HDLBUILD_PROGRAM)
        return before + "hdlbuild: error: " + target.Name + ": " + reason + "\n";
    if (IsLabelled(save, "INI file of the library") || kind.Access == IS_NOT_THERE) return {};
    return std::string(kind.Access == CANNOT_BE_READ ? "Cannot read" : "Cannot save") +
           " file: \"" + target.Path + "\": " + reason + "\n";
}

/// Null where there is nothing to try.
TReason ReasonOf(const TSaveCase& save, const TSavePlace& place, const TKind& kind) {
    if (place.Old() == "<missing>") return kind.OfNew;
    if (kind.Access == IS_NOT_THERE && MakesMissing(save)) return kind.OfNew;
    return place.Old() == "what was there before\n" ? kind.OfOutput : kind.OfEdit;
}

/// What is to be in the folder after a save.
std::map<std::string, std::string> Expected(std::map<std::string, std::string> files,
                                            const TKind& kind, const TTarget& target) {
    if (!target.Reason.empty()) return files;
    std::string& written = files[kind.Written ? kind.Written : target.Name];
    if (written.empty()) written = std::to_string(S_IFREG | 0644) + " " + Owner();
    written = written.substr(0, written.find('\n')) + "\n" + target.Place.New();
    // What a killed save left is gone.
    std::erase_if(files, [](const auto& file) { return file.first.starts_with(".hdlbuildfile-"); });
    return files;
}

/// What is wrong with a save that meets such a thing; "" when nothing is.
std::string Complaint(const TSaveCase& save, const TSavePlace& place, const TKind& kind) {
    place.Restore();
    TTarget target{place, save.Target, place.Target(), {}};
    if (!kind.Make(target)) return "it cannot be made";
    target.Reason = ReasonOf(save, place, kind)(target);
    const auto expected = Expected(Described(place), kind, target);
    const int status = place.Run(kind.NeedsRefusal ? Refused() : "");
    const auto found = Described(place);
    chmod(place.Path().c_str(), 0755);
    if (status != (target.Reason.empty() ? 0 : 3)) return "status " + std::to_string(status);
    if (place.Errors() != Message(save, target, kind))
        return "it tells " + place.Errors() + "and not " + Message(save, target, kind);
    std::string wrong;
    for (const auto& [name, text] : found)
        if (!expected.contains(name) || expected.at(name) != text) wrong += name + ": " + text;
    return found == expected ? "" : "files are wrong: " + wrong;
}

}  // namespace

TEST(SpecialTargets, AreWrittenWholeOrLeftAlone) {
    TTally tally("save: what has the file's name, or is beside it");
    std::vector<TSaveCase> cases = SaveCases();
    if (WhyNoRun().empty()) cases.push_back(ReportCase());
    for (const TSaveCase& save : cases) {
        TSavePlace place(save);
        ASSERT_TRUE(place.Saves()) << save.Label << place.Errors();
        for (const TKind& kind : kKinds) {
            if (!ReasonOf(save, place, kind)) continue;
            const std::string complaint = Complaint(save, place, kind);
            EXPECT_TRUE(tally.Count(complaint.empty()))
                << save.Label << ", " << kind.Label << ": " << complaint;
        }
        EXPECT_TRUE(place.SavesAgain()) << save.Label;
    }
}
