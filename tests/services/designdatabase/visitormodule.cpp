#include "tests/services/designdatabase/visitormodule.h"

namespace {

class SummingVisitor : public IBaseVisitor, public IVisitor<SharedItem> {
public:
    void VisitUnhandled() override { ++Unhandled; }
    void Visit(SharedItem* item) override { Sum += item->Number; }
    int Sum = 0;
    int Unhandled = 0;
};

SummingVisitor visitor;

}  // namespace

IBaseVisitor* GetModuleVisitor() {
    return &visitor;
}
int GetModuleSum() {
    return visitor.Sum;
}
int GetModuleUnhandled() {
    return visitor.Unhandled;
}
