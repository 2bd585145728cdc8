#pragma once
#include "services/xml/xmlstream.h"
#include "settings/projectsimlanguageconfig.h"
#include <cstdlib>
#include <string>

/// Names the C++ compiler in the environment for its lifetime; "" names none.
class CppCompiler {
public:
    explicit CppCompiler(const char* name) { Set(name); }
    ~CppCompiler() { Set(""); }

private:
    static void Set(const char* value) {
#ifdef _WIN32
        _putenv_s("ORVANE_CPP_COMPILER", value);
#else
        setenv("ORVANE_CPP_COMPILER", value, 1);
#endif
    }
};

struct TOptionTexts {
    std::string Build{};
    std::string Linker{};
    std::string Runtime{};
};

inline std::string TextOf(const TOptionTexts& texts) {
    return "<" + texts.Build + "><" + texts.Linker + "><" + texts.Runtime + ">";
}

inline void SetOptions(TProjectSimLanguageConfig& settings, const TOptionTexts& texts) {
    settings.SetBuildOptions(texts.Build.c_str());
    settings.SetLinkerOptions(texts.Linker.c_str());
    settings.SetRuntimeOptions(texts.Runtime.c_str());
}

inline TOptionTexts StoredOptions(const TProjectSimLanguageConfig& settings) {
    return {settings.GetBuildOptions(), settings.GetLinkerOptions(), settings.GetRuntimeOptions()};
}

/// The text of the element called `name`; "absent" without one.
inline std::string TextIn(const TXMLList& list, const char* name) {
    TElementIterator element(list);
    if (!TXMLList::FindNext(element, name, nullptr)) return "absent";
    ++element;
    return element.Current()->Text.Str();
}

inline TOptionTexts OptionsIn(const TXMLList& list) {
    return {TextIn(list, "BuildOptions"), TextIn(list, "LinkerOptions"),
            TextIn(list, "RuntimeOptions")};
}

/// What a build file gets, with flags as letters: D line debug, F force mode 3.
inline TOptionTexts WrittenOptions(TProjectSimLanguageConfig& settings, THdlLanguage language,
                                   const std::string& flags) {
    TXMLList list;
    settings.WriteToProjectFile(&list, language, true, flags.find('D') != std::string::npos,
                                flags.find('F') != std::string::npos);
    return OptionsIn(list);
}
