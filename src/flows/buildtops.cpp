#include "flows/buildtops.h"
#include "buildfile/hdlbuildfile.h"
#include "filenames/componentname.h"
#include "filenames/componentnamelist.h"
#include "services/hdl/hdllanguagetable.h"

namespace {

std::string EscapedName(const TTBIdentifier& identifier, THdlLanguage language) {
    return identifier.GetEscapedName(language, '-', false, false).Str();
}

}  // namespace

std::string PlainNameOf(const TBuildTop& top) {
    if (top.Language != LANGUAGE_VERILOG || !top.Entity.starts_with('\\')) return top.Entity;
    const std::size_t end = top.Entity.find_last_not_of(' ');
    return top.Entity.substr(1, end);
}

std::vector<TBuildTop> ListTops(const THdlBuildFile& build) {
    std::vector<TBuildTop> tops;
    for (const THdlLanguageRecord& record : GetHdlLanguageTable()) {
        const THdlLanguage language = record.Language;
        const TComponentNameList* const list = build.GetComponentNameList(language);
        if (!list) continue;
        for (const TComponentName* const name : *list)
            tops.push_back({language, name->GetDestinationLibraryName(),
                            EscapedName(name->GetEntity(), language),
                            EscapedName(name->GetArchitecture(), language)});
    }
    return tops;
}

bool AddTop(THdlBuildFile& build, const TBuildTop& top) {
    return build.AddComponentName(top.Entity.c_str(), top.Architecture.c_str(), top.Library.c_str(),
                                  top.Language);
}

bool HasTop(const THdlBuildFile& build, const TBuildTop& top) {
    const TComponentNameList* const list = build.GetComponentNameList(top.Language);
    return list &&
           list->IsNameInList({top.Entity.c_str(), top.Language},
                              {top.Architecture.c_str(), top.Language}, top.Library.c_str());
}

bool RemoveTop(THdlBuildFile& build, const TBuildTop& top) {
    if (!HasTop(build, top)) return false;
    TComponentNameList* const list = build.GetComponentNameList(top.Language);
    const TTBIdentifier entity(top.Entity.c_str(), top.Language);
    const TTBIdentifier architecture(top.Architecture.c_str(), top.Language);
    std::vector<TComponentName> kept;
    for (const TComponentName* const name : *list)
        if (!name->IsEqualTo(entity, architecture, top.Library)) kept.push_back(*name);
    list->Flush();
    for (const TComponentName& name : kept)
        list->AddComponentName(name.GetEntity(), name.GetArchitecture(),
                               name.GetDestinationLibraryName().c_str());
    return true;
}
