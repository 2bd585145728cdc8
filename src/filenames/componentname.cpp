#include "filenames/componentname.h"

#include "services/base/keeper.h"
#include <utility>

TComponentName::TComponentName(TTBIdentifier entity, TTBIdentifier architecture,
                               const char* destinationLibrary)
    : DestinationLibraryName(destinationLibrary ? destinationLibrary : ""),
      Entity(std::move(entity)),
      Architecture(std::move(architecture)) {}

// Lists keep their names valid until the process ends: one that is deleted before must be
// forgotten there.
TComponentName::~TComponentName() {
    ForgetKept(this);
}

bool TComponentName::IsEqualTo(const TTBIdentifier& entity, const TTBIdentifier& architecture,
                               const std::string& library) const {
    return entity == Entity && library == DestinationLibraryName && architecture == Architecture;
}
