#include "services/xml/elementvisit.h"

#include "services/xml/xmlprologue.h"
#include "services/xml/xmlreader.h"
#include "services/xml/xmltext.h"

bool VisitElements(std::string* document, const char* documentType, TProgressWork work,
                   const TElementVisit& visit, TXMLReadError* error) {
    TXMLReadError found;
    std::string nothing;
    if (!document) document = &nothing;
    const TElementVisit each = visit ? visit : [](const TMetElement&) {};
    const std::string droppedRoot = GetDocumentTypeRoot(ToUtf8(documentType ? documentType : ""));
    const bool isVisited = VisitXMLDocument(*document, droppedRoot, work, each, &found, document);
    if (error) *error = found;
    return isVisited;
}
