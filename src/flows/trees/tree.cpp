#include "flows/trees/tree.h"

const TTree* TTree::Find(std::string_view key) const {
    if (!IsMap()) return nullptr;
    for (const TTree& value : Values)
        if (value.Key == key) return &value;
    return nullptr;
}
