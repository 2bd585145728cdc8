#pragma once
#include "services/xml/xmllist.h"
#include <cstddef>
#include <string>
#include <vector>

class TProjectComponent;
class TV2VTranslationOption;
struct TV2VCommandLineOption;

/// The switches of one translator, in the order of its command line.
///
/// Copies share the option objects. Only Flush() and clear() delete options, whoever made them, and
/// leave copies with dangling pointers. The destructor and assignment just let go: dropped options
/// stay valid until the process ends or somebody deletes them.
class HDLBUILDFILE_API TV2VTranslationOptionsList {
public:
    /// An empty list. `component` is not owned and may be null; `tag` names the list's element in a
    /// file, for example "Verilog2VhdlTranslationOptions"; null counts as empty.
    TV2VTranslationOptionsList(TProjectComponent* component, const char* tag);
    TV2VTranslationOptionsList(const TV2VTranslationOptionsList& other);
    TV2VTranslationOptionsList& operator=(const TV2VTranslationOptionsList& other);
    ~TV2VTranslationOptionsList();

    /// Whether `list` points at a list that has not been destroyed; any pointer may be asked about.
    /// An option that a copy shares may outlive the list that owns it.
    static bool IsAlive(const TV2VTranslationOptionsList* list);

    TProjectComponent* GetComponent() const { return Component; }
    const char* GetTag() const { return Tag.c_str(); }

    /// Appends `option`, made with new, and makes this its owning list. False, with nothing changed
    /// and the option still the caller's, for null and for a switch that is already listed.
    bool AddOptionNoDup(TV2VTranslationOption* option);
    /// The same with a new option without arguments.
    bool AddOptionNoDup(const char* dash, const char* optionString, const char* description,
                        bool enabled);

    /// The first option of that switch, exact with case; null when there is none.
    TV2VTranslationOption* FindOption(const char* dash) const;
    /// False also for a switch that is not listed.
    bool IsOptionEnabled(const char* dash) const;

    std::vector<TV2VTranslationOption*>::const_iterator begin() const { return Options.begin(); }
    std::vector<TV2VTranslationOption*>::const_iterator end() const { return Options.end(); }
    std::size_t size() const { return Options.size(); }

    /// Deletes every option and empties the list. Not to be called while a copy is in use.
    void Flush();
    void clear() { Flush(); }

    /// The command-line texts of all options with one blank between neighbours; a disabled option
    /// keeps its blank. Lives until the next call for any list on the same thread.
    const char* GetCommandLineOptions() const;

    /// Reads options from inside the list's element, or from inside that of another list, up to its
    /// END, where `elemI` stays; stops as well at an element named by the tag and at the tail.
    /// Switches that are not listed are skipped. Options without an element keep their state, and
    /// arguments add to those already there. Always true.
    bool ReadFromFile(DListIterator<TElement*>& elemI);
    /// The same for the first element of `document` that the tag names, which may be absent.
    bool ReadFromFile(TXMLList* document);
    /// Pushes the list's element with the enabled options. A switch that the user disabled has no
    /// element, so it returns to the state of its catalogue when the file is read.
    void WriteToFile(TXMLList* document) const;

    /// Flushes `list` and fills it with one option for each of the first `count` rows of `table`. A
    /// row of unknown kind, or with a switch that is already listed, is left out. Null list:
    /// nothing.
    static void PopulateWithDefaultOptions(TV2VTranslationOptionsList* list,
                                           const TV2VCommandLineOption* table, int count);
    static void PopulateWithDefaultVerilog2VhdlOptions(TV2VTranslationOptionsList* list);
    static void PopulateWithDefaultVhdl2VerilogOptions(TV2VTranslationOptionsList* list);

private:
    void LetGo();

    std::vector<TV2VTranslationOption*> Options;
    std::string Tag;
    TProjectComponent* Component;
};
