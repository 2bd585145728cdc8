#include "services/xml/xmlprologue.h"

#include "services/xml/expatrun.h"
#include "services/xml/xmltext.h"

namespace {

constexpr std::string_view kEntity = "<!ENTITY";

/// A parser of XML 1.0 takes "1." and any digits; Expat itself takes every text.
bool IsAcceptedVersion(std::string_view version) {
    return version.size() > 2 && version.starts_with("1.") &&
           version.find_first_not_of("0123456789", 2) == std::string_view::npos;
}

class TPrologueReader {
public:
    explicit TPrologueReader(const TXMLEncoding& encoding) : Run(encoding, this) {
        XML_Parser parser = Run.GetParser();
        XML_SetXmlDeclHandler(parser, OnXmlDeclaration);
        XML_SetDefaultHandler(parser, OnDeclarationToken);
        XML_SetEndDoctypeDeclHandler(parser, OnDocumentTypeEnd);
        XML_SetStartElementHandler(parser, OnStartElement);
    }

    TXMLPrologue Read(std::string_view document) {
        // In parts: behind the root nothing is asked for, nor copied.
        if (Run.Feed(document, false)) Run.Feed({}, true);
        Prologue.Reason = Run.GetReason();
        Prologue.FailurePlace = Run.GetFailurePlace();
        return Prologue;
    }

private:
    static TPrologueReader& From(void* userData) {
        return *static_cast<TPrologueReader*>(userData);
    }

    static void OnXmlDeclaration(void* userData, const XML_Char* version, const XML_Char*, int) {
        TExpatRun& run = From(userData).Run;
        run.Guard([&] {
            if (version && !IsAcceptedVersion(version))
                run.Refuse("XML version \"" + std::string(version) + "\" is not accepted");
        });
    }

    static void OnDeclarationToken(void* userData, const XML_Char* text, int length) {
        TPrologueReader& reader = From(userData);
        reader.Run.Guard([&] { reader.TakeToken({text, static_cast<std::size_t>(length)}); });
    }

    static void OnDocumentTypeEnd(void* userData) {
        TPrologueReader& reader = From(userData);
        reader.Run.Guard([&] { reader.EndDocumentType(); });
    }

    void TakeToken(std::string_view token) {
        if (token == kXMLDocumentType)
            Prologue.DocumentTypeBegin = Run.GetTokenBegin();
        else if (token == kEntity)
            Run.Refuse("entity declarations are not accepted");
        if (token == kXMLDocumentType || !Prologue.DocumentType.empty())
            Prologue.DocumentType += token;
    }

    void EndDocumentType() {
        Prologue.DocumentTypeEnd = Run.GetTokenBegin() + Run.GetTokenLength();
        Prologue.DocumentType += '>';
        Run.Stop();
    }

    static void OnStartElement(void* userData, const XML_Char*, const XML_Char**) {
        From(userData).Run.Stop();
    }

    TExpatRun Run;
    TXMLPrologue Prologue;
};

}  // namespace

TXMLPrologue ReadXMLPrologue(std::string_view document, const TXMLEncoding& encoding) {
    return TPrologueReader(encoding).Read(document);
}

std::string BlankDocumentType(std::string_view document, const TXMLEncoding& encoding,
                              const TXMLPrologue& prologue) {
    std::string beginning(document.substr(0, prologue.DocumentTypeEnd));
    const std::size_t unit = encoding.UnitSize;
    for (std::size_t i = prologue.DocumentTypeBegin; i + unit <= beginning.size(); i += unit) {
        if (unit == 2) beginning[i + 1 - encoding.LowByte] = '\0';
        beginning[i + encoding.LowByte] = ' ';
    }
    return beginning;
}

std::string GetDocumentTypeRoot(std::string_view documentType) {
    if (!documentType.starts_with(kXMLDocumentType)) return {};
    documentType.remove_prefix(kXMLDocumentType.size());
    const std::size_t begin = documentType.find_first_not_of(kXMLBlanks);
    if (begin == 0 || begin == std::string_view::npos) return {};
    documentType.remove_prefix(begin);
    return std::string(documentType.substr(0, documentType.find_first_of(" \t\n\r[>")));
}
