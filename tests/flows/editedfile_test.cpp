#include "flows/editedfile.h"
#include "services/names/isfilename.h"
#include "tests/support/temporaryfolder.h"
#include <gtest/gtest.h>

namespace {

constexpr const char* kDocument = "<List>\n  <A X='1'/> <!-- ours -->\n</List>\n";
constexpr const char* kChanged = "<List>\n  <A X='2'/> <!-- ours -->\n</List>\n";
constexpr const char* kDiff =
    "--- own.xml\n+++ own.xml\n@@ -1,3 +1,3 @@\n <List>\n"
    "-  <A X='1'/> <!-- ours -->\n+  <A X='2'/> <!-- ours -->\n </List>\n";

/// One element of the name.
void Push(const char* name, std::initializer_list<TAttributeView> attributes, TXMLList* list) {
    list->Push(TElement::START, name, {}, {attributes.begin(), attributes.size()});
    list->Push(TElement::END, name, {});
}

/// The file "own.xml" in a folder of its own.
class EditedFile : public testing::Test {
protected:
    EditedFile() {
        Push("A", {{"X", "1"}}, &Base);
        Push("A", {{"X", "2"}}, &Wanted);
    }
    bool Read() { return File.Read(&Error); }
    bool ReadLocked() {
        File.TakeLock();
        return Read();
    }
    /// Changes X from 1 to 2, unless the readers do not find what is wanted.
    std::string Change(bool isAsWanted = true) {
        return File.Change(Base, Wanted, {{{"A", {}}}, nullptr},
                           [isAsWanted](const std::string&) { return isAsWanted; });
    }

    const TemporaryFolder Folder;
    const std::string Path = Folder.Path("own.xml");
    TEditedFile File{ISFileName::NewISFileName(Path.c_str())};
    TXMLReadError Error;
    TXMLList Base;
    TXMLList Wanted;
};

}  // namespace

TEST_F(EditedFile, IsReadAsItIs) {
    const std::string bytes("\xEF\xBB\xBF<a\r\n\0>", 9);
    Folder.Write("own.xml", bytes);
    Error.Reason = "old";
    EXPECT_TRUE(Read());
    EXPECT_TRUE(File.WasThere());
    EXPECT_EQ(File.GetBytes(), bytes);
    EXPECT_EQ(File.GetChanged(), bytes);
    EXPECT_EQ(File.GetUnifiedDiff("own.xml"), "");
    EXPECT_EQ(Error.Reason, "");
    EXPECT_EQ(Folder.List(), "own.xml\n");
}

TEST_F(EditedFile, TellsWhyItCannotBeRead) {
    EXPECT_FALSE(Read());
    EXPECT_FALSE(File.WasThere());
    EXPECT_TRUE(Error.Missing);
    EXPECT_EQ(Error.File, Path);
    EXPECT_NE(Error.Reason, "");
    Folder.Write("own.xml/file", "");
    EXPECT_FALSE(Read());
    EXPECT_FALSE(File.WasThere());
    EXPECT_FALSE(Error.Missing);
    EXPECT_EQ(Error.File, Path);
    EXPECT_NE(Error.Reason, "");
}

TEST_F(EditedFile, IsLockedFromTheReadingToTheEndOfTheObject) {
    Folder.Write("own.xml", kDocument);
    {
        TEditedFile locked(File.GetFile());
        locked.TakeLock();
        EXPECT_TRUE(locked.Read(&Error));
        EXPECT_NE(Folder.List(), "own.xml\n") << "no lock file";
    }
    EXPECT_EQ(Folder.List(), "own.xml\n");
}

TEST_F(EditedFile, IsNotReadWithoutTheLockThatWasWanted) {
    Folder.Write("own.xml", kDocument);
    std::string lockFile;
    {
        const TFileLock lock(Path.c_str());
        ASSERT_TRUE(lock.IsHeld());
        lockFile = Folder.List();
    }
    lockFile.erase(lockFile.find('\n'));
    // What no lock file can be.
    Folder.Write(lockFile + "/file", "");
    const std::string reason = TFileLock(Path.c_str()).GetReason();
    ASSERT_NE(reason, "");
    EXPECT_FALSE(ReadLocked());
    EXPECT_TRUE(File.WasThere());
    EXPECT_FALSE(Error.Missing);
    EXPECT_EQ(Error.File, Path);
    EXPECT_EQ(Error.Reason, reason);
    EXPECT_EQ(Change(), "");
    EXPECT_EQ(File.Save(), reason);
    EXPECT_EQ(Folder.Read("own.xml"), kDocument);
}

TEST_F(EditedFile, ChangesWhatDiffersAndSavesIt) {
    Folder.Write("own.xml", kDocument);
    ASSERT_TRUE(ReadLocked());
    EXPECT_EQ(Change(), "");
    EXPECT_EQ(File.GetBytes(), kDocument);
    EXPECT_EQ(File.GetChanged(), kChanged);
    EXPECT_EQ(File.GetUnifiedDiff("own.xml"), kDiff);
    EXPECT_EQ(Folder.Read("own.xml"), kDocument);
    EXPECT_EQ(File.Save(), "");
    EXPECT_EQ(Folder.Read("own.xml"), kChanged);
}

TEST_F(EditedFile, TriesNewElementsWholeForReadersThatWantThem) {
    Push("B", {{"X", "1"}, {"Y", "1"}}, &Base);
    Push("B", {{"X", "2"}, {"Y", "1"}}, &Wanted);
    Folder.Write("own.xml", "<List><A X=\"2\"/></List>");
    const auto document = [](const std::string& attributes) {
        return "<List><A X=\"2\"/><B X=\"2\"" + attributes + "/></List>";
    };
    const struct {
        const char* Label;
        std::string WantedByReader;
        std::string Tried;
        std::string Reason;
        std::string Changed;
    } rows[] = {
        {"without defaults", document(""), document("") + "\n", "", document("")},
        {"whole", document(" Y=\"1\""), document("") + "\n" + document(" Y=\"1\"") + "\n", "",
         document(" Y=\"1\"")},
        {"neither", "", document("") + "\n" + document(" Y=\"1\"") + "\n",
         "the change cannot be made in this file: a reader would find something else in it",
         "<List><A X=\"2\"/></List>"},
    };
    for (const auto& row : rows) {
        ASSERT_TRUE(Read()) << row.Label;
        std::string tried;
        EXPECT_EQ(File.Change(Base, Wanted, {{{"A", {}}, {"B", {}}}, nullptr},
                              [&](const std::string& edited) {
                                  tried += edited + "\n";
                                  return edited == row.WantedByReader;
                              }),
                  row.Reason)
            << row.Label;
        EXPECT_EQ(tried, row.Tried) << row.Label;
        EXPECT_EQ(File.GetChanged(), row.Changed) << row.Label;
    }
}

TEST_F(EditedFile, TellsWhyTheTextTakesNoEdit) {
    Folder.Write("own.xml", "<List>\n<a></b>");
    ASSERT_TRUE(Read());
    EXPECT_EQ(Change(), "mismatched tag");
    EXPECT_EQ(File.GetChanged(), "<List>\n<a></b>");
    EXPECT_EQ(File.GetUnifiedDiff("own.xml"), "");
}

TEST_F(EditedFile, IsSavedOnlyWhileItIsWhatWasRead) {
    const struct {
        const char* Label;
        bool IsLocked;
        const char* Before;  // null: the file is not there
        const char* Meanwhile;
        const char* Reason;
    } rows[] = {
        {"not locked", false, kDocument, kDocument, "the file is not locked"},
        {"same bytes", true, kDocument, kDocument, ""},
        {"other bytes", true, kDocument, "<List/>", "the file has changed since it was read"},
        {"gone", true, kDocument, nullptr, "the file has changed since it was read"},
        {"still missing", true, nullptr, nullptr, ""},
        {"made", true, nullptr, "", "the file has changed since it was read"},
    };
    const auto put = [this](const char* bytes) {
        std::filesystem::remove_all(Path);
        if (bytes) Folder.Write("own.xml", bytes);
    };
    for (const auto& row : rows) {
        put(row.Before);
        TEditedFile file(File.GetFile());
        if (row.IsLocked) file.TakeLock();
        EXPECT_EQ(file.Read(&Error), row.Before != nullptr) << row.Label;
        const std::string made = row.Before ? "" : file.Make(kChanged);
        EXPECT_EQ(made, "") << row.Label;
        put(row.Meanwhile);
        EXPECT_EQ(file.Save(), row.Reason) << row.Label;
        const char* const unchanged = row.Meanwhile ? row.Meanwhile : "<missing>";
        const bool isMade = !row.Before && !*row.Reason;
        EXPECT_EQ(Folder.Read("own.xml"), isMade ? kChanged : unchanged) << row.Label;
    }
}

TEST_F(EditedFile, IsMadeWhereItWasMissing) {
    EXPECT_FALSE(ReadLocked());
    EXPECT_EQ(File.GetUnifiedDiff("own.xml"), "");
    EXPECT_EQ(File.Make("<List>\n</List>\n"), "");
    EXPECT_EQ(File.GetBytes(), "");
    EXPECT_EQ(File.GetChanged(), "<List>\n</List>\n");
    EXPECT_EQ(File.GetUnifiedDiff("own.xml"),
              "--- /dev/null\n+++ own.xml\n@@ -0,0 +1,2 @@\n+<List>\n+</List>\n");
    EXPECT_EQ(Folder.Read("own.xml"), "<missing>");
    EXPECT_EQ(File.Save(), "");
    EXPECT_EQ(Folder.Read("own.xml"), "<List>\n</List>\n");
}
