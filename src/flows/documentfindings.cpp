#include "flows/documentfindings.h"
#include "flows/documentwords.h"
#include "flows/sourcementions.h"
#include "flows/topmentions.h"
#include "services/files/filereplace.h"
#include "services/names/isfilename.h"
#include <utility>

std::uint32_t TDocumentFindings::FindPlace(const ISFileName* file) const {
    return Mentions ? Mentions->FindPlace(file) : kNoXMLPlace;
}

std::string TDocumentFindings::ReadText(const ISFileName* buildFile) const {
    const std::string path = buildFile->Canonical(false);
    std::string text;
    const bool isRead = ReadWholeFile(path.c_str(), &text, nullptr) == FILE_READ_DONE;
    return isRead && LookAtFile(path) == Status ? text : "";
}

TDocumentFindings CheckDocument(const ISFileName* buildFile) {
    const std::string path = buildFile->Canonical(false);
    const TFileStatus status = LookAtFile(path);
    std::string text;
    if (ReadWholeFile(path.c_str(), &text, nullptr) != FILE_READ_DONE) return {};
    TDocumentFindings findings = CheckDocument(buildFile, std::move(text));
    if (findings.Mentions) findings.Status = status;
    return findings;
}

TDocumentFindings CheckDocument(const ISFileName* buildFile, std::string text) {
    TDocumentFindings findings;
    TDocumentWords words;
    TTopMentions tops;
    const auto mentions = std::make_shared<TSourceMentions>(buildFile->GetPathOnly());
    const auto meet = [&](const TMetElement& element) {
        words.Meet(element);
        mentions->Meet(element);
        tops.Meet(element);
    };
    if (!VisitElements(&text, "<!DOCTYPE HdlBuildFileList SYSTEM \"hdl-buildfile.dtd\">",
                       PROGRESS_CHECK_ELEMENTS, meet, nullptr))
        return {};
    findings.Words = words.GetDiagnostics();
    findings.Tops = tops.GetTops();
    findings.Repeated = mentions->FindRepeated();
    findings.Spelled = mentions->FindSpelled();
    mentions->LookAtFiles(&findings);
    findings.Mentions = mentions;
    return findings;
}
