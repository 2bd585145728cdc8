#pragma once
#include "settings/projectsimconfiglist.h"

/// The settings configurations of a project, as its project file keeps them.
///
/// Where a name is looked up here (not in Find and SelectCurrentConfig), "Default" denotes the
/// first configuration, whatever its own name.
class HDLBUILDFILE_API TProjectSimSettings : public TProjectSimConfigList {
public:
    /// Null when there is none of that name.
    TProjectSimConfig* GetConfiguration(const char* name);
    const TProjectSimConfig* GetConfiguration(const char* name) const;
    /// Appends a copy of `from` under the name `to`; a missing source is a failed check and adds
    /// nothing. A configuration already called `to` stays, and is found first.
    void CopyConfiguration(const char* from, const char* to);

    /// The handle stays its owner's; null when there is none.
    const ISFileName* GetProjectFileName() const { return ProjectFile; }
    /// Stored and passed on to every configuration.
    void SetProjectFileName(const ISFileName* file);
    /// First renames the configuration of that name, if there is one, to the file's name without
    /// directory and extension.
    void SetProjectFileName(const ISFileName* file, const char* configurationName);

    /// Reads a "ProjectSettings" element and moves past its END. The first configuration read
    /// replaces the list; an element without configurations keeps it. Languages that a
    /// configuration of the file does not mention get their defaults. False when `element` is
    /// another one, a configuration cannot be read (the list then holds those before it and no
    /// current: do not save it), or the document ends first.
    bool ReadFromFile(DListIterator<TElement*>& element, const ISFileName* projectFile);
    /// Pushes one "ProjectSettings" element.
    void WriteToProjectFile(TXMLList* document);

private:
    bool ReadConfiguration(DListIterator<TElement*>& element, bool* isListNew);

    const ISFileName* ProjectFile = nullptr;
};
