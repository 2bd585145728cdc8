#pragma once
#include "services/hdl/identifier.h"
#include <string>

/// One design unit that is simulated as top level: an entity or module with an architecture,
/// compiled into a library. A plain value.
class HDLBUILDFILE_API TComponentName {
public:
    /// A null library counts as empty. Verilog modules have an empty architecture.
    TComponentName(TTBIdentifier entity, TTBIdentifier architecture,
                   const char* destinationLibrary);
    TComponentName(const TComponentName& other) = default;
    TComponentName& operator=(const TComponentName& other) = default;
    ~TComponentName();

    TTBIdentifier GetEntity() const { return Entity; }
    TTBIdentifier GetArchitecture() const { return Architecture; }
    const std::string& GetDestinationLibraryName() const { return DestinationLibraryName; }

    /// Whether library, byte for byte, and both identifiers, by their language's rule, are these.
    bool IsEqualTo(const TTBIdentifier& entity, const TTBIdentifier& architecture,
                   const std::string& library) const;

private:
    std::string DestinationLibraryName;
    TTBIdentifier Entity;
    TTBIdentifier Architecture;
};
