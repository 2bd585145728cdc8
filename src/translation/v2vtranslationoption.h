#pragma once
#include "services/xml/xmllist.h"
#include <string>

class TV2VTranslationOptionsList;

// The interface has no slot for a destructor: callers were built against a table without one.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// One switch of a translator that the user can turn on or off. The dash option is its key.
///
/// The destructor is not virtual. TV2VTranslationOptionsList::Flush finds the exact type; whoever
/// else deletes an option must do so through its own class.
class HDLBUILDFILE_API TV2VTranslationOption {
public:
    /// Copies the texts; null counts as empty. Example: "-ncc", "-No_Component_Check, -ncc",
    /// a help text, true.
    TV2VTranslationOption(const char* dashOption, const char* optionString, const char* description,
                          bool enabled);
    /// Copies every field, the owning list included.
    TV2VTranslationOption(const TV2VTranslationOption&) = default;
    TV2VTranslationOption& operator=(const TV2VTranslationOption&) = default;
    ~TV2VTranslationOption();

    /// Whether the option carries arguments, be they strings or files.
    virtual bool HasStringOption();
    /// Pushes the option's element. A switch that no reader could find under an element name, not
    /// beginning with '-' or holding a character that no name may hold, logs a check and pushes
    /// nothing; an empty one just pushes nothing. Null: nothing.
    virtual void WriteToFile(TXMLList* document);
    /// Reads the element at `elemI`, whatever its name, though another's fails a check. Moves past
    /// the START and the arguments, which are added to those already there. Always true.
    virtual bool ReadFromFile(DListIterator<TElement*>& elemI);
    /// The arguments as the command line holds them; "" for an option without. Lives until the
    /// next call for any option on the same thread.
    virtual const char* GetListDisplayString();
    /// The arguments as the user edits them; as above.
    virtual const char* GetListString();

    /// These three live as long as the option.
    const char* GetDashOption() const { return DashOption.c_str(); }
    const char* GetOptionString() const { return OptionString.c_str(); }
    const char* GetDescription() const { return Description.c_str(); }

    bool IsEnabled() const { return Enabled; }
    void SetEnabled(bool enabled) { Enabled = enabled; }

    /// The list that the option was last added to, which may have been destroyed since; null
    /// before.
    TV2VTranslationOptionsList* GetOwningList() const { return OwningList; }
    void SetOwningList(TV2VTranslationOptionsList* list) { OwningList = list; }

    /// Whether `text` is the dash option, byte for byte; null counts as empty.
    bool IsMatch(const char* text) const;

    /// "" when disabled; else the dash option, one blank, and GetListDisplayString(), so an option
    /// without arguments ends in a blank.
    std::string GetCommandLineOption();

private:
    std::string DashOption;
    std::string OptionString;
    std::string Description;
    bool Enabled;
    TV2VTranslationOptionsList* OwningList = nullptr;
};

#pragma GCC diagnostic pop
