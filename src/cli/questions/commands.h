#pragma once
#include "cli/frame/command.h"
#include "cli/frame/texts.h"

/// The arguments of the commands that answer questions about a build.
struct TQuestionArguments : TCommonArguments {
    std::string Build;
    std::string Other;        ///< build of `diff`
    bool SameFolder = false;  ///< take it as if it stood in the folder of the first
    TPathForm Paths;
    std::string Language;           ///< empty: all
    std::string Library;            ///< empty: all
    std::string File;               ///< of `deps`; empty: all
    std::string PathTo;             ///< the end of a chain; empty: none
    bool All = false;               ///< also what is needed through others
    bool Reverse = false;           ///< who needs it, not what it needs
    bool Units = false;             ///< scan the sources for the units that are needed
    std::vector<std::string> Tops;  ///< none: those of the build
    bool Rest = false;              ///< what is not needed
    bool Tsv = false;               ///< of `needed`
    bool Missing = false;           ///< only sources that do not exist
    std::size_t ListFormat = 0;     ///< its row in the table of formats
};

int RunList(const TQuestionArguments& arguments, const TToolStreams& streams);
int RunDiff(const TQuestionArguments& arguments, const TToolStreams& streams);
int RunNeeded(const TQuestionArguments& arguments, const TToolStreams& streams);
int RunDeps(const TQuestionArguments& arguments, const TToolStreams& streams);

/// An option for each format of `list`.
std::vector<TArgument> ListFormatArguments(TQuestionArguments& arguments);

/// One row for each of them, in the order of the help text.
std::vector<TCommand> MakeQuestionCommands();
