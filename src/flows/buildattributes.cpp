#include "flows/buildattributes.h"
#include "buildfile/hdlbuildfile.h"
#include "services/base/booltext.h"
#include <algorithm>

namespace {

THdlLanguage LanguageFrom(const std::string& text) {
    return GetHdlLanguageFromString(text.c_str());
}

template <void (TTimeBase::*Set)(TUnit)>
void SetTimeUnit(THdlBuildFile& build, const std::string& text) {
    TUnit unit = UNIT_PS;
    TTimeBase timeBase = *build.GetTimeBase();
    if (!TTimeBase::GetTimeUnitFromString(text.c_str(), &unit)) return;
    (timeBase.*Set)(unit);
    build.SetTimeBase(timeBase);
}

using TBuild = THdlBuildFile;
using TText = std::string;

// clang-format off
const std::vector<TBuildAttribute>* MakeBuildAttributes() {
    return new std::vector<TBuildAttribute>{
        {"TopLevelLanguage", BUILD_LANGUAGE,
         [](const TBuild& build) -> TText { return GetStringFromHdlLanguage(build.GetTopLanguage()); },
         [](TBuild& build, const TText& text) { build.SetTopLanguage(LanguageFrom(text)); }},
        {"HvlLanguage", BUILD_LANGUAGE,
         [](const TBuild& build) -> TText { return GetStringFromHdlLanguage(build.GetHvlLanguage()); },
         [](TBuild& build, const TText& text) { build.SetHvlLanguage(LanguageFrom(text)); }},
        {"HdlLanguage", BUILD_LANGUAGE,
         [](const TBuild& build) -> TText { return GetStringFromHdlLanguage(build.GetHdlLanguage()); },
         [](TBuild& build, const TText& text) { build.SetHdlLanguage(LanguageFrom(text)); }},
        {"BaseTimeUnit", BUILD_TIME_UNIT,
         [](const TBuild& build) -> TText { return build.GetTimeBase()->GetBaseTimeUnitStr(); },
         SetTimeUnit<&TTimeBase::SetBaseTimeUnit>},
        {"DisplayTimeUnit", BUILD_TIME_UNIT,
         [](const TBuild& build) -> TText { return build.GetTimeBase()->GetDisplayTimeUnitStr(); },
         SetTimeUnit<&TTimeBase::SetDisplayTimeUnit>},
        {"GenerationDestinationLibrary", BUILD_TEXT,
         [](const TBuild& build) -> TText { return build.GetGenerationDestinationLibrary(); },
         [](TBuild& build, const TText& text) { build.SetGenerationDestinationLibrary(text.c_str()); }},
        {"DestinationLibrary", BUILD_TEXT,
         [](const TBuild& build) -> TText { return build.GetDestinationLibrary(); },
         [](TBuild& build, const TText& text) { build.SetDestinationLibrary(text.c_str()); }},
        {"SnapshotName", BUILD_TEXT,
         [](const TBuild& build) -> TText { return build.GetSnapshotName(); },
         [](TBuild& build, const TText& text) { build.SetSnapshotName(text.c_str()); }},
        {"SingleFileOnlyBuild", BUILD_FLAG,
         [](const TBuild& build) -> TText { return ConvertBooleanToStringBool(build.IsSingleFileOnlyBuild()); },
         [](TBuild& build, const TText& text) { build.SetSingleFileOnlyBuild(ConvertStringBoolToBoolean(text.c_str())); }},
    };
}
// clang-format on

}  // namespace

const std::vector<TBuildAttribute>& GetBuildAttributes() {
    static const auto* attributes = MakeBuildAttributes();
    return *attributes;
}

const TBuildAttribute* FindBuildAttribute(const std::string& name) {
    for (const TBuildAttribute& attribute : GetBuildAttributes())
        if (name == attribute.Name) return &attribute;
    return nullptr;
}
