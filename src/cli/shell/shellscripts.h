#pragma once
#include <string>
#include <string_view>
#include <vector>

/// The shells that have a script, in alphabetic order.
std::vector<std::string> ShellNames();

/// The script that has the shell ask the tool how a command line goes on; "" for an unknown shell.
std::string CompletionScriptFor(std::string_view shell);
