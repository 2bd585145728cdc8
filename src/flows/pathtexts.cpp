#include "flows/pathtexts.h"
#include "services/names/isfilename.h"

TPathForm::TPathForm() : Directory(ISFileName::NewISFileName(".")->Canonical(false)) {}

std::string PathText(const char* path, const TPathForm& form) {
    if (form.Absolute) return path;
    std::string relative;
    IFileName::CreateRelativeFileName(form.Directory.c_str(), path, &relative, false, false);
    return relative;
}

std::string PathText(const ISFileName* file, const TPathForm& form) {
    return file ? PathText(file->Canonical(false), form) : std::string();
}
