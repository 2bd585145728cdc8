#pragma once
#include "cli/frame/command.h"

/// The arguments of the commands about translator switches.
struct TTranslatorArguments : TCommonArguments {
    std::string Build;
    std::string Translator;
    std::vector<std::string> Words;
};

int RunTranslatorList(const TTranslatorArguments& arguments, const TToolStreams& streams);
int RunTranslatorEnable(const TTranslatorArguments& arguments, const TToolStreams& streams);
int RunTranslatorDisable(const TTranslatorArguments& arguments, const TToolStreams& streams);
int RunTranslatorCommandLine(const TTranslatorArguments& arguments, const TToolStreams& streams);

/// The row for "translator".
std::vector<TCommand> MakeTranslatorCommands();
