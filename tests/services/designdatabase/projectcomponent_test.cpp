#include "services/designdatabase/projectcomponent.h"
#include "tests/support/slots.h"
#include <gtest/gtest.h>

TEST(StoredProjectComponent, AppendsItsOperationToThoseOfAComponent) {
    EXPECT_EQ(SlotOf(&IProjectComponent::Accept), 4);
    EXPECT_EQ(SlotOf(&TProjectComponent::GetFileName), 5);
}
