#pragma once
#include "services/base/rope.h"
#include "services/hdl/hdllanguage.h"
#include <cstddef>
#include <string>

/// An HDL identifier, compared by the rule of its language.
///
/// VHDL: basic identifiers ignore the case of ASCII and Latin-1 letters; extended ones (`\a\`)
/// compare byte for byte and never equal a basic one; a text that is no legal basic identifier
/// counts as extended. Verilog: byte for byte, where `\a ` equals `a`. Other languages, and
/// identifiers of different languages: byte for byte.
class HDLBUILDFILE_API TTBIdentifier {
public:
    /// The empty identifier of no language.
    TTBIdentifier() = default;
    /// Copies `text` as typed in `language`, escaped or not; null counts as empty.
    TTBIdentifier(const char* text, THdlLanguage language);

    bool operator==(const TTBIdentifier& other) const;
    /// Equal for equal identifiers, also for those of different languages.
    std::size_t GetHash() const;

    THdlLanguage GetLanguage() const { return Language; }
    bool IsEmpty() const { return Content.empty(); }

    /// The text under which `language` reads this identifier back as an equal one; empty stays
    /// empty. The other three arguments are reserved: no effect.
    TRope GetEscapedName(THdlLanguage language, char reserved, bool, bool) const;

private:
    std::string Content;   // without the marks of an escaped or extended identifier
    std::string Compared;  // Content as equality sees it
    THdlLanguage Language = LANGUAGE_NONE;
    bool Extended = false;
};
