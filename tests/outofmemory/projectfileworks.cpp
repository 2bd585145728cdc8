#include "projectfiles/hdlprojectsourcefile.h"
#include "projectfiles/hdlprojectusersourcefile.h"
#include "projectfiles/hdltimingdiagramfilelist.h"
#include "projectfiles/hdlusersourcefilelist.h"
#include "tests/outofmemory/operation.h"

namespace {

class TSilentObserver : public AHdbObjectObserver {
public:
    void FileInserted(int) override {}
};

const ISFileName* Handle(const std::string& name) {
    return ISFileName::NewISFileName(("/folder/" + name).c_str());
}

std::string TextOf(const THdlProjectFileList& files) {
    std::string text = files.GetName() + std::string(":");
    for (const THdlProjectFile* file : files) {
        text += std::string(" ") + file->GetNameAndExt();
        const THdlProjectFileList* const associated = file->GetAssociatedFileList();
        if (associated && !associated->empty()) text += "(" + TextOf(*associated) + ")";
    }
    return text;
}

/// `Count` user source files, which have associated files that have some themselves.
template <int Count>
struct TFiles {
    TFiles() {
        for (int i = 0; i < Count; ++i)
            Files.AddAtTailAndSetOwner(Handle(std::to_string(i) + ".vhd"));
        Files.SetAssociatedFileScope(Handle("1.vhd"));
        Files.AddAssociatedFileToScopeFile(Handle("needed.vhd"));
        Files.AddAssociatedFileToScopeFile(Handle("needed too.vhd"));
        Files.AddObserver(&Observer);
        // So that there is an index of a long list.
        (void)Files.Contains(Handle("0.vhd"));
        Diagrams.AddAtTailAndSetOwner(Handle("a.btim"));
    }
    std::string GetText() const {
        return TextOf(Files) + TextOf(Diagrams) + (Copy ? TextOf(*Copy) : std::string());
    }
    THdlProjectFile* FileOf(const std::string& name) const {
        return *Files.FindFromISFileName(Handle(name));
    }

    TSilentObserver Observer;
    THdlUserSourceFileList Files{nullptr};
    THdlTimingDiagramFileList Diagrams{nullptr};
    std::unique_ptr<THdlUserSourceFileList> Copy;
};

constexpr int kMany = 20;
using TFew = TFiles<3>;
using TMany = TFiles<kMany>;

template <class TModel>
std::vector<TWorkRow> MakeChanges() {
    return {
        OperationRow<TModel>("adding a file at the tail",
                             [](TModel* a) { a->Files.AddAtTailAndSetOwner(Handle("new.vhd")); }),
        OperationRow<TModel>("adding a file at the head",
                             [](TModel* a) { a->Files.AddAtHeadAndSetOwner(Handle("new.vhd")); }),
        OperationRow<TModel>("inserting a file",
                             [](TModel* a) {
                                 auto made = std::make_unique<THdlProjectUserSourceFile>(
                                     Handle("new.vhd"), nullptr, false);
                                 const auto result = a->Files.InsertFileAndSetOwner(
                                     made.get(), a->FileOf("1.vhd"), true);
                                 if (result.second) (void)made.release();
                             }),
        OperationRow<TModel>("adding a diagram",
                             [](TModel* a) { a->Diagrams.AddAtTailAndSetOwner(Handle("b.btim")); }),
        OperationRow<TModel>("adding an associated file",
                             [](TModel* a) {
                                 if (a->Files.SetAssociatedFileScope(Handle("2.vhd")))
                                     a->Files.AddAssociatedFileToScopeFile(Handle("new.vhd"));
                             }),
        OperationRow<TModel>("removing a file",
                             [](TModel* a) { a->Files.Remove(Handle("1.vhd"), true); }),
        OperationRow<TModel>("emptying a list", [](TModel* a) { a->Files.Flush(true); }),
        OperationRow<TModel>(
            "copying a list",
            [](TModel* a) { a->Copy = std::make_unique<THdlUserSourceFileList>(a->Files); }),
        OperationRow<TModel>("inserting files as they come",
                             [](TModel* a) {
                                 if (a->Files.front() == a->Files.back()) return;
                                 THdlProjectFile* const last = a->Files.back();
                                 a->Files.insert(a->Files.begin(), {last, nullptr, last});
                             }),
    };
}

/// Counts the observers that it is handed.
class TObserverCount : public IObserverCaller {
public:
    void Call(void*) override { ++Count; }
    int Count = 0;
};

struct TObserved {
    TObserved() { Manager.AddObserver(&First); }
    std::string GetText() const {
        TObserverCount count;
        Manager.ForEach(count);
        return std::to_string(count.Count);
    }

    TSilentObserver First;
    TSilentObserver Second;
    TEmbeddedObserverMgr<AHdbObjectObserver> Manager;
};

}  // namespace

std::vector<TWorkRow> MakeProjectFileWorks() {
    std::vector<TWorkRow> works = MakeChanges<TFew>();
    for (TWorkRow& row : MakeChanges<TMany>()) works.push_back(std::move(row));
    works.push_back(OperationRow<TObserved>(
        "registering an observer", [](TObserved* a) { a->Manager.AddObserver(&a->Second); }));
    return works;
}
