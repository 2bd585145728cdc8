#pragma once
#include "services/hdl/simulatortype.h"

/// Which languages a simulator runs, and each language's default simulator.
class HDLBUILDFILE_API TSimTypeLanguageMap {
public:
    /// Never null, never destroyed.
    static TSimTypeLanguageMap* instance();

    /// The languages of `type`, in a fixed order; empty when it supports none. Static.
    const std::vector<THdlLanguage>& GetHdlLanguageList(TSimulatorType type) const;
    /// SIM_NONE for a language without a default.
    TSimulatorType GetDefaultSimulator(THdlLanguage language) const;
    /// `type` when it supports `language`, else the language's default.
    TSimulatorType GetDefaultOrSupportedSimulator(THdlLanguage language, TSimulatorType type) const;

private:
    TSimTypeLanguageMap() = default;
};
