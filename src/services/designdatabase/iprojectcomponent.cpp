#include "services/designdatabase/iprojectcomponent.h"
#include "services/designdatabase/visitor.h"

IProjectComponent::~IProjectComponent() = default;

void IProjectComponent::SetProjectModified(bool) {}

void IProjectComponent::Accept(IBaseVisitor* visitor) const {
    AcceptVisitor(visitor, this);
}
