#include "sibling/designdatabase/iprojectcomponent.h"
#include "sibling/designdatabase/visitor.h"

IProjectComponent::~IProjectComponent() = default;

void IProjectComponent::SetProjectModified(bool) {}

void IProjectComponent::Accept(IBaseVisitor* visitor) const {
    AcceptVisitor(visitor, this);
}
