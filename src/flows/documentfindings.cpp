#include "flows/documentfindings.h"
#include "flows/documentwords.h"
#include "flows/sourcementions.h"
#include "services/files/filereplace.h"
#include "services/names/isfilename.h"

std::uint32_t TDocumentFindings::FindPlace(const ISFileName* file) const {
    return Mentions ? Mentions->FindPlace(file) : kNoXMLPlace;
}

TDocumentFindings CheckDocument(const ISFileName* buildFile) {
    TDocumentFindings findings;
    if (ReadWholeFile(buildFile->Canonical(false), &findings.Text, nullptr) != FILE_READ_DONE)
        return {};
    TXMLList document;
    TXMLPlaces places;
    document.SetDocumentType("<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">");
    if (!document.ReadFromText(findings.Text, nullptr, &places)) return {};
    TDocumentWords words;
    const auto mentions =
        std::make_shared<TSourceMentions>(&document, places, buildFile->GetPathOnly(), &words);
    findings.Words = words.GetDiagnostics();
    findings.Repeated = mentions->FindRepeated();
    findings.Spelled = mentions->FindSpelled();
    mentions->LookAtFiles(&findings);
    findings.Mentions = mentions;
    return findings;
}
