#pragma once
#include <cstddef>
#include <string>
#include <string_view>

/// How the bytes of a document encode its characters, found from its first bytes and, for a
/// document that declares no encoding, from whether all of it is UTF-8.
struct TXMLEncoding {
    const char* Name = nullptr;  ///< to be imposed on the parser; null: the document says it itself
    const char* Refusal = nullptr;  ///< why the document cannot be read; null: it can
    std::size_t MarkLength = 0;     ///< bytes of the byte-order mark
    std::size_t UnitSize = 1;       ///< bytes of a code unit; 2 for UTF-16
    std::size_t LowByte = 0;        ///< where in a unit ASCII characters have their byte
};

/// Old files without a declared encoding that are not UTF-8 are in Windows-1252. A mark that the
/// declaration contradicts, and UTF-16 that neither a mark nor a declaration announces, are
/// refused.
TXMLEncoding DetectXMLEncoding(std::string_view document);

/// The encoding named by the XML declaration of a document of that encoding; "" without one. The
/// parser checks the declaration itself.
std::string GetDeclaredEncoding(std::string_view document, const TXMLEncoding& encoding);

/// Whether the parser takes letters in the names of a document of that encoding that it refuses in
/// UTF-8, which is what documents are written in: the ordinal indicators and the micro sign.
bool TakesMoreInNames(std::string_view document, const TXMLEncoding& encoding);

/// Whether a high surrogate of a document in UTF-16 lacks its low one. Each such unit is replaced
/// in `*refused`, a copy of the document, by a low surrogate: the parser refuses that at its place,
/// while it takes a high surrogate together with whatever follows.
bool HasLoneHighSurrogate(std::string_view document, const TXMLEncoding& encoding,
                          std::string* refused);

/// Sets `table[byte]` to the code point of each of the 256 bytes; false for an encoding that is
/// neither ISO-8859-1 nor Windows-1252 under one of their names.
bool FillEncodingTable(const char* name, int* table);

/// Whether the unit at `place` is the last one of a line: LF, CR and CR LF each end one.
bool EndsLine(std::string_view document, const TXMLEncoding& encoding, std::size_t place);

/// The line, and the column in bytes, of a place in the document; both 1-based, the mark not
/// counted. LF, CR and CR LF each end a line.
void LocateInDocument(std::string_view document, const TXMLEncoding& encoding, std::size_t place,
                      int* line, int* column);
