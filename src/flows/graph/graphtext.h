#pragma once
#include <string>
#include <string_view>

/// `text` as UTF-8 that every format can hold: a control character is the picture of it (U+240A for
/// a line feed), and a byte that is no UTF-8 is U+FFFD.
std::string ShownText(std::string_view text);

/// A quoted string of Graphviz, which takes `&lt;` for a character and `\l` for a line end.
std::string DotText(std::string_view text);

/// A quoted JSON string without characters that end a script element.
std::string JsonText(std::string_view text);

/// For text and quoted attributes of HTML.
std::string HtmlText(std::string_view text);
