#include "services/designdatabase/iprojectcomponent.h"
#include "services/designdatabase/visitor.h"
#include "tests/support/slots.h"
#include <gtest/gtest.h>

namespace {

class BareComponent : public IProjectComponent {
public:
    TProjectSimLanguageConfig* GetProjectLanguageConfig(THdlLanguage) override { return nullptr; }
    TProjectSimGeneralConfig* GetGeneralConfiguration() const override { return nullptr; }
};

class ComponentVisitor : public IBaseVisitor, public IVisitor<IProjectComponent> {
public:
    void VisitUnhandled() override { ++Unhandled; }
    void Visit(IProjectComponent* component) override { Visited = component; }
    int Unhandled = 0;
    IProjectComponent* Visited = nullptr;
};

class BlindVisitor : public IBaseVisitor {
public:
    void VisitUnhandled() override { ++Unhandled; }
    int Unhandled = 0;
};

TEST(ProjectComponent, KeepsTheOrderOfItsOperations) {
    EXPECT_EQ(SlotOf(&IProjectComponent::GetProjectLanguageConfig), 1);
    EXPECT_EQ(SlotOf(&IProjectComponent::GetGeneralConfiguration), 2);
    EXPECT_EQ(SlotOf(&IProjectComponent::SetProjectModified), 3);
    EXPECT_EQ(SlotOf(&IProjectComponent::Accept), 4);
}

TEST(ProjectComponent, IsVisitedAsAComponent) {
    const BareComponent component;
    ComponentVisitor visitor;
    component.Accept(&visitor);
    EXPECT_EQ(visitor.Visited, &component);
    EXPECT_EQ(visitor.Unhandled, 0);
}

TEST(ProjectComponent, MakesTheFallbackCallForOtherVisitors) {
    const BareComponent component;
    BlindVisitor visitor;
    component.Accept(&visitor);
    EXPECT_EQ(visitor.Unhandled, 1);
}

TEST(ProjectComponent, ToleratesANullVisitorAndAModifiedNotice) {
    BareComponent component;
    component.Accept(nullptr);
    component.SetProjectModified(true);
    EXPECT_EQ(component.GetProjectLanguageConfig(LANGUAGE_VHDL), nullptr);
}

}  // namespace
