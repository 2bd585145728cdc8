#pragma once
#include "services/base/api.h"
#include <compare>
#include <string>
#include <string_view>

/// The text type of the design database: a byte string, compared byte by byte.
class HDLBUILDFILE_API TRope {
public:
    TRope() = default;
    /// Null counts as empty. Implicit: texts pass as ropes everywhere.
    TRope(const char* text) : Text(text ? text : "") {}
    TRope(std::string text) : Text(std::move(text)) {}

    /// Valid until the rope changes or dies.
    const char* c_str() const { return Text.c_str(); }
    const std::string& Str() const { return Text; }
    bool IsEmpty() const { return Text.empty(); }
    std::size_t Length() const { return Text.size(); }

    friend bool operator==(const TRope&, const TRope&) = default;
    friend std::strong_ordering operator<=>(const TRope& a, const TRope& b) {
        return a.Text.compare(b.Text) <=> 0;
    }

private:
    std::string Text;
};
