#include "services/designdatabase/hdbbase.h"

TRope hdb::IHDBBase::dump() const {
    return GetName();
}
