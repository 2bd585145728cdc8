#pragma once
#include "services/xml/xmlsectionfile.h"
#include <string>
#include <vector>

class TV2VTranslationOption;

/// A switch whose state or arguments differ from its element in the build file.
struct TChangedSwitch {
    TV2VTranslationOption* Option;
    bool HasNewArguments;
};

/// The section of one translator's switches in a build file.
///
/// Only the elements of the switches that a command changed are replaced, added or removed:
/// switches that we do not know, disabled ones and the arguments of all others stay as they are.
class TTranslatorSection : public TXMLSectionFile {
public:
    // Readers of build files take a section at every depth.
    explicit TTranslatorSection(const char* tag)
        : TXMLSectionFile(tag, "HdlBuildFile", ANYWHERE), Tag(tag) {}

    /// To be called between ReadFile and ReplaceSection.
    void Change(const std::vector<TChangedSwitch>& changes);

protected:
    void FillSection() override;

private:
    bool ChangeElement(DListIterator<TElement*>& element, const TChangedSwitch& change,
                       bool isWritten);

    const char* Tag;
    TXMLList Changed;  // the section's elements
};

/// The arguments of the switch, each as a build file holds it.
std::vector<std::string> ArgumentsOf(TV2VTranslationOption& option);
