#pragma once
#include "translation/v2vtranslationoption.h"
#include <string>
#include <vector>

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"  // as its base

/// A switch with strings as arguments, for example "-rip" with a prefix. Nothing keeps an argument
/// from being listed twice.
class HDLBUILDFILE_API TV2VTranslationStringOption : public TV2VTranslationOption {
public:
    /// As TV2VTranslationOption, without arguments.
    TV2VTranslationStringOption(const char* dashOption, const char* optionString,
                                const char* description, bool enabled);

    bool HasStringOption() override;
    void WriteToFile(TXMLList* document) override;
    bool ReadFromFile(DListIterator<TElement*>& elemI) override;
    const char* GetListDisplayString() override;
    /// The arguments joined by single blanks.
    const char* GetListString() override;

    /// Whether an argument equals `text` exactly; null counts as empty.
    virtual bool FindString(const char* text);
    virtual void ClearList();
    /// Appends one argument unchanged, blanks included; null counts as empty.
    virtual void AddAnOption(const char* text);

    /// Replaces the arguments by the words of `text`, split at blanks; null just clears.
    void ParseAndPopulateList(const char* text);

private:
    std::vector<std::string> AdditionalOptions;
};

#pragma GCC diagnostic pop
