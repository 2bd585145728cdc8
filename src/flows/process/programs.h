#pragma once
#include <string>
#include <vector>

/// The whole path of a program that one of the folders or the environment's search path has, in
/// that order; "" for none. The current directory is not searched unless the path has it.
std::string FindProgram(const std::string& name, const std::vector<std::string>& folders);

/// The whole path of the program that runs; "" when the system does not tell.
std::string GetOwnProgram();

/// The words as a line that the system hands over to a program the way they are: for the shell on
/// POSIX, as CreateProcess takes it on Windows.
std::string CommandLineOf(const std::vector<std::string>& words);
