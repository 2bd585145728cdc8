#pragma once
#include "tests/settings/settingstext.h"

/// Name, general settings and every language of a configuration.
inline std::string TextOf(const TProjectSimConfig& configuration) {
    std::string text = "name=" + std::string(configuration.GetName()) + "\n" +
                       TextOf(*configuration.GetGeneralConfiguration());
    for (int language = 0; language <= 9; ++language)
        if (const auto* settings =
                configuration.GetProjectLanguageConfig(static_cast<THdlLanguage>(language)))
            text += "[" + std::to_string(language) + "] " + TextOf(*settings);
    return text;
}

/// What TextOf gives for a configuration that was reset with `debug`.
inline std::string ConfigurationDefaults(const std::string& name, bool debug) {
    const std::string define = debug ? "+define+_DEBUG" : "";
    const std::string start = "project=null vcd=null\ntool=";
    const std::string flags = " delay=1 toplevel vhdl93\n";
    const std::string texts = "output=<> additional=<> snapshot=<> destination=<work>\n";
    const std::string cpp =
        debug ? "build=</Zi /MDd /W3 /GR /GX /Od /GZ /D _DEBUG /c> "
                "linker=< /dll /debug /machine:I386 /PDB:NONE kernel32.lib> runtime=<>\n"
              : "build=</MD /W3 /GR /GX /D NDEBUG /c> "
                "linker=< /dll /machine:I386 /PDB:NONE kernel32.lib> runtime=<>\n";
    return "name=" + name + "\n" + kGeneralDefaults +  //
           "[0] " + start + "1" + flags +
           "include=<./>\nlibrary=<lib/verilog><lib>\nextensions=<.v><.vo>\n" + texts + "build=<" +
           define + "> linker=<> runtime=<>\n" +  //
           "[1] " + start + "4" + flags + "include=<./>\nlibrary=\nextensions=\n" + texts +
           "build=<" + define + "> linker=<> runtime=<>\n" +  //
           "[2] " + start + "10" + flags + "include=<./>\nlibrary=\nextensions=\n" + texts +
           "build=<> linker=<> runtime=<>\n" +  //
           "[4] " + start + "26" + flags + "include=\nlibrary=\nextensions=\n" + texts + cpp +
           "[7] " + start + "26" + flags + "include=\nlibrary=\nextensions=\n" + texts +
           "build=<> linker=<> runtime=<>\n";
}

/// `text` with `to` in the place of the first `from` behind the line that begins with `section`.
inline std::string Replaced(std::string text, const std::string& section, const std::string& from,
                            const std::string& to) {
    const auto place = text.find(from, text.find("\n" + section) + 1);
    if (place == std::string::npos) return "no " + from + " in " + text;
    return text.replace(place, from.size(), to);
}

/// The same for one that was read from the project file D:\p\x.hpj, whose directory resolves its
/// directories.
inline std::string ConfigurationDefaultsInProject(const std::string& name, bool debug) {
    std::string text = ConfigurationDefaults(name, debug);
    for (const char* section : {"[0]", "[1]", "[2]", "[4]", "[7]"})
        text = Replaced(text, section, "project=null", "project=D:\\p\\x.hpj");
    for (const char* section : {"[0]", "[1]", "[2]"})
        text = Replaced(text, section, "include=<./>", "include=<D:\\p>");
    return Replaced(text, "[0]", "<lib/verilog><lib>", "<D:\\p\\lib\\verilog><D:\\p\\lib>");
}

/// The names of a list's configurations, in order, the current one marked with a star.
template <class TList>
std::string NamesIn(const TList& list) {
    std::string names;
    for (const TProjectSimConfig* configuration : list.GetConfigurations())
        names += std::string("<") + configuration->GetName() +
                 (configuration == list.GetCurrentConfig() ? "*>" : ">");
    return names;
}

/// A configuration without settings, for a list to own.
inline TProjectSimConfig* NewConfiguration(const char* name) {
    auto* configuration = new TProjectSimConfig(nullptr);
    configuration->SetName(name);
    return configuration;
}
