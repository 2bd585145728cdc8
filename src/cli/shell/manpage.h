#pragma once
#include "cli/frame/command.h"
#include <string>
#include <vector>

/// The manual page of the tool, in the language of man(7): its description, its commands and their
/// exit statuses.
std::string ManPageOfTool(const std::vector<TCommand>& commands);
/// The manual page of one command with its verbs.
std::string ManPageOf(const TCommand& command);
