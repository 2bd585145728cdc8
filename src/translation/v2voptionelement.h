#pragma once
#include "services/logging/binarylog.h"
#include "services/xml/xmlstream.h"
#include <memory>
#include <string>
#include <vector>

class TV2VTranslationOption;
class TV2VTranslationOptionsList;

// The element of one option, as the readers and writers of all kinds of options share it:
// <v2v-ncc Enabled="true"> with one <AdditionalOptions> for each argument.

/// The source named by every check of this folder.
inline constexpr const char* kV2VSourceName = "v2vtranslationoptions";
/// What a reader of an option checks; the lines tell the kinds of options apart.
inline constexpr const char* kOptionTagCondition = "elemI.Current()->Name == optionTag.c_str()";

/// The element's name for a switch.
std::string GetOptionTag(const char* dashOption);
/// The switch in an element's name, from its first '-' on; "" without one.
TMyString GetSwitchOfTag(const TMyString& name);

/// Pushes the whole element; nothing for a switch that cannot name one, see
/// TV2VTranslationOption::WriteToFile.
void PushOption(TXMLList* document, const TV2VTranslationOption& option,
                const std::vector<std::string>& arguments);

/// Takes the state from the START at `elemI` and moves inside. Reports to `tagCheck` when the
/// element is another's. At the tail nothing happens.
void ReadOptionStart(TElementIterator& elemI, TV2VTranslationOption* option, TCheckSite& tagCheck);
/// The texts of the AdditionalOptions at `elemI`, untrimmed, "" for one without; moves past them.
std::vector<std::string> ReadAdditionalOptions(TElementIterator& elemI);

/// Deletes an option with its arguments: without a virtual destructor they go only with its exact
/// class.
void DeleteOption(TV2VTranslationOption* option);
struct TOptionEnd {
    void operator()(TV2VTranslationOption* option) const { DeleteOption(option); }
};
/// An option that is not handed over yet.
using TOwnOption = std::unique_ptr<TV2VTranslationOption, TOptionEnd>;

/// Whether all options are exactly of the library's classes: no override of a caller's sees the
/// document that they are written to.
bool AreOptionsOfTheLibrary(const TV2VTranslationOptionsList& options);

/// The texts with one blank between neighbours.
std::string JoinedByBlanks(const std::vector<std::string>& texts);
