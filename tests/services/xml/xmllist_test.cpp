#include "services/xml/xmllist.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "services/files/filereplace.h"
#include "services/names/isfilename.h"
#include "tests/services/xml/documents.h"
#include "tests/support/filesizelimit.h"
#include "tests/support/memoryfilesystem.h"
#include "tests/support/memoryfolder.h"
#include "tests/support/recorders.h"
#include "tests/support/temporaryfolder.h"

namespace {

// A document of one element, which writes down every call of its hooks.
class HookedList : public TXMLList {
public:
    explicit HookedList(std::string elements = "START a\nEND a\n", bool interpretResult = true)
        : Elements(std::move(elements)), InterpretResult(interpretResult) {
        SetDocumentType(kListType);
    }
    std::string Calls;

protected:
    void FillElements() override {
        Calls +=
            "fill " + std::string(IsEmpty() ? "empty " : "full ") + NameOf(GetFileName()) + "\n";
        PushElements(this, Elements);
    }
    bool InterpretElements() override {
        Calls += "interpret " + NameOf(GetFileName()) + "\n" + ElementsOf(*this);
        return InterpretResult;
    }
    void HandleMissingOrInvalidFile(const char* path) override {
        Calls += "handle " + std::string(path) + "\n" + ElementsOf(*this);
        TXMLList::HandleMissingOrInvalidFile(path);
    }

private:
    static std::string NameOf(const ISFileName* file) {
        return file ? file->ShortName(false) : "-";
    }
    std::string Elements;
    bool InterpretResult;
};

const std::string kHookedDocument =
    "<!DOCTYPE List SYSTEM \"list.dtd\">\n"
    "<List>\n"
    "  <a/>\n"
    "</List>\n";

std::string Message(const char* caption, const std::string& path, const std::string& rest) {
    return std::string(caption) + ": \"" + path + "\"" + rest + " [0]\n";
}

// The host's own words for why a file cannot be replaced.
std::string ReplaceReason(const std::string& path) {
    std::string reason;
    EXPECT_FALSE(ReplaceWholeFile(path.c_str(), "x", &reason));
    EXPECT_NE(reason, "");
    return reason;
}

// Reads a file with a list of its own, without a message.
bool ReadQuietly(const std::string& path) {
    RecordingMessageBox box;
    RecordingLog log;
    return HookedList().ReadFile(path.c_str());
}

bool WriteHooked(const std::string& path) {
    return HookedList().WriteFile(path.c_str());
}

// Some 200,000 bytes: a document that is not held in memory whole.
struct TLargeDocument {
    std::string Elements;
    std::string Text = "<!DOCTYPE List SYSTEM \"list.dtd\">\n<List>\n";

    TLargeDocument() {
        for (int i = 0; i < 10000; ++i) {
            const std::string name = "element" + std::to_string(i);
            Elements.append("START ").append(name).append("\nEND ").append(name).append("\n");
            Text.append("  <").append(name).append("/>\n");
        }
        Text += "</List>\n";
    }
};

}  // namespace

TEST(XMLList, CopiesWhatIsPushed) {
    TXMLList list;
    std::string name = "a", text = "t";
    {
        TAttributeList attributes;
        attributes.Psh("x", "1");
        list.Psh(name.c_str(), &attributes, TElement::START, nullptr, nullptr, false);
        list.Psh("", nullptr, TElement::TEXT, text.c_str(), nullptr, false);
        list.Psh(name.c_str(), nullptr, TElement::END, nullptr, nullptr, false);
    }
    name = "b";
    text = "u";
    EXPECT_EQ(ElementsOf(list), "START a x=1\nTEXT t\nEND a\n");
}

TEST(XMLList, TakesNullTextsAsEmptyAndKeepsTextsOutOfTags) {
    TXMLList list;
    list.Psh(nullptr, nullptr, TElement::START, "text of a tag");
    list.Psh("name of a text", nullptr, TElement::TEXT, nullptr);
    list.Psh(nullptr, nullptr, TElement::END, nullptr);
    EXPECT_EQ(ElementsOf(list), "START \nTEXT \nEND \n");
    DListIterator<TElement*> element(list);
    EXPECT_EQ(element.Current()->Text.Str(), "");
    ++element;
    EXPECT_EQ(element.Current()->Name.Str(), "");
}

TEST(XMLList, KeepsAttributesOnStartElementsOnly) {
    TAttributeList attributes;
    attributes.Psh("x", "1");
    TXMLList list;
    list.Psh("a", &attributes, TElement::END, nullptr);
    list.Psh("", &attributes, TElement::TEXT, "t");
    for (DListIterator<TElement*> element(list); element.NotAtTail(); ++element)
        EXPECT_STREQ(element.Current()->GetAttribute("x"), "");
}

TEST(XMLList, FindsTheNextStartWithinItsBound) {
    struct Row {
        const char* Label;
        const char *Name, *Enclosing, *Position;
        int Steps;
        bool Found;
    };
    const char* const elements =
        "START p\nSTART tag n=1\nEND tag\nSTART tag n=2\nEND tag\nEND p\nSTART tag n=3\nEND tag\n";
    const Row rows[] = {
        {"from the beginning", "tag", "p", "START tag n=1", 0, true},
        {"the current element counts", "tag", "p", "START tag n=1", 1, true},
        {"from an END", "tag", "p", "START tag n=2", 2, true},
        {"behind the bound", "tag", "p", "END tag", 4, false},
        {"at the bound", "tag", "p", "END p", 5, false},
        {"without a bound", "tag", nullptr, "START tag n=3", 5, true},
        {"with an empty bound", "tag", "", "START tag n=3", 4, true},
        {"with a bound that never closes", "tag", "q", "START tag n=3", 4, true},
        {"bound by a START only", "tag", "tag", "START tag n=1", 0, true},
        {"absent", "absent", nullptr, "START p", 0, false},
        {"other case", "Tag", nullptr, "START p", 0, false},
        {"null", nullptr, nullptr, "START p", 0, false},
        {"at the tail", "tag", nullptr, "TAIL", 8, false},
    };
    TXMLList list;
    PushElements(&list, elements);
    for (const Row& row : rows) {
        DListIterator<TElement*> position(list);
        for (int step = 0; step < row.Steps; ++step) ++position;
        EXPECT_EQ(TXMLList::FindNext(position, row.Name, row.Enclosing), row.Found) << row.Label;
        EXPECT_EQ(ElementAt(position), row.Position) << row.Label;
    }
}

TEST(XMLList, TakesNoBoundForNoNameOfAnElement) {
    TXMLList list;
    PushElements(&list, "START \nEND \nSTART ~\nEND ~\nSTART tag\nEND tag\n");
    for (const char* bound : {static_cast<const char*>(nullptr), ""}) {
        DListIterator<TElement*> position(list);
        EXPECT_TRUE(TXMLList::FindNext(position, "tag", bound));
    }
}

TEST(XMLList, ReadsAFileAndThenInterpretsIt) {
    const MemoryFolder folder;
    const std::string path = folder.Write("a.xml", "<List>\n<a x='1'>t</a>\n</List>");
    RecordingMessageBox box;
    RecordingLog log;
    HookedList list;
    PushElements(&list, "START old\nEND old\n");
    EXPECT_TRUE(list.ReadFile(path.c_str(), nullptr));
    EXPECT_EQ(list.Calls, "interpret a.xml\nSTART a x=1\nTEXT t\nEND a\n");
    EXPECT_FALSE(list.GetReadError().IsError());
    EXPECT_STREQ(list.GetFileName()->ShortName(false), "a.xml");
    EXPECT_EQ(box.Take() + log.Take(), "");
}

TEST(XMLList, HasReadAFileWhateverTheInterpretationMakesOfIt) {
    const MemoryFolder folder;
    const std::string path = folder.Write("a.xml", "<a/>");
    RecordingMessageBox box;
    HookedList list("", false);
    EXPECT_TRUE(list.ReadFile(path.c_str()));
    EXPECT_EQ(list.Calls, "interpret a.xml\nSTART a\nEND a\n");
    EXPECT_FALSE(list.GetReadError().IsError());
    EXPECT_EQ(box.Take(), "");
}

TEST(XMLList, IsSilentAboutAMissingFile) {
    const MemoryFolder folder;
    for (const char* name : {"missing.xml", "missing/missing.xml"}) {
        const std::string path = folder.Path(name);
        RecordingMessageBox box;
        RecordingLog log;
        HookedList list;
        PushElements(&list, "START old\nEND old\n");
        EXPECT_FALSE(list.ReadFile(path.c_str()));
        EXPECT_EQ(list.Calls, "handle " + path + "\n");
        EXPECT_TRUE(list.GetReadError().Missing);
        EXPECT_TRUE(list.GetReadError().IsError());
        EXPECT_EQ(list.GetReadError().File, path);
        EXPECT_EQ(list.GetReadError().Line, 0);
        EXPECT_EQ(box.Take() + log.Take(), "");
    }
}

TEST(XMLList, TakesANullPathForAMissingFile) {
    RecordingMessageBox box;
    HookedList list;
    EXPECT_FALSE(list.ReadFile(nullptr));
    EXPECT_EQ(list.Calls, "handle \n");
    EXPECT_EQ(box.Take(), "");
    EXPECT_FALSE(list.WriteFile(nullptr));
    EXPECT_NE(box.Take(), "");
}

TEST(XMLList, TellsWhereAFileIsMalformed) {
    const MemoryFolder folder;
    const std::string path = folder.Write("a.xml", "<List>\n  <a>\n</List>\n");
    RecordingMessageBox box;
    RecordingLog log;
    HookedList list;
    PushElements(&list, "START old\nEND old\n");
    EXPECT_FALSE(list.ReadFile(path.c_str()));
    EXPECT_EQ(list.Calls, "handle " + path + "\n");
    EXPECT_EQ(box.Take(),
              Message("Cannot read file", path,
                      ", line 3, column 3: mismatched tag: element \"a\" of line 2 is still open"));
    EXPECT_EQ(log.Take(),
              "xmllist(105): \"" + path +
                  "\", line 3, column 3: mismatched tag: element \"a\" of line 2 is still open\n");
    const TXMLReadError& error = list.GetReadError();
    EXPECT_FALSE(error.Missing);
    EXPECT_EQ(error.File, path);
    EXPECT_EQ(error.Line, 3);
    EXPECT_EQ(error.Column, 3);
    EXPECT_EQ(error.Reason, "mismatched tag: element \"a\" of line 2 is still open");
}

TEST(XMLList, TellsWhereAFileHasHalfACharacter) {
    const MemoryFolder folder;
    const std::string path =
        folder.Write("a.xml", "\xFF\xFE" + Utf16("<a>\n x") + "\x3D\xD8" + Utf16("y</a>"));
    RecordingMessageBox box;
    RecordingLog log;
    TXMLList list;
    EXPECT_FALSE(list.ReadFile(path.c_str()));
    EXPECT_EQ(box.Take(), Message("Cannot read file", path,
                                  ", line 2, column 5: not well-formed (invalid token)"));
    EXPECT_TRUE(list.IsEmpty());
}

TEST(XMLList, TellsThatAFileCannotBeRead) {
    const TemporaryFolder folder;
    folder.Write("a.xml/inner", "");
    const std::string path = folder.Path("a.xml");
    std::string bytes, reason;
    ASSERT_EQ(ReadWholeFile(path.c_str(), &bytes, &reason), FILE_READ_FAILED);
    RecordingMessageBox box;
    RecordingLog log;
    HookedList list;
    EXPECT_FALSE(list.ReadFile(path.c_str()));
    EXPECT_EQ(list.Calls, "handle " + path + "\n");
    EXPECT_EQ(box.Take(), Message("Cannot read file", path, ": " + reason));
    EXPECT_EQ(log.Take(), "xmllist(105): \"" + path + "\": " + reason + "\n");
    EXPECT_FALSE(list.GetReadError().Missing);
}

TEST(XMLList, ReadsNoFileBeyondTheLimit) {
    const TemporaryFolder folder;
    const auto path = WriteSparse(folder, "a.xml", kTerabyte);
    if (!path) GTEST_SKIP() << "the disk takes no such file";
    const std::string reason =
        ": the file is too large: 1099511627776 bytes, the limit is 1073741824";
    RecordingMessageBox box;
    RecordingLog log;
    HookedList list;
    EXPECT_FALSE(list.ReadFile(path->c_str()));
    EXPECT_EQ(list.Calls, "handle " + *path + "\n");
    EXPECT_EQ(box.Take(), Message("Cannot read file", *path, reason));
    EXPECT_EQ(log.Take(), "xmllist(105): \"" + *path + "\"" + reason + "\n");
    // It would be lost: no copy of it can be kept.
    EXPECT_FALSE(WriteHooked(*path));
    EXPECT_EQ(box.Take(), Message("Cannot save file", *path, reason));
    EXPECT_EQ(std::filesystem::file_size(*path), kTerabyte);
    EXPECT_EQ(folder.List(), "a.xml\n");
}

TEST(XMLList, ForgetsTheErrorOfAnEarlierRead) {
    const MemoryFolder folder;
    const std::string path = folder.Write("a.xml", "<a/>");
    HookedList list;
    RecordingMessageBox box;
    RecordingLog log;
    ASSERT_FALSE(list.ReadFile(folder.Write("b.xml", "<a>").c_str()));
    ASSERT_TRUE(list.ReadFile(path.c_str()));
    EXPECT_FALSE(list.GetReadError().IsError());
    EXPECT_EQ(list.GetReadError().Line, 0);
    ASSERT_FALSE(list.ReadFile(folder.Path("b.xml").c_str()));
    ASSERT_FALSE(list.ReadFile(folder.Path("missing.xml").c_str()));
    EXPECT_TRUE(list.GetReadError().Missing);
    EXPECT_EQ(list.GetReadError().Line, 0);
    ASSERT_FALSE(list.ReadFile(folder.Path("b.xml").c_str()));
    EXPECT_FALSE(list.GetReadError().Missing);
}

TEST(XMLList, TakesPathsAndDocumentsThatStandInItself) {
    const MemoryFolder folder;
    const std::string path = folder.Write("a.xml", "<a");
    RecordingMessageBox box;
    RecordingLog log;
    TXMLList list;
    ASSERT_FALSE(list.ReadFile(path.c_str()));
    folder.Write("a.xml", "<a File='" + path + "' Document='&lt;a-document-of-some-length/&gt;'/>");
    EXPECT_TRUE(list.ReadFile(list.GetReadError().File.c_str()));
    const auto text = [&list](const char* name) {
        return DListIterator<TElement*>(list).Current()->GetAttribute(name);
    };
    EXPECT_TRUE(list.ReadFile(text("File")));
    EXPECT_TRUE(list.ReadFromText(text("Document"), nullptr));
    EXPECT_EQ(ElementsOf(list), "START a-document-of-some-length\nEND a-document-of-some-length\n");
    ASSERT_TRUE(list.ReadFile(path.c_str()));
    // Nothing is filled in, so nothing can be written: the message must name the file all the same.
    box.Take();
    EXPECT_FALSE(list.WriteFile(text("File")));
    EXPECT_EQ(box.Take(), Message("Cannot save file", path, ": the document has no root element"));
}

TEST(XMLList, WritesWhatItsFillOperationPushes) {
    const MemoryFolder folder;
    HookedList list;
    PushElements(&list, "START old\nEND old\n");
    EXPECT_TRUE(list.WriteFile(folder.Path("new.xml").c_str()));
    EXPECT_EQ(list.Calls, "fill empty new.xml\n");
    EXPECT_EQ(folder.Read("new.xml"), kHookedDocument);
    EXPECT_EQ(folder.List(), "new.xml\n");
}

TEST(XMLList, ReadsBackTheFileThatItWrote) {
    const MemoryFolder folder;
    const std::string elements = "START a x=&<>\"'\nTEXT  t & u \nEND a\nSTART b\nTEXT \nEND b\n";
    const std::string path = folder.Path("a.xml");
    ASSERT_TRUE(HookedList(elements).WriteFile(path.c_str()));
    HookedList list;
    ASSERT_TRUE(list.ReadFile(path.c_str()));
    EXPECT_EQ(ElementsOf(list), elements);
}

TEST(XMLList, MakesAWholeFileOfBrokenPushes) {
    const MemoryFolder folder;
    const std::string path = folder.Path("a.xml");
    RecordingLog log;
    RecordingMessageBox box;
    EXPECT_TRUE(HookedList("END z\nSTART v2v+x a+b=1\nSTART open\n").WriteFile(path.c_str()));
    EXPECT_EQ(folder.Read("a.xml"),
              "<!DOCTYPE List SYSTEM \"list.dtd\">\n"
              "<List>\n"
              "  <v2v_x a_b=\"1\">\n"
              "    <open/>\n"
              "  </v2v_x>\n"
              "</List>\n");
    EXPECT_EQ(box.Take(), "");
    EXPECT_NE(log.Take(), "");
    EXPECT_TRUE(ReadQuietly(path));
}

TEST(XMLList, ReplacesAFileWithoutKeepingIt) {
    const MemoryFolder folder;
    const std::string path = folder.Write("a.xml", "<List><old/></List>");
    ASSERT_TRUE(ReadQuietly(path));
    EXPECT_TRUE(WriteHooked(path));
    EXPECT_EQ(folder.Read("a.xml"), kHookedDocument);
    EXPECT_EQ(folder.List(), "a.xml\n");
}

TEST(XMLList, KeepsTheOldFileWhenATextCannotBeWritten) {
    const MemoryFolder folder;
    const std::string path = folder.Write("a.xml", "old");
    RecordingMessageBox box;
    HookedList list("START a Path=\x01\nEND a\n");
    EXPECT_FALSE(list.WriteFile(path.c_str()));
    EXPECT_EQ(box.Take(),
              Message("Cannot save file", path,
                      ": attribute \"Path\" of element \"a\" holds the character U+0001, which no "
                      "XML document can hold"));
    EXPECT_EQ(folder.Read("a.xml"), "old");
    EXPECT_EQ(folder.List(), "a.xml\n");
}

TEST(XMLList, SavesALargeDocumentWhileItIsPrinted) {
    const TLargeDocument large;
    MemoryFileSystem disk;
    disk.Put("/p/a.xml", "old");
    EXPECT_TRUE(HookedList(large.Elements).WriteFile("/p/a.xml"));
    EXPECT_EQ(disk.Text("/p/a.xml"), large.Text);
    EXPECT_EQ(disk.List(), "/p/a.xml\n");
    const auto& operations = disk.GetOperations();
    EXPECT_GT(std::count(operations.begin(), operations.end(), "Write"), 3);
}

TEST(XMLList, KeepsTheOldFileWhenTheEndOfALargeDocumentCannotBeWritten) {
    const TLargeDocument large;
    for (const char* diskFault : {"", "the disk is full"}) {
        MemoryFileSystem disk;
        disk.Put("/p/a.xml", "old");
        if (*diskFault) disk.FailAt(8, {TFileFault::Other, diskFault});
        RecordingMessageBox box;
        EXPECT_FALSE(HookedList(large.Elements + "TEXT \x01\n").WriteFile("/p/a.xml"));
        // What is wrong with the document is told, whatever the disk did.
        EXPECT_EQ(
            box.Take(),
            Message("Cannot save file", "/p/a.xml",
                    ": element \"List\" holds the character U+0001, which no XML document can "
                    "hold"));
        EXPECT_EQ(disk.Text("/p/a.xml"), "old");
        EXPECT_EQ(disk.List(), "/p/a.xml\n");
    }
}

TEST(XMLList, TellsWhyALargeDocumentCannotBeSaved) {
    const TLargeDocument large;
    MemoryFileSystem disk;
    disk.Put("/p/a.xml", "old");
    disk.FailAt(9, {TFileFault::Other, "the disk is full"});
    RecordingMessageBox box;
    EXPECT_FALSE(HookedList(large.Elements).WriteFile("/p/a.xml"));
    EXPECT_EQ(disk.GetOperations()[8], "Write");
    EXPECT_EQ(box.Take(), Message("Cannot save file", "/p/a.xml", ": the disk is full"));
    EXPECT_EQ(disk.Text("/p/a.xml"), "old");
    EXPECT_EQ(disk.List(), "/p/a.xml\n");
}

TEST(XMLList, FailsToSaveIntoAFolderThatDoesNotExist) {
    const MemoryFolder folder;
    const std::string path = folder.Path("missing/a.xml");
    RecordingMessageBox box;
    EXPECT_FALSE(WriteHooked(path));
    EXPECT_EQ(box.Take(), Message("Cannot save file", path, ": " + ReplaceReason(path)));
    EXPECT_EQ(folder.List(), "");
}

TEST(XMLList, FailsToSaveOverAFolder) {
    const TemporaryFolder folder;
    folder.Write("a.xml/inner", "kept");
    const std::string path = folder.Path("a.xml");
    RecordingMessageBox box;
    EXPECT_FALSE(WriteHooked(path));
    EXPECT_EQ(box.Take(), Message("Cannot save file", path, ": " + ReplaceReason(path)));
    EXPECT_EQ(folder.Read("a.xml/inner"), "kept");
    EXPECT_EQ(folder.List(), "a.xml\n");
}

TEST(XMLList, KeepsBesideAFileWhoseLastReadFailed) {
    const MemoryFolder folder;
    const std::string path = folder.Write("a.xml", "damaged");
    ASSERT_FALSE(ReadQuietly(path));
    EXPECT_TRUE(WriteHooked(path));
    EXPECT_EQ(folder.Read("a.xml"), kHookedDocument);
    EXPECT_EQ(folder.Read("a.xml.bak"), "damaged");
}

TEST(XMLList, KnowsAnUnreadFileByItsCanonicalPath) {
    const MemoryFolder folder;
    const std::string path = folder.Write("a.xml", "damaged");
    ASSERT_FALSE(ReadQuietly(folder.Path("other/../a.xml")));
    EXPECT_TRUE(WriteHooked(path));
    EXPECT_EQ(folder.Read("a.xml.bak"), "damaged");
}

TEST(XMLList, DoesNotReplaceTheKeptFileByALaterSave) {
    const MemoryFolder folder;
    const std::string path = folder.Write("a.xml", "damaged");
    ASSERT_FALSE(ReadQuietly(path));
    ASSERT_TRUE(WriteHooked(path));
    ASSERT_TRUE(WriteHooked(path));
    EXPECT_EQ(folder.Read("a.xml.bak"), "damaged");
}

TEST(XMLList, KeepsNothingOnceTheFileWasReadAgain) {
    const MemoryFolder folder;
    const std::string path = folder.Write("a.xml", "damaged");
    ASSERT_FALSE(ReadQuietly(path));
    folder.Write("a.xml", "<mended/>");
    ASSERT_TRUE(ReadQuietly(path));
    EXPECT_TRUE(WriteHooked(path));
    EXPECT_EQ(folder.List(), "a.xml\n");
}

TEST(XMLList, KeepsNothingOfAFileThatIsGone) {
    const MemoryFolder folder;
    const std::string path = folder.Write("a.xml", "damaged");
    ASSERT_FALSE(ReadQuietly(path));
    folder.Remove("a.xml");
    EXPECT_TRUE(WriteHooked(path));
    EXPECT_EQ(folder.Read("a.xml"), kHookedDocument);
    EXPECT_EQ(folder.List(), "a.xml\n");
}

TEST(XMLList, KeepsNothingOfAFileThatWasMissingWhenRead) {
    const MemoryFolder folder;
    const std::string path = folder.Path("a.xml");
    ASSERT_FALSE(ReadQuietly(path));
    folder.Write("a.xml", "written by another program");
    EXPECT_TRUE(WriteHooked(path));
    EXPECT_EQ(folder.List(), "a.xml\n");
}

TEST(XMLList, DoesNotReplaceAnUnreadFileThatItCannotKeep) {
    const MemoryFolder folder;
    const std::string path = folder.Write("a.xml", "damaged");
    folder.Write("a.xml.bak/inner", "in the way");
    ASSERT_FALSE(ReadQuietly(path));
    RecordingMessageBox box;
    EXPECT_FALSE(WriteHooked(path));
    EXPECT_EQ(box.Take(),
              Message("Cannot save file", path, ": " + ReplaceReason(folder.Path("a.xml.bak"))));
    EXPECT_EQ(folder.Read("a.xml"), "damaged");
}

TEST(XMLList, LosesNoUnreadFileWhicheverLookAtTheDiskFails) {
    const TLargeDocument large;
    const std::pair<std::string, std::string> documents[] = {{"START a\nEND a\n", kHookedDocument},
                                                             {large.Elements, large.Text}};
    for (const auto& [elements, written] : documents) {
        for (const char* name : {"/p/a.xml", "/p/link.xml"}) {
            for (int number = 1;; ++number) {
                MemoryFileSystem disk;
                disk.Put("/p/a.xml", "damaged");
                disk.PutLink("/p/link.xml", "/p/a.xml");
                RecordingMessageBox box;
                ASSERT_FALSE(ReadQuietly(name));
                disk.FailAt(number, {TFileFault::Other, "broken"});
                const bool isWritten = HookedList(elements).WriteFile(name);
                if (static_cast<int>(disk.GetOperations().size()) < number) break;
                const std::string label =
                    std::string(name) + ", operation " + std::to_string(number) + ", " +
                    disk.GetOperations()[static_cast<std::size_t>(number) - 1];
                EXPECT_EQ(disk.Text("/p/a.xml"), isWritten ? written : "damaged") << label;
                if (isWritten) {
                    EXPECT_EQ(disk.Text(name + std::string(".bak")), "damaged") << label;
                }
                EXPECT_EQ(box.Take() == "", isWritten) << label;
            }
        }
    }
}

#ifndef _WIN32
// Links need a privilege on Windows.
TEST(XMLList, SavesThroughALink) {
    const TemporaryFolder folder;
    folder.Write("real/a.xml", "old");
    const std::string link = folder.Path("link.xml");
    std::filesystem::create_symlink("real/a.xml", link);
    EXPECT_TRUE(WriteHooked(link));
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(folder.Read("real/a.xml"), kHookedDocument);
}

TEST(XMLList, KnowsAnUnreadFileThroughALink) {
    for (const char* written : {"real.xml", "link.xml"}) {
        const TemporaryFolder folder;
        folder.Write("real.xml", "damaged");
        std::filesystem::create_symlink("real.xml", folder.Path("link.xml"));
        ASSERT_FALSE(ReadQuietly(folder.Path(written[0] == 'r' ? "link.xml" : "real.xml")));
        EXPECT_TRUE(WriteHooked(folder.Path(written)));
        EXPECT_EQ(folder.Read(std::string(written) + ".bak"), "damaged");
        EXPECT_EQ(folder.Read("real.xml"), kHookedDocument);
    }
}

TEST(XMLList, KeepsThePermissionsOfTheFile) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("a.xml", "old");
    const auto permissions = std::filesystem::perms(0640);
    std::filesystem::permissions(path, permissions);
    EXPECT_TRUE(WriteHooked(path));
    EXPECT_EQ(std::filesystem::status(path).permissions(), permissions);
}
#endif

TEST(XMLList, KeepsItsFileNameAndDocumentType) {
    TXMLList list;
    EXPECT_EQ(list.GetFileName(), nullptr);
    EXPECT_EQ(list.GetDocumentType(), "");
    const MemoryFolder folder;
    const std::string path = folder.Path("a.xml");
    list.SetFileName(path.c_str());
    EXPECT_EQ(list.GetFileName(), ISFileName::NewISFileName(path.c_str()));
    list.SetDocumentType(kListType);
    EXPECT_EQ(list.GetDocumentType(), "<!DOCTYPE List SYSTEM \"list.dtd\">");
    list.SetDocumentType(nullptr);
    EXPECT_EQ(list.GetDocumentType(), "");
}

TEST(XMLList, WritesNothingOfItsOwn) {
    const MemoryFolder folder;
    TXMLList list;
    list.SetDocumentType(kListType);
    ASSERT_TRUE(list.WriteFile(folder.Path("a.xml").c_str()));
    EXPECT_EQ(folder.Read("a.xml"), "<!DOCTYPE List SYSTEM \"list.dtd\">\n<List/>\n");
    ASSERT_TRUE(list.ReadFile(folder.Path("a.xml").c_str()));
    EXPECT_EQ(ElementsOf(list), "");
}

// An element that is not deleted fails the run of the leak checker.
TEST(XMLList, DeletesItsElements) {
    class CountingList : public TXMLList {
    public:
        int Removed = 0;
        void ObjectRemoved(TElement*) override { ++Removed; }
    } list;
    PushElements(&list, "START a\nEND a\n");
    ASSERT_TRUE(list.ReadFromText("<b/>", nullptr));
    EXPECT_EQ(list.Removed, 2);
    EXPECT_EQ(ElementsOf(list), "START b\nEND b\n");
}
