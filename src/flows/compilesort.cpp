#include "flows/compilesort.h"
#include "flows/dependencycycles.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include <unordered_map>
#include <utility>

namespace {

class TSort {
public:
    explicit TSort(const TIHdlSourceFileList& group) {
        std::vector<const IHdlSourceFile*> roots;
        for (IHdlSourceFile* const source : group) {
            Places.try_emplace(source, TPlace{roots.size()});
            roots.push_back(source);
        }
        std::size_t number = 0;
        for (const TDependencyCycle& cycle : FindDependencyCycles(roots)) {
            ++number;
            for (const IHdlSourceFile* const file : cycle.Files)
                if (const auto place = Places.find(file); place != Places.end())
                    place->second.Cycle = number;
        }
        for (IHdlSourceFile* const source : group) Walk(source);
    }

    TCompileSort Found;

private:
    struct TPlace {
        std::size_t Listed;
        std::size_t Cycle = 0;  // 0: none
        bool IsEntered = false;
    };
    /// A source whose dependencies are on their way into the order.
    struct TStep {
        IHdlSourceFile* Source;
        const TPlace* Place;
        TIHdlSourceFileList::const_iterator Next;
    };

    void Enter(IHdlSourceFile* source, TPlace* place) {
        place->IsEntered = true;
        const TIHdlSourceFileList* const list = source->GetDependencyList();
        Open.push_back({source, place, list ? list->begin() : None.begin()});
    }

    void Walk(IHdlSourceFile* root) {
        TPlace& rootPlace = Places.find(root)->second;
        if (rootPlace.IsEntered) return;
        Enter(root, &rootPlace);
        while (!Open.empty()) {
            if (EnterNext()) continue;
            const TStep step = Open.back();
            Open.pop_back();
            Found.Order.push_back(step.Source);
            if (step.Place->Listed > rootPlace.Listed) Found.Late.push_back({step.Source, root});
        }
    }

    bool EnterNext() {
        TStep& step = Open.back();
        const TIHdlSourceFileList* const list = step.Source->GetDependencyList();
        const auto end = list ? list->end() : None.end();
        while (step.Next != end) {
            IHdlSourceFile* const dependency = *step.Next++;
            const auto place = Places.find(dependency);
            if (place == Places.end() || place->second.IsEntered) continue;
            if (place->second.Cycle > 0 && place->second.Cycle == step.Place->Cycle) continue;
            Enter(dependency, &place->second);
            return true;
        }
        return false;
    }

    const TIHdlSourceFileList None;
    std::unordered_map<const IHdlSourceFile*, TPlace> Places;
    std::vector<TStep> Open;
};

}  // namespace

TCompileSort SortForCompile(const TIHdlSourceFileList& group) {
    return std::move(TSort(group).Found);
}
