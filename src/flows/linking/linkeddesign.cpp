#include "flows/linking/linkeddesign.h"

const TDesignUnit& UnitAt(const TDesignFiles& files, TUnitPlace place) {
    return files[place.File].Scan.Units[place.Unit];
}

const TUnitNeed& NeedAt(const TDesignFiles& files, TNeedPlace place) {
    if (place.Unit.Unit == kOutsideUnits) return files[place.Unit.File].Scan.Needs[place.Need];
    return UnitAt(files, place.Unit).Needs[place.Need];
}
