#include "services/base/corbaimpl.h"
#include <gtest/gtest.h>

class ICorbaProxy {};

namespace {

TEST(CorbaImpl, CarriesItsProxyUntilItsEnd) {
    ICorbaProxy proxy;
    ACorbaImpl object;
    EXPECT_EQ(object.GetCorbaProxy(), nullptr);
    object.SetCorbaProxy(&proxy);
    EXPECT_EQ(object.GetCorbaProxy(), &proxy);
    object.BeingDeleted();
    EXPECT_EQ(object.GetCorbaProxy(), nullptr);
}

TEST(CorbaImpl, NeverTakesOverTheProxyOfAnother) {
    ICorbaProxy first;
    ICorbaProxy second;
    ACorbaImpl object;
    object.SetCorbaProxy(&first);
    ACorbaImpl copy = object;
    EXPECT_EQ(copy.GetCorbaProxy(), nullptr);
    copy.SetCorbaProxy(&second);
    copy = object;
    EXPECT_EQ(copy.GetCorbaProxy(), &second);
}

}  // namespace
