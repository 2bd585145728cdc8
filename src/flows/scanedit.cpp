#include "flows/scanedit.h"
#include "buildfile/hdlbuildfilexmllist.h"
#include "buildfile/simwraphdlbuildfile.h"
#include "flows/editrules.h"
#include "flows/listedsources.h"
#include "flows/textreaders.h"
#include "projectfiles/ihdlsourcefile.h"
#include "projectfiles/ihdlsourcefilelist.h"
#include "services/names/isfilename.h"

namespace {

using TDifferences = std::vector<TDependencyDifference>;

/// Of the element of one source, its beginning with the path.
void PushNamed(IHdlSourceFile* source, const ISFileName* buildFile, TXMLList* document) {
    TIHdlSourceFileList one;
    one.AddSourceFile(source, false);
    TXMLList element;
    one.WriteToFile(&element, "SourceFile", buildFile);
    document->Push(TElement::START, "SourceFile", {});
    for (DListIterator<TElement*> part(element); part.NotAtTail(); ++part)
        if (part.Current()->ElemType == TElement::TEXT)
            document->Push(TElement::TEXT, {}, part.Current()->Text.Str());
}

/// What may differ: the top-level components, and the sources with their dependencies.
void PushChanging(const TBuildScan& scan, const TDifferences& differences, THdlBuildFile& build,
                  TXMLList* document) {
    document->Push(TElement::START, "HdlBuildFile", {});
    build.WriteTopLevelComponentNames(document);
    THdlLanguage group = LANGUAGE_NONE;
    const auto endGroup = [&] {
        if (group != LANGUAGE_NONE) document->Push(TElement::END, "SourceFileGroup", {});
    };
    for (const TDependencyDifference& difference : differences) {
        const TScannedSource& source = scan.GetSources()[difference.Source];
        if (source.Group != group) {
            endGroup();
            group = source.Group;
            const TAttributeView language[] = {{"Language", GetStringFromHdlLanguage(group)}};
            document->Push(TElement::START, "SourceFileGroup", {}, language);
        }
        PushNamed(source.Source, build.GetFileName(), document);
        source.Source->GetDependencyList()->WriteToFile(document, "Dependency",
                                                        build.GetFileName());
        document->Push(TElement::END, "SourceFile", {});
    }
    endGroup();
    document->Push(TElement::END, "HdlBuildFile", {});
}

/// All that a reader finds in a build, as a text.
std::string PrintAll(THdlBuildFile& build) {
    THdlBuildFileXMLList rest(nullptr);
    rest.SetFileName(build.GetFileName()->Canonical(false));
    build.WriteFile(&rest);
    std::string text;
    rest.WriteToText(&text, nullptr);
    // A save leaves out the groups that are not compiled.
    for (const TListedSource& listed : ListSources(build)) {
        const IHdlSourceFile& source = *listed.File;
        (text += std::to_string(listed.Group)) += source.IsLibrary() ? " library " : " ";
        ((text += source.GetPrecompiledLibraryGroupName()) += ' ') +=
            source.GetFileName()->Canonical(false);
        for (const IHdlSourceFile* const dependency : *source.GetDependencyList())
            (text += '\n') += dependency->GetFileName()->Canonical(false);
        text += '\n';
    }
    return text;
}

}  // namespace

void ApplyScan(const TBuildScan& scan, const TScanChanges& changes, THdlBuildFile* build) {
    for (const TDependencyDifference& difference : changes.Differences) {
        IHdlSourceFile& source = *scan.GetSources()[difference.Source].Source;
        for (const TLinkedFile& linked : difference.Lacking)
            source.AddDependency(scan.GetSources()[linked.File].Source);
        for (IHdlSourceFile* const dependency : difference.Unexplained)
            source.RemoveDependency(dependency);
    }
    for (const TScannedTop& top : changes.Tops)
        build->AddComponentName(top.Entity.c_str(), top.Architecture.c_str(), top.Library.c_str(),
                                top.Language);
}

std::string EditScanned(const TBuildScan& scan, const TScanChanges& changes, THdlBuildFile* build,
                        TEditedFile* file) {
    TXMLList base;
    TXMLList wanted;
    PushChanging(scan, changes.Differences, *build, &base);
    ApplyScan(scan, changes, build);
    PushChanging(scan, changes.Differences, *build, &wanted);
    const std::string all = PrintAll(*build);
    return file->Change(base, wanted, MakeBuildFileRules(file->GetFile()),
                        [&](const std::string& edited) {
                            TSimWrapHdlBuildFile found;
                            return ReadBuildText(edited, file->GetFile(), &found, nullptr) &&
                                   PrintAll(found) == all;
                        });
}
