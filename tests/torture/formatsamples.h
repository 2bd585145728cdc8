#pragma once
#include <string>
#include <vector>

/// A format that is read, with a document in it.
struct TFormatSample {
    const char* Format;  ///< as `import` names it
    const char* File;    ///< a name that suits it
    std::string Text;
};

/// One for each format that `import` reads.
const std::vector<TFormatSample>& GetImportSamples();

/// A build file with an element of every kind and `sources` sources.
std::string BuildSample(int sources);
/// A project file with two configurations, and a section of another component.
std::string ProjectSample();
/// A file of simulators with two tools.
std::string SimulatorsSample();
/// An INI file with comments, two sections, and values in and without quotes.
std::string IniSample();
