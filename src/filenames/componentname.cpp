#include "filenames/componentname.h"

#include "services/base/keeper.h"
#include <utility>

TComponentName::TComponentName(TTBIdentifier entity, TTBIdentifier architecture,
                               const char* destinationLibrary)
    : DestinationLibraryName(destinationLibrary ? destinationLibrary : ""),
      Entity(std::move(entity)),
      Architecture(std::move(architecture)) {}

// The lists keep their names until exit; whoever deletes one must take it off there.
TComponentName::~TComponentName() {
    ForgetKept(this);
}

bool TComponentName::IsEqualTo(const TTBIdentifier& entity, const TTBIdentifier& architecture,
                               const std::string& library) const {
    return entity == Entity && library == DestinationLibraryName && architecture == Architecture;
}
