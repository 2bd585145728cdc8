#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "projectfiles/relativepaths.h"
#include "services/names/isfilename.h"
#include "services/xml/xmlstream.h"

namespace {

const char* ElementNameOf(const char* elementName) {
    return elementName && *elementName ? elementName : "File";
}

}  // namespace

bool TIHdlSourceFileList::ReadFromFile(DListIterator<TElement*>& element, const char* elementName) {
    const char* const name = ElementNameOf(elementName);
    while (IsAtStart(element, name)) {
        ++element;
        if (!element.NotAtTail()) return false;
        const std::string path = TrimmedText(element);
        AddSourceFile(path.c_str());
        if (!ISFileName::NewISFileName(path.c_str())->Exists()) return false;
        ++element;
        SkipEnd(element);
    }
    return true;
}

void TIHdlSourceFileList::WriteToFile(TXMLList* document, const char* elementName,
                                      const ISFileName* relativeTo) const {
    if (!document) return;
    TRelativePaths paths(relativeTo);
    for (const IHdlSourceFile* file : *this)
        PushTextElement(document, ElementNameOf(elementName), paths.Of(file->GetFileName()));
}
