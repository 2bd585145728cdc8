#pragma once
#include <string>
#include <string_view>

/// A directory against which many names are taken: what most of them need is prepared once. The
/// texts that it returns as views are valid until the next question.
class TBaseDirectory {
public:
    /// No directory: paths stay as they are.
    TBaseDirectory() = default;
    /// `directory` in any form; "" is no directory.
    explicit TBaseDirectory(std::string_view directory);

    /// The canonical path of `relative`, a relative path, below the directory.
    std::string_view Resolve(std::string_view relative);
    /// As RelativeToDirectory makes `canonical` relative to it: a part of `canonical` where that
    /// will do.
    std::string_view MakeRelative(std::string_view canonical);

private:
    bool AppendPlain(std::string_view relative);

    std::string Text;
    std::string Buffer;  // the last result, unless it was a part of the question
    char Delimiter = '/';
    bool IsPlain = false;  // not one whose beginning may turn into something else
};
