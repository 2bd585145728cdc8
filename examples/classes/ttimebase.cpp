// TTimeBase: the unit that a simulation counts in, and the one that is shown.
#include <hdlbuildfile.h>
#include <iostream>

int main() {
    TTimeBase time;
    std::cout << time.GetBaseTimeUnitStr() << ", shown in " << time.GetDisplayTimeUnitStr() << "\n";
    TUnit unit = UNIT_PS;
    if (TTimeBase::GetTimeUnitFromString("fs", &unit)) time.SetBaseTimeUnit(unit);
    std::cout << time.GetBaseTimeUnitStr() << "\n"
              << "hours: " << TTimeBase::GetTimeUnitFromString("hours", &unit) << "\n";
    return 0;
}
