#include "buildfile/compileorder.h"
#include "projectfiles/ihdlsourcefile.h"

void TCompileOrder::Add(const IHdlSourceFile* file) {
    if (file) Enter(file);
    while (!Visits.empty()) {
        if (const IHdlSourceFile* dependency = NextDependency(&Visits.back())) {
            Enter(dependency);
            continue;
        }
        // The list holds sources that callers may edit.
        Ordered->AddSourceFile(const_cast<IHdlSourceFile*>(Visits.back().File), false);
        Visits.pop_back();
    }
}

// A file is marked as listed before its dependencies are visited: that ends cycles, and no file is
// visited twice.
void TCompileOrder::Enter(const IHdlSourceFile* file) {
    if (!Listed->insert(file).second) return;
    TVisit visit{file, {}, {}, nullptr};
    Descend(file->GetDependencyList(), &visit);
    const IHdlSourceFile* sameName = Group.GetSourceFile(file->GetFileName());
    if (sameName && sameName != file) visit.Further = sameName->GetDependencyList();
    Visits.push_back(visit);
}

void TCompileOrder::Descend(const TIHdlSourceFileList* dependencies, TVisit* visit) {
    if (!dependencies) return;
    visit->Next = dependencies->begin();
    visit->End = dependencies->end();
}

// Null when all were given.
const IHdlSourceFile* TCompileOrder::NextDependency(TVisit* visit) {
    if (visit->Next == visit->End) {
        Descend(visit->Further, visit);
        visit->Further = nullptr;
    }
    return visit->Next == visit->End ? nullptr : *visit->Next++;
}
