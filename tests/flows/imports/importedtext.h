#pragma once
#include "flows/imports/importformats.h"
#include "flows/imports/importreader.h"
#include "services/hdl/hdllanguage.h"
#include "tests/support/temporaryfolder.h"
#include <algorithm>
#include <string>
#include <vector>

/// Paths in it as the tests write them: relative to it, with '/'.
class ImportFolder : public TemporaryFolder {
public:
    std::string TextOf(std::string path) const {
        std::string folder = Path() + "/";
        std::replace(path.begin(), path.end(), '\\', '/');
        std::replace(folder.begin(), folder.end(), '\\', '/');
        return path.starts_with(folder) ? path.substr(folder.size()) : path;
    }

    TImported Import(const char* format, const std::vector<std::string>& files,
                     const std::string& relativeTo = "") const {
        TImportRequest request{
            {}, relativeTo, [this](const std::string& path) { return TextOf(path); }};
        for (const std::string& file : files) request.Files.push_back(Path(file));
        return ::Import(*FindImportFormat(format), request);
    }

    /// What the record holds, an entry a line with its place, then what is told.
    std::string TextOf(const TImported& imported) const {
        std::string text;
        const auto add = [&text](const TImportPlace& place, const std::string& line) {
            text += GetSourcePlaceText(place) + " " + line + "\n";
        };
        for (const TImportedSource& source : imported.Sources) {
            std::string line = std::string(GetStringFromHdlLanguage(source.Language)) + " " +
                               source.Library + " " + TextOf(source.Path);
            if (source.IsLibraryFile) line += " library file";
            add(source.Place, line);
        }
        for (const TImportedTop& top : imported.Tops)
            add(top.Place, std::string("top ") + GetStringFromHdlLanguage(top.Top.Language) + " " +
                               top.Top.Library + "." + top.Top.Entity);
        for (const auto& [language, settings] : imported.Settings) AddTo(settings, &text);
        for (const TDiagnostic& diagnostic : imported.Diagnostics)
            add(diagnostic.Source,
                GetDiagnosticId(diagnostic.Code) + " " + GetDiagnosticText(diagnostic));
        return text;
    }

    /// Writes `text` as the file "in/list", imports it, and leaves out that sources are missing.
    std::string ReadText(const char* format, const std::string& text) const {
        Write("in/list", text);
        TImported imported = Import(format, {"in/list"});
        std::erase_if(imported.Diagnostics, [](const TDiagnostic& diagnostic) {
            return diagnostic.Code == DIAGNOSTIC_IMPORTED_FILE_MISSING;
        });
        return TextOf(imported);
    }

private:
    void AddTo(const TImportedSettings& settings, std::string* text) const {
        const auto add = [&](const char* what, const std::vector<TImportedText>& texts) {
            for (const TImportedText& each : texts)
                *text +=
                    GetSourcePlaceText(each.Place) + " " + what + " " + TextOf(each.Text) + "\n";
        };
        add("include", settings.IncludeDirectories);
        add("library folder", settings.LibraryDirectories);
        add("extension", settings.LibraryExtensions);
        for (const TImportedDefine& define : settings.Defines)
            add("define", {{define.Define.Name + "=" + define.Define.Value, define.Place}});
        if (settings.Standard) add("standard", {*settings.Standard});
        if (settings.Delay)
            *text += std::string("delays ") + GetDelayTypeFromEnum(*settings.Delay) + "\n";
        for (const auto& step : settings.Options)
            for (const TImportedOption& option : step)
                add("option", {{::TextOf(option), option.Place}});
    }
};
