// Gives the linker every operation of the exported classes. Those that the compiler writes itself,
// and those defined inside their classes, are otherwise compiled only where they are called and not
// inlined: what the library exports would depend on the optimiser. Clang cannot be told to keep
// them.
#ifndef __clang__

#include "hdlbuildfile.h"
#include <new>
#include <type_traits>
#include <utility>

namespace {

/// Uses the construction, copy and destruction of T as a base, the only form that an abstract class
/// has, and for a whole object.
template <class T>
struct TUseOf : T {
    static constexpr bool kIsAbstract = std::is_abstract_v<T>;

    TUseOf() requires(kIsAbstract || std::is_default_constructible_v<T>) {}
    TUseOf(const TUseOf& other) requires(kIsAbstract || std::is_copy_constructible_v<T>)
        : T(other) {}
    TUseOf(TUseOf&& other) requires(kIsAbstract || std::is_move_constructible_v<T>)
        : T(std::move(other)) {}
    ~TUseOf() {}

    static void UseObject(T& object, T& other) {
        if constexpr (std::is_default_constructible_v<T>) ::new (&object) T;
        if constexpr (std::is_copy_constructible_v<T>) ::new (&object) T(std::as_const(other));
        if constexpr (std::is_move_constructible_v<T>) ::new (&object) T(std::move(other));
        if constexpr (std::is_copy_assignable_v<T>) object = std::as_const(other);
        if constexpr (std::is_move_assignable_v<T>) object = std::move(other);
        if constexpr (std::is_destructible_v<T>) object.T::~T();
    }
};

template struct TUseOf<ABaseSimToolCourierObserver>;
template struct TUseOf<ACorbaImpl>;
template struct TUseOf<AEmbeddedObserverMgr>;
template struct TUseOf<AHdbObjectObserver>;
template struct TUseOf<ASFileNameObserver>;
template struct TUseOf<BinaryLogMutex>;
template struct TUseOf<IBaseVisitor>;
template struct TUseOf<IBinaryLogSink>;
template struct TUseOf<IBuildManager>;
template struct TUseOf<ICorbaImpl>;
template struct TUseOf<ICorbaProjectSimGeneralSettingsImpl>;
template struct TUseOf<ICorbaProjectSimLanguageSettingsImpl>;
template struct TUseOf<ICorbaProjectSimSettingsConfigurationImpl>;
template struct TUseOf<IFileName>;
template struct TUseOf<IHdlSourceFile>;
template struct TUseOf<IMessageBox>;
template struct TUseOf<IObserverCaller>;
template struct TUseOf<IProgressObserver>;
template struct TUseOf<IProjectComponent>;
template struct TUseOf<ISFileName>;
template struct TUseOf<ISimulationResults>;
template struct TUseOf<TAttributeList>;
template struct TUseOf<TBaseSimTool>;
template struct TUseOf<TBaseSimToolServerClientCourier>;
template struct TUseOf<TBinaryLogDiagnosticGroup>;
template struct TUseOf<TBinaryLogFile>;
template struct TUseOf<TBinaryLogMessageOneArg>;
template struct TUseOf<TBinaryLogMessageTwoArgs>;
template struct TUseOf<TCheckSite>;
template struct TUseOf<TComponentName>;
template struct TUseOf<TComponentNameList>;
template struct TUseOf<TDListNodePool>;
template struct TUseOf<TDocumentEdit>;
template struct TUseOf<TElement>;
template struct TUseOf<TFileLock>;
template struct TUseOf<THdbSFileName>;
template struct TUseOf<THdbSFileNameList>;
template struct TUseOf<THdlBuildFile>;
template struct TUseOf<THdlBuildFileXMLList>;
template struct TUseOf<THdlLibrarySourceFileList>;
template struct TUseOf<THdlProjectDiagramFile>;
template struct TUseOf<THdlProjectFile>;
template struct TUseOf<THdlProjectFileList>;
template struct TUseOf<THdlProjectSourceFile>;
template struct TUseOf<THdlProjectStimulusResultsFile>;
template struct TUseOf<THdlProjectTemplateFile>;
template struct TUseOf<THdlProjectUserSourceFile>;
template struct TUseOf<THdlSourceFile>;
template struct TUseOf<THdlSourceFileList>;
template struct TUseOf<THdlTimingDiagramFileList>;
template struct TUseOf<THdlTimingDiagramTemplateFileList>;
template struct TUseOf<THdlUserSourceFileList>;
template struct TUseOf<THdlUtilitiesSourceFileList>;
template struct TUseOf<TIHdlSourceFileList>;
template struct TUseOf<TMyString>;
template struct TUseOf<TProgress>;
template struct TUseOf<TProjectComponent>;
template struct TUseOf<TProjectDiagramSimConfig>;
template struct TUseOf<THpjFile>;
template struct TUseOf<TProjectSimConfig>;
template struct TUseOf<TProjectSimConfigList>;
template struct TUseOf<TProjectSimGeneralConfig>;
template struct TUseOf<TProjectSimLanguageConfig>;
template struct TUseOf<TProjectSimSettings>;
template struct TUseOf<TProjectTemplateSimConfigList>;
template struct TUseOf<TPropCache>;
template struct TUseOf<TRope>;
template struct TUseOf<TServerConfigurationFileXMLList>;
template struct TUseOf<TSimToolSettings>;
template struct TUseOf<TSimTypeLanguageMap>;
template struct TUseOf<TSimWrapHdlBuildFile>;
template struct TUseOf<TSourceFileExtensions>;
template struct TUseOf<TSourceFileGroups>;
template struct TUseOf<TTBIdentifier>;
template struct TUseOf<TTimeBase>;
template struct TUseOf<TUtilFileName>;
template struct TUseOf<TV2VTranslationFileOption>;
template struct TUseOf<TV2VTranslationOption>;
template struct TUseOf<TV2VTranslationOptionsList>;
template struct TUseOf<TV2VTranslationStringOption>;
template struct TUseOf<TXMLList>;
template struct TUseOf<TXMLString>;
template struct TUseOf<hdb::IAccept>;
template struct TUseOf<hdb::IHDBBase>;

}  // namespace

#endif
