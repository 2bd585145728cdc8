#pragma once
#include <cstddef>
#include <string_view>

/// Where the first start tag from `begin` on stands that has more than kMaxXMLAttributes
/// attributes, in a document of one byte a character; npos for none. It may also be a text that
/// looks like one, in a comment, say.
///
/// The parser keeps many times the bytes of a tag before it tells anybody of it.
std::size_t FindOverfullTag(std::string_view document, std::size_t begin);
