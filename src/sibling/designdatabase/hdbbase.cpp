#include "sibling/designdatabase/hdbbase.h"

TRope hdb::IHDBBase::dump() const {
    return GetName();
}
