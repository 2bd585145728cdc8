#pragma once
#include "services/base/api.h"
/// Units of time.
enum TUnit : int { UNIT_FS = 0, UNIT_PS = 1, UNIT_NS = 2, UNIT_US = 3, UNIT_MS = 4, UNIT_S = 5 };

/// The time unit that a simulation counts in, and the one in which times are shown.
class HDLBUILDFILE_API TTimeBase {
public:
    /// Base unit ps, display unit ns. The argument is reserved: no effect.
    explicit TTimeBase(int = 1) {}

    TUnit GetBaseTimeUnit() const { return BaseUnit; }
    TUnit GetDisplayTimeUnit() const { return DisplayUnit; }
    void SetBaseTimeUnit(TUnit unit) { BaseUnit = unit; }
    void SetDisplayTimeUnit(TUnit unit) { DisplayUnit = unit; }

    /// "fs", "ps", "ns", "us", "ms" or "s"; "ps" for a number out of range. Static.
    const char* GetBaseTimeUnitStr() const;
    const char* GetDisplayTimeUnitStr() const;

    /// Sets `*unit` from a unit's text (exact). False, with `*unit` unchanged, for any other text.
    static bool GetTimeUnitFromString(const char* text, TUnit* unit);

private:
    TUnit BaseUnit = UNIT_PS;
    TUnit DisplayUnit = UNIT_NS;
};
