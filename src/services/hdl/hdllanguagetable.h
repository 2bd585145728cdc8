#pragma once
#include "services/hdl/simulatortype.h"

/// One row of the table of languages. The texts are static and never null.
struct THdlLanguageRecord {
    THdlLanguage Language;
    const char* Name;                         ///< stored in files, unique
    const char* DisplayName;                  ///< in messages and dialogs
    std::vector<const char*> OtherNames;      ///< further names that readers take for it
    std::vector<const char*> FileExtensions;  ///< of its sources, in lower case, with their dots
    TSimulatorType DefaultSimulator;          ///< SIM_NONE when it has none
    bool HasStoredSettings;   ///< settings configurations hold settings of it and files keep them
    bool IsValidForSettings;  ///< a configuration may hold settings of it, stored or not
    bool IsOffered;           ///< a language that users name; the other numbers are reserved
};

/// All languages, 0 to 9, in the order of their numbers. Static.
HDLBUILDFILE_API const std::vector<THdlLanguageRecord>& GetHdlLanguageTable();

/// The record of `language`; that of LANGUAGE_NONE for numbers outside 0 to 9. Static.
HDLBUILDFILE_API const THdlLanguageRecord& GetHdlLanguageRecord(THdlLanguage language);

/// The languages that every settings configuration holds and stores, in stored order. Static.
HDLBUILDFILE_API const std::vector<THdlLanguage>& GetStoredLanguages();
