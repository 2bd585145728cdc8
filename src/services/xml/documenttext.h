#pragma once
#include "services/xml/textedit.h"
#include <string>
#include <string_view>
#include <vector>

/// A document as UTF-8 text without its byte-order mark, whatever its encoding, and the way back:
/// edits of the text become edits of the document's bytes, so that everything that no edit touches
/// stays byte for byte.
class TDocumentText {
public:
    /// `document` must outlive the object. False, with GetReason(), for an encoding that the reader
    /// of documents does not accept and for bytes that are no characters in it.
    bool Decode(std::string_view document);
    const std::string& GetReason() const { return Reason; }

    /// The text, as long as the object and the document live.
    std::string_view GetText() const { return IsUtf8Document ? Document : Decoded; }

    /// `text` with a character reference for each character that the document's encoding lacks.
    std::string WithReferences(std::string_view text) const;

    /// The edits of the text as edits of the document. What they insert went through
    /// WithReferences.
    std::vector<TTextEdit> GetDocumentEdits(const std::vector<TTextEdit>& textEdits) const;

private:
    struct TCharacter {
        char32_t Code;
        unsigned char Byte;
    };

    bool Fail(const char* reason);
    bool DecodeUnits(std::size_t lowByte);
    bool DecodeBytes(const char* encoding);
    bool CanHold(char32_t character) const;
    const TCharacter* FindCharacter(char32_t code) const;
    std::string Encode(std::string_view text) const;
    std::size_t GetLengthInDocument(std::string_view text) const;

    std::string_view Document;  // without the mark
    std::size_t MarkLength = 0;
    bool IsUtf8Document = true;
    std::size_t UnitSize = 1;
    std::size_t LowByte = 0;
    std::vector<TCharacter> Characters;  // of an encoding of single bytes, in the order of codes
    std::string Decoded;
    std::string Reason;
};
