#include "projectfiles/sourcename.h"
#include "projectfiles/hdlprojectfile.h"
#include "projectfiles/hdlsourcefile.h"
#include <utility>

bool GetSourceName(const ISFileName* file, TSourceName* name) {
    const ISFileName* const handle = GetInnermostHandle(file);
    if (!handle) return false;
    const TFileIdentity identity = GetFileIdentity(handle);
    *name = {identity.Folded, identity.Hash};
    return true;
}

bool GetSourceName(const IHdlSourceFile* source, TSourceName* name) {
    return GetSourceName(source->GetFileName(), name);
}

unsigned long long GetSourceNameChangeCount() {
    return THdlProjectFile::GetHandleChangeCount() + THdlSourceFile::GetHandleChangeCount();
}
