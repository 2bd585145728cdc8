#include "services/designdatabase/visitor.h"
#include "tests/services/designdatabase/visitormodule.h"
#include "tests/support/slots.h"
#include <gtest/gtest.h>
#include <type_traits>
#include <utility>

namespace {

class NamedItem : public hdb::IAccept {
public:
    explicit NamedItem(std::string name) : Name(std::move(name)) {}
    void Accept(IBaseVisitor* visitor) const override { AcceptVisitor(visitor, this); }
    std::string Name;
};

/// A class of its own: handlers are for the exact class.
class DerivedItem : public NamedItem {
public:
    using NamedItem::NamedItem;
    void Accept(IBaseVisitor* visitor) const override { AcceptVisitor(visitor, this); }
};

class RecordingVisitor : public IBaseVisitor, public IVisitor<NamedItem> {
public:
    void VisitUnhandled() override { Visits += "unhandled\n"; }
    void Visit(NamedItem* item) override {
        Visits += item->Name + "\n";
        item->Name = "edited";
    }
    std::string Visits;
};

}  // namespace

TEST(Visitor, CallsTheTypedHandlerWithTheItemItself) {
    RecordingVisitor visitor;
    NamedItem item("fifo");
    std::as_const(item).Accept(&visitor);
    EXPECT_EQ(visitor.Visits, "fifo\n");
    EXPECT_EQ(item.Name, "edited");
}

TEST(Visitor, FallsBackForAnotherClassEvenADerivedOne) {
    RecordingVisitor visitor;
    DerivedItem("fifo").Accept(&visitor);
    EXPECT_EQ(visitor.Visits, "unhandled\n");
}

TEST(Visitor, DoesNothingForNull) {
    const NamedItem item("fifo");
    item.Accept(nullptr);
    EXPECT_EQ(item.Name, "fifo");
}

TEST(Visitor, HasTwoOperationsAndTypedHandlersStandAlone) {
    EXPECT_EQ(SlotOf(&IBaseVisitor::VisitUnhandled), 1);
    EXPECT_EQ(SlotOf(&IVisitor<NamedItem>::Visit), 1);
    EXPECT_FALSE((std::is_base_of_v<IBaseVisitor, IVisitor<NamedItem>>));
}

TEST(Visitor, OfAnotherModuleIsRecognised) {
    SharedItem(3).Accept(GetModuleVisitor());
    SharedItem(4).Accept(GetModuleVisitor());
    UnknownItem().Accept(GetModuleVisitor());
    EXPECT_EQ(GetModuleSum(), 7);
    EXPECT_EQ(GetModuleUnhandled(), 1);
}
