#include "settings/hpjfile.h"
#include "settings/projectsimsettings.h"
#include "tests/services/names/hostform.h"
#include "tests/settings/configurationtext.h"
#include "tests/support/elementtext.h"
#include "tests/support/lockfilename.h"
#include "tests/support/lockingbox.h"
#include "tests/support/recorders.h"
#include "tests/support/replaced.h"
#include "tests/support/settingtexts.h"
#include "tests/support/temporaryfolder.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <thread>

namespace {

/// The stream of a project file, its root included.
std::string StreamOf(const MemoryFolder& folder, const char* name) {
    TXMLList list;
    TXMLReadError error;
    if (!list.ReadFromText(folder.Read(name), &error)) return error.Reason;
    return ElementsOf(list);
}

/// Another component's section, as a save lays it out, with text before, between and behind its
/// children.
std::string ForeignSection(int number) {
    const std::string text = std::to_string(number);
    return "  <Foreign" + text + " Id=\"" + text + "\" Text=\"&lt;&amp;&quot;\">a &amp; " + text +
           "<ProjectSettings Of=\"" + text +
           "\"/>\n"
           "    <e><![CDATA[]]></e> behind &lt;e&gt;\n<f/>b</Foreign" +
           text + ">\n";
}

const std::string kSection =
    "<ProjectSettings CurrentConfiguration=\"b\">\n"
    "<ProjectSettingsConfiguration ConfigurationName=\"a\"/>\n"
    "<ProjectSettingsConfiguration ConfigurationName=\"b\"/>\n"
    "</ProjectSettings>\n";

std::string Project(const std::string& content) {
    return "<SimulationProject>\n" + content + "</SimulationProject>\n";
}

/// Line by line without the lines that both have at the same place.
std::string DifferencesOf(const std::string& before, const std::string& after) {
    std::istringstream former(before);
    std::istringstream latter(after);
    std::string differences;
    std::string one, other;
    while (std::getline(former, one) && std::getline(latter, other))
        if (one != other) differences += one + "\n" + other + "\n";
    const auto lines = [](const std::string& text) {
        return std::count(text.begin(), text.end(), '\n');
    };
    if (lines(before) != lines(after)) differences += "not equally long\n";
    return differences;
}

/// Reads the file and saves it with a different log file in its first configuration.
THpjFileResult ReadAndChange(const std::string& path) {
    THpjFile file(FileNamed(path.c_str()));
    TProjectSimSettings settings;
    const THpjFileResult result = file.Read(&settings);
    if (result != HPJ_FILE_DONE) return result;
    settings.GetConfigurations()[0]->GetGeneralConfiguration()->SetLogFileName("other.log");
    return file.Save(&settings);
}

/// A settings section as a save leaves it, which a further save would not change: an empty include
/// list, which is not stored, has been read as the project's directory.
std::string SavedSection() {
    const MemoryFolder folder;
    const std::string path = folder.Write("p.hpj", Project(kSection));
    for (int i = 0; i < 2; ++i) {
        THpjFile file(FileNamed(path.c_str()));
        TProjectSimSettings settings;
        file.Read(&settings);
        file.Save(&settings);
    }
    const std::string end = "</ProjectSettings>\n";
    const std::string text = folder.Read("p.hpj");
    const std::size_t begin = text.find("  <ProjectSettings ");
    return text.substr(begin, text.find(end) + end.size() - begin);
}

}  // namespace

TEST(HpjFile, ChangesOneSettingAmongForeignElements) {
    const MemoryFolder folder;
    std::string foreign[2];
    for (int i = 0; i < 200; ++i) foreign[i % 2] += ForeignSection(i);
    const std::string original =
        "<!DOCTYPE SimulationProject SYSTEM \"project.dtd\">\n"
        "<SimulationProject Version=\"7\">\n" +
        foreign[0] + SavedSection() + foreign[1] + "</SimulationProject>\n";
    const std::string path = folder.Write("p.hpj", original);
    const std::string stream = StreamOf(folder, "p.hpj");
    ASSERT_EQ(ReadAndChange(path), HPJ_FILE_DONE);
    EXPECT_EQ(WithoutUnknown(DifferencesOf(stream, StreamOf(folder, "p.hpj"))),
              GeneralStart() + GeneralStart({{"LogFileName", "other.log"}}));
    const std::string former = "\"simulation.log\"";
    EXPECT_EQ(folder.Read("p.hpj"), Replaced(original, former, "\"other.log\""));
}

TEST(HpjFile, KeepsEveryForeignElementInItsPlace) {
    const MemoryFolder folder;
    std::string before;
    std::string after;
    for (int i = 0; i < 100; ++i) before += ForeignSection(i);
    for (int i = 100; i < 200; ++i) after += ForeignSection(i);
    const std::string path = folder.Write("p.hpj", Project(before + kSection + after));
    folder.Write("before.xml", Project(before));
    folder.Write("after.xml", Project(after));
    ASSERT_EQ(ReadAndChange(path), HPJ_FILE_DONE);
    const std::string root = "START SimulationProject\n";
    const std::string rootEnd = "END SimulationProject\n";
    const std::string first = StreamOf(folder, "before.xml");
    const std::string last = StreamOf(folder, "after.xml");
    const std::string stream = StreamOf(folder, "p.hpj");
    const std::size_t begin = first.size() - rootEnd.size();
    const std::size_t end = stream.size() - (last.size() - root.size());
    EXPECT_EQ(stream.substr(0, begin), first.substr(0, begin));
    EXPECT_EQ(stream.substr(begin, 47), "START ProjectSettings CurrentConfiguration=b\nST");
    EXPECT_EQ(stream.substr(end - 20, 20), "END ProjectSettings\n");
    EXPECT_EQ(stream.substr(end), last.substr(root.size()));
}

TEST(HpjFile, ReadsTheSettings) {
    const MemoryFolder folder;
    const std::string path = folder.Write("p.hpj", Project("<x/>" + kSection + "<y/>"));
    const ISFileName* name = FileNamed(path.c_str());
    TProjectSimSettings settings;
    settings.AddConfiguration(NewConfiguration("former"));
    EXPECT_EQ(THpjFile(name).Read(&settings), HPJ_FILE_DONE);
    EXPECT_EQ(NamesIn(settings), "<a><b*>");
    EXPECT_EQ(settings.GetProjectFileName(), name);
}

TEST(HpjFile, GivesAFileWithoutSettingsASection) {
    const MemoryFolder folder;
    const std::string path = folder.Write("p.hpj", Project("<x>1</x>\n"));
    const ISFileName* name = FileNamed(path.c_str());
    THpjFile file(name);
    TProjectSimSettings settings;
    settings.AddConfiguration(NewConfiguration("former"));
    EXPECT_EQ(file.Read(&settings), HPJ_FILE_DONE);
    EXPECT_EQ(NamesIn(settings), "<former>");
    EXPECT_EQ(settings.GetProjectFileName(), name);
    settings.Clear();
    EXPECT_EQ(file.Save(&settings), HPJ_FILE_DONE);
    EXPECT_EQ(folder.Read("p.hpj"),
              "<SimulationProject>\n"
              "  <x>1</x>\n"
              "  <ProjectSettings CurrentConfiguration=\"p\"/>\n"
              "</SimulationProject>\n");
}

TEST(HpjFile, MakesAMissingFile) {
    const MemoryFolder folder;
    const ISFileName* name = FileNamed(folder.Path("new.hpj").c_str());
    THpjFile file(name);
    TProjectSimSettings settings;
    EXPECT_EQ(file.Read(&settings), HPJ_FILE_MISSING);
    EXPECT_TRUE(file.GetReadError().Missing);
    EXPECT_EQ(settings.GetProjectFileName(), name);
    EXPECT_EQ(file.Save(&settings), HPJ_FILE_DONE);
    EXPECT_EQ(folder.Read("new.hpj"),
              "<SimulationProject>\n"
              "  <ProjectSettings CurrentConfiguration=\"new\"/>\n"
              "</SimulationProject>\n");
    EXPECT_EQ(folder.List(), "new.hpj\n");
}

TEST(HpjFile, KeepsWhatOthersSavedSinceTheRead) {
    const MemoryFolder folder;
    const std::string path = folder.Write("p.hpj", Project(kSection));
    THpjFile file(FileNamed(path.c_str()));
    TProjectSimSettings settings;
    ASSERT_EQ(file.Read(&settings), HPJ_FILE_DONE);
    settings.Clear();
    folder.Write("p.hpj", Project("<Later/>" + kSection));
    EXPECT_EQ(file.Save(&settings), HPJ_FILE_DONE);
    EXPECT_EQ(folder.Read("p.hpj"),
              "<SimulationProject>\n"
              "  <Later/>\n"
              "  <ProjectSettings CurrentConfiguration=\"p\"/>\n"
              "</SimulationProject>\n");
}

TEST(HpjFile, SavesNothingOverSettingsThatChangedSinceTheRead) {
    const struct {
        const char* Label;
        const char* Before;  // null: no file
        const char* After;
    } rows[] = {
        {"another attribute", "<ProjectSettings CurrentConfiguration=\"b\"/>",
         "<ProjectSettings CurrentConfiguration=\"a\"/>"},
        {"another element", "<ProjectSettings><a/></ProjectSettings>",
         "<ProjectSettings><b/></ProjectSettings>"},
        {"an element more", "<ProjectSettings/>", "<ProjectSettings><a/></ProjectSettings>"},
        {"text instead of an element", "<ProjectSettings><a/></ProjectSettings>",
         "<ProjectSettings>a</ProjectSettings>"},
        {"an empty text more", "<ProjectSettings/>",
         "<ProjectSettings><![CDATA[]]></ProjectSettings>"},
        {"added", "", "<ProjectSettings/>"},
        {"removed", "<ProjectSettings/>", ""},
        {"file made", nullptr, "<ProjectSettings/>"},
        {"file made without settings", nullptr, ""},
        {"file deleted", "<ProjectSettings/>", nullptr},
        {"file without settings deleted", "", nullptr},
    };
    for (const auto& row : rows) {
        const MemoryFolder folder;
        const auto give = [&folder](const char* section) {
            folder.Remove("p.hpj");
            if (section) folder.Write("p.hpj", Project(section));
            return folder.Read("p.hpj");
        };
        give(row.Before);
        THpjFile file(FileNamed(folder.Path("p.hpj").c_str()));
        TProjectSimSettings settings;
        file.Read(&settings);
        const std::string bytes = give(row.After);
        EXPECT_EQ(file.Save(&settings), HPJ_FILE_CHANGED) << row.Label;
        EXPECT_EQ(folder.Read("p.hpj"), bytes) << row.Label;
        EXPECT_EQ(file.Read(&settings), row.After ? HPJ_FILE_DONE : HPJ_FILE_MISSING);
        EXPECT_EQ(file.Save(&settings), HPJ_FILE_DONE) << row.Label;
    }
}

TEST(HpjFile, SavesOverItsOwnSaves) {
    for (const bool exists : {false, true}) {
        const MemoryFolder folder;
        if (exists) folder.Write("p.hpj", Project(kSection));
        THpjFile file(FileNamed(folder.Path("p.hpj").c_str()));
        TProjectSimSettings settings;
        file.Read(&settings);
        auto* configuration = NewConfiguration("c\r\n\xFC");  // a byte that no file holds as it is
        configuration->GetGeneralConfiguration()->SetLogFileName("\tgr\xFC.log ");
        settings.AddConfiguration(configuration);
        EXPECT_EQ(file.Save(&settings), HPJ_FILE_DONE);
        const std::string saved = folder.Read("p.hpj");
        EXPECT_EQ(file.Save(&settings), HPJ_FILE_DONE);
        EXPECT_EQ(folder.Read("p.hpj"), saved);
        folder.Write("p.hpj", Project(kSection));
        EXPECT_EQ(file.Save(&settings), HPJ_FILE_CHANGED);
    }
}

TEST(HpjFile, SavesOverWhatNobodyRead) {
    const MemoryFolder folder;
    const std::string path = folder.Write("p.hpj", Project(kSection));
    THpjFile file(FileNamed(path.c_str()));
    TProjectSimSettings settings;
    EXPECT_EQ(file.Save(&settings), HPJ_FILE_DONE);
    EXPECT_EQ(folder.Read("p.hpj"), Project("  <ProjectSettings CurrentConfiguration=\"\"/>\n"));
}

TEST(HpjFile, SavesNothingAfterAReadThatFailed) {
    RecordingMessageBox box;
    RecordingLog log;
    const struct {
        const char* Label;
        std::string Document;
        THpjFileResult Result;
        const char* Names;  // of the configurations, after one called "former" was there
    } rows[] = {
        {"empty", "", HPJ_FILE_UNREADABLE, "<former*>"},
        {"cut short", "<SimulationProject>" + kSection, HPJ_FILE_UNREADABLE, "<former*>"},
        {"another root", "<Other>" + kSection + "</Other>", HPJ_FILE_FOREIGN, "<former*>"},
        {"the section as root", kSection, HPJ_FILE_FOREIGN, "<former*>"},
        {"no root", "<!DOCTYPE SimulationProject>", HPJ_FILE_FOREIGN, "<former*>"},
        {"twice", Project(kSection + kSection), HPJ_FILE_REPEATED_SETTINGS, "<former*>"},
        {"language without a name",
         Project("<ProjectSettings>"
                 "<ProjectSettingsConfiguration ConfigurationName=\"a\"/>"
                 "<ProjectSettingsConfiguration ConfigurationName=\"b\"><LanguageSettings/>"
                 "</ProjectSettingsConfiguration></ProjectSettings>"),
         HPJ_FILE_INVALID_SETTINGS, "<a>"},
        {"empty list",
         Project("<ProjectSettings><ProjectSettingsConfiguration>"
                 "<LanguageSettings Language=\"VHDL\"><IncludeDirectories/></LanguageSettings>"
                 "</ProjectSettingsConfiguration></ProjectSettings>"),
         HPJ_FILE_INVALID_SETTINGS, "<former*>"},
    };
    for (const auto& row : rows) {
        const MemoryFolder folder;
        const std::string path = folder.Write("p.hpj", row.Document);
        THpjFile file(FileNamed(path.c_str()));
        TProjectSimSettings settings;
        settings.AddConfiguration(NewConfiguration("former"));
        settings.SelectCurrentConfig("former");
        EXPECT_EQ(file.Read(&settings), row.Result) << row.Label;
        EXPECT_EQ(NamesIn(settings), row.Names) << row.Label;
        EXPECT_EQ(file.Save(&settings), row.Result) << row.Label;
        EXPECT_EQ(folder.Read("p.hpj"), row.Document) << row.Label;
        EXPECT_EQ(folder.List(), "p.hpj\n") << row.Label;
    }
}

TEST(HpjFile, SavesNothingOverAFileThatBecameMalformed) {
    RecordingMessageBox box;
    const MemoryFolder folder;
    const std::string path = folder.Write("p.hpj", Project(kSection));
    THpjFile file(FileNamed(path.c_str()));
    TProjectSimSettings settings;
    ASSERT_EQ(file.Read(&settings), HPJ_FILE_DONE);
    folder.Write("p.hpj", "<SimulationProject>");
    EXPECT_EQ(file.Save(&settings), HPJ_FILE_UNREADABLE);
    EXPECT_EQ(file.GetReadError().Line, 1);
    EXPECT_EQ(folder.Read("p.hpj"), "<SimulationProject>");
}

TEST(HpjFile, TellsWhenItCannotBeWritten) {
    RecordingMessageBox box;
    const TemporaryFolder folder;
    const std::string path = folder.Path("no such folder/p.hpj");
    THpjFile file(FileNamed(path.c_str()));
    TProjectSimSettings settings;
    EXPECT_EQ(file.Save(&settings), HPJ_FILE_NOT_WRITTEN);
    const std::string shown = box.Take();
    const std::string expected = "Cannot save file: \"" + path + "\": ";
    if (kOnWindows)
        EXPECT_EQ(shown.substr(0, expected.size()), expected);
    else
        EXPECT_EQ(shown, expected + "No such file or directory [0]\n");
    EXPECT_EQ(folder.List(), "");
}

TEST(HpjFile, IsLockedFromTheReadingOfASaveToItsEnd) {
    /// Counts who else could lock the file while it was read, or written.
    class TAskingDisk : public MemoryFileSystem {
    public:
        TFileResult Read(const std::string& path, std::uint64_t limit,
                         std::string* bytes) override {
            Ask();
            return MemoryFileSystem::Read(path, limit, bytes);
        }
        TFileResult Flush(TFileNumber file) override {
            Ask();
            return MemoryFileSystem::Flush(file);
        }
        void Ask() {
            std::thread([this] {
                Answers += TFileLock(HostForm("/p/p.hpj").c_str()).IsHeld() ? "free " : "locked ";
            }).join();
        }
        std::string Answers;
    };
    TAskingDisk disk;
    disk.Put("/p/p.hpj", Project(kSection));
    EXPECT_EQ(ReadAndChange(HostForm("/p/p.hpj")), HPJ_FILE_DONE);
    // The Read, and the two of the Save.
    EXPECT_EQ(disk.Answers, "free locked locked ");
}

TEST(HpjFile, SavesNothingWhileItIsLocked) {
    MemoryFileSystem disk;
    const std::string path = HostForm(disk.Put("/p/p.hpj", Project(kSection)));
    RecordingMessageBox box;
    {
        const TFileLock lock(path.c_str());
        std::thread([&] { EXPECT_EQ(ReadAndChange(path), HPJ_FILE_NOT_WRITTEN); }).join();
        EXPECT_EQ(box.Take(), "Cannot save file: \"" + path + "\": " +
                                  LockedReason(HostForm("/p/" + LockFileName("p.hpj"))) + " [0]\n");
    }
    EXPECT_EQ(disk.Text("/p/p.hpj"), Project(kSection));
    EXPECT_EQ(ReadAndChange(path), HPJ_FILE_DONE);
    EXPECT_EQ(box.Take(), "");
}

TEST(HpjFile, HasLetTheFileGoWhenItTellsTheUser) {
    MemoryFileSystem disk;
    const std::string path = HostForm(disk.Put("/p/p.hpj", Project(kSection)));
    LockingMessageBox box(path);
    THpjFile file(FileNamed(path.c_str()));
    TProjectSimSettings settings;
    ASSERT_EQ(file.Read(&settings), HPJ_FILE_DONE);
    disk.Protect("/p/p.hpj");
    EXPECT_EQ(file.Save(&settings), HPJ_FILE_NOT_WRITTEN);
    EXPECT_EQ(box.Take(), "Cannot save file: \"" + path + "\": write-protected [0]\n");
    disk.Put("/p/p.hpj", "<SimulationProject>");
    EXPECT_EQ(file.Save(&settings), HPJ_FILE_UNREADABLE);
    EXPECT_EQ(
        box.Take(),
        "Cannot read file: \"" + path +
            "\", line 1, column 20: the document ends inside element \"SimulationProject\" [0]\n");
}

TEST(HpjFile, SavesNothingForNull) {
    const MemoryFolder folder;
    const std::string path = folder.Write("p.hpj", Project(kSection));
    THpjFile file(FileNamed(path.c_str()));
    EXPECT_EQ(file.Save(nullptr), HPJ_FILE_NOT_WRITTEN);
    EXPECT_EQ(file.Read(nullptr), HPJ_FILE_DONE);
    EXPECT_EQ(file.Save(nullptr), HPJ_FILE_NOT_WRITTEN);
    EXPECT_EQ(folder.Read("p.hpj"), Project(kSection));
    EXPECT_EQ(THpjFile(FileNamed(folder.Path("no.hpj").c_str())).Read(nullptr), HPJ_FILE_MISSING);
}

TEST(HpjFile, HasATextForEveryResult) {
    const struct {
        int Result;
        const char* Text;
    } rows[] = {
        {HPJ_FILE_DONE, ""},
        {HPJ_FILE_MISSING, "the file does not exist"},
        {HPJ_FILE_UNREADABLE, "the file cannot be read"},
        {HPJ_FILE_FOREIGN, "the file is no project file: its root is not SimulationProject"},
        {HPJ_FILE_REPEATED_SETTINGS, "the file holds the section ProjectSettings more than once"},
        {HPJ_FILE_INVALID_SETTINGS, "the section ProjectSettings cannot be read"},
        {HPJ_FILE_NOT_WRITTEN, "the file cannot be written"},
        {HPJ_FILE_CHANGED, "the settings in the file have changed since they were read"},
        {8, "unknown error"},
        {-1, "unknown error"},
    };
    for (const auto& row : rows)
        EXPECT_STREQ(THpjFile::GetErrorString(static_cast<THpjFileResult>(row.Result)), row.Text)
            << row.Result;
}
