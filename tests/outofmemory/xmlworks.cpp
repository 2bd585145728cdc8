#include "services/xml/documentedit.h"
#include "services/xml/elementvisit.h"
#include "services/xml/xmlsectionfile.h"
#include "services/xml/xmlstream.h"
#include "tests/outofmemory/work.h"
#include "tests/services/xml/editing.h"
#include "tests/support/elementtext.h"
#include "tests/support/replaced.h"

namespace {

/// Long names, values and texts, so that each takes memory of its own.
std::string MakeDocument(int elements) {
    std::string text = "<!DOCTYPE List SYSTEM \"list.dtd\">\n<List>\n";
    for (int i = 0; i < elements; ++i) {
        const std::string number = std::to_string(i);
        text += "  <Source Library=\"a library with a long name " + number +
                "\" Flag='1'>a text that no string keeps in itself " + number + " &amp; more" +
                "<Need>another text that is long enough " + number + "</Need></Source>\n";
    }
    return text + "</List>\n";
}

class TReading : public IWork {
public:
    bool Do() override { return List.ReadFile(Path.c_str()); }
    std::string GetResult() override { return ElementsOf(List); }

private:
    const TemporaryFolder& Folder = GetEmptyFolder();
    std::string Path = Folder.Write("a.xml", MakeDocument(20));
    TXMLList List;
};

class TReadingWithPlaces : public IWork {
public:
    bool Do() override { return List.ReadFromText(Document, &Error, &Places); }
    std::string GetResult() override {
        return ElementsOf(List) + std::to_string(Places.size()) + Error.Reason;
    }

private:
    std::string Document = MakeDocument(10);
    TXMLList List;
    TXMLReadError Error;
    TXMLPlaces Places;
};

class TReadingWhatIsMalformed : public IWork {
public:
    bool Do() override {
        List.ReadFromText(Document, &Error);
        return true;
    }
    std::string GetResult() override {
        return ElementsOf(List) + Error.Reason + " " + std::to_string(Error.Line);
    }

private:
    std::string Document = MakeDocument(3) + "<Second/>";
    TXMLList List;
    TXMLReadError Error;
};

class TVisiting : public IWork {
public:
    bool Do() override {
        Met.clear();
        std::string document = Document;
        return VisitElements(
            &document, "<!DOCTYPE List SYSTEM \"list.dtd\">", PROGRESS_CHECK_ELEMENTS,
            [this](const TMetElement& element) {
                Met += std::string(element.Name) + "=" + std::string(element.Text) + "\n";
            },
            nullptr);
    }
    std::string GetResult() override { return Met; }

private:
    std::string Document = MakeDocument(10);
    std::string Met;
};

class TPushedList : public TXMLList {
public:
    explicit TPushedList(bool isPrintedAtOnce) {
        SetDocumentType("<!DOCTYPE List SYSTEM \"list.dtd\">");
        SetPrintedAtOnce(isPrintedAtOnce);
    }

protected:
    void FillElements() override {
        for (int i = 0; i < 20; ++i) {
            const TAttributeView attribute{"Library", "a library with a long name"};
            PushTextElement("Source", "a text that no string keeps in itself",
                            std::span(&attribute, 1));
        }
    }
};

template <bool IsPrintedAtOnce>
class TWriting : public IWork {
public:
    bool Do() override { return List.WriteFile(Path.c_str()); }
    std::string GetResult() override { return Folder.Read("a.xml") + Folder.List(); }
    bool IsWhole() override {
        const std::string text = Folder.Read("a.xml");
        return text == "old" || text.ends_with("</List>\n");
    }

private:
    const TemporaryFolder& Folder = GetEmptyFolder();
    std::string Path = Folder.Write("a.xml", "old");
    TPushedList List{IsPrintedAtOnce};
};

class TCountedSection : public TXMLSectionFile {
public:
    TCountedSection() : TXMLSectionFile("Section", "Root", CHILD_OF_ROOT) {}

protected:
    void FillSection() override {
        PushTextElement("Section", "a text that no string keeps in itself, made anew");
    }
};

class TReplacingASection : public IWork {
public:
    bool Do() override { return File.ReadFile(Path.c_str()) && File.ReplaceSection(Path.c_str()); }
    std::string GetResult() override {
        return Folder.Read("a.xml") + Folder.List() + ElementsOf(File) + File.GetSectionText();
    }
    bool IsWhole() override { return Folder.Read("a.xml").ends_with("</Root>\n"); }

private:
    static std::string Text() {
        std::string others;
        for (int i = 0; i < 10; ++i)
            others += "<Other Name='a value of some length " + std::to_string(i) +
                      "'>and a text that is long as well</Other>";
        return "<Root>" + others + "<Section>old</Section>" + others + "</Root>\n";
    }
    const TemporaryFolder& Folder = GetEmptyFolder();
    std::string Path = Folder.Write("a.xml", Text());
    TCountedSection File;
};

/// The section is replaced again and again, without a new read.
class TReplacingASectionThatWasRead : public IWork {
public:
    TReplacingASectionThatWasRead() { File.ReadFile(Path.c_str()); }
    bool Do() override { return File.ReplaceSection(Path.c_str()); }
    std::string GetResult() override {
        return Folder.Read("a.xml") + Folder.List() + ElementsOf(File) + File.GetSectionText();
    }
    bool IsWhole() override { return Folder.Read("a.xml").ends_with("</Root>\n"); }

private:
    const TemporaryFolder& Folder = GetEmptyFolder();
    std::string Path = Folder.Write(
        "a.xml", "<Root><Other>a text of others that is long</Other><Section/><Last/></Root>\n");
    TCountedSection File;
};

class TEditing : public IWork {
public:
    TEditing() {
        ReadStream(MakeDocument(10), &Base);
        ReadStream(Replaced(MakeDocument(12), "library with a long name 3", "new library"),
                   &Wanted);
    }
    bool Do() override { return Edit.Find(Document, Base, Wanted, Rules); }
    std::string GetResult() override {
        return Edit.GetEdited() + Edit.GetUnifiedDiff("a.xml") + Edit.GetReason();
    }

private:
    std::string Document = MakeDocument(10);
    TXMLList Base;
    TXMLList Wanted;
    TXMLEditRules Rules = MakeTestRules();
    TDocumentEdit Edit;
};

}  // namespace

std::vector<TWorkRow> MakeXmlWorks() {
    return {
        WorkRow<TReading>("reading a document"),
        WorkRow<TReadingWithPlaces>("reading a document with places"),
        WorkRow<TReadingWhatIsMalformed>("reading a malformed document"),
        WorkRow<TVisiting>("visiting a document"),
        WorkRow<TWriting<false>>("writing elements"),
        WorkRow<TWriting<true>>("printing at once"),
        WorkRow<TReplacingASection>("reading a file and replacing its section"),
        WorkRow<TReplacingASectionThatWasRead>("replacing the section of a file"),
        WorkRow<TEditing>("editing a document"),
    };
}
