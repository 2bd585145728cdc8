#pragma once
#include "tests/outofmemory/work.h"

/// One change of an object that is made whole or not at all. TModel has the object and gives all of
/// it as GetText().
template <class TModel>
class TOperation : public IWork {
public:
    using TChange = void (*)(TModel*);

    explicit TOperation(TChange change) : Change(change) {
        TModel changed;
        Change(&changed);
        New = changed.GetText();
    }
    bool Do() override {
        Change(&Model);
        return true;
    }
    std::string GetResult() override { return Model.GetText(); }
    bool IsWhole() override {
        const std::string text = Model.GetText();
        return text == Old || text == New;
    }

private:
    TChange Change;
    std::string New;
    TModel Model;
    std::string Old = Model.GetText();
};

/// `change` gives the same when it is made again.
template <class TModel>
TWorkRow OperationRow(const char* name, void (*change)(TModel*)) {
    return {name, [change] { return std::make_unique<TOperation<TModel>>(change); }};
}
