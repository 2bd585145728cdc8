#pragma once
#include "counter/counter.h"
#include <string>

/// The count, and whether it is the limit: "3full".
std::string TextOf(const TCounter& counter, int limit);
