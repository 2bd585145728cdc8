#include "projectfiles/innermosthandle.h"
#include "filenames/hdbsfilename.h"

const ISFileName* GetInnermostHandle(const ISFileName* file) {
    while (const auto* tracked = dynamic_cast<const THdbSFileName*>(file))
        file = tracked->GetFileName();
    return file;
}
