#include "cli/frame/texts.h"
#include <algorithm>

namespace {

bool IsControl(unsigned char byte) {
    return byte < 0x20 || byte == 0x7F;
}

// U+0080 to U+009F in UTF-8. Alone, such a byte is no UTF-8 and no control character.
bool IsUpperControl(std::string_view text) {
    return text.size() > 1 && text[0] == '\xC2' && static_cast<unsigned char>(text[1]) >= 0x80 &&
           static_cast<unsigned char>(text[1]) <= 0x9F;
}

std::string Hexadecimal(unsigned char byte) {
    constexpr const char* kDigits = "0123456789ABCDEF";
    return {kDigits[byte >> 4], kDigits[byte & 15]};
}

std::string EscapeOf(unsigned char byte) {
    switch (byte) {
        case '\n':
            return "\\n";
        case '\t':
            return "\\t";
        case '\r':
            return "\\r";
        default:
            return "\\x" + Hexadecimal(byte);
    }
}

}  // namespace

std::string Escaped(std::string_view text, std::string_view kept) {
    std::string escaped;
    for (; !text.empty(); text.remove_prefix(1)) {
        const auto byte = static_cast<unsigned char>(text.front());
        if (IsUpperControl(text)) {
            text.remove_prefix(1);
            escaped += "\\u00" + Hexadecimal(static_cast<unsigned char>(text.front()));
        } else if (IsControl(byte) && kept.find(text.front()) == std::string_view::npos) {
            escaped += EscapeOf(byte);
        } else {
            escaped += text.front();
        }
    }
    return escaped;
}

void PrintLine(std::ostream& out, std::string_view line) {
    out << Escaped(line) << '\n';
}

void PrintDiff(std::string_view diff, std::ostream& out) {
    out << Escaped(diff, "\t\r\n");
}

void PrintWords(std::ostream& out, std::string_view words) {
    out << Escaped(words, "\t") << '\n';
}

void PrintFile(std::string_view text, std::ostream& out) {
    out << text;
}

void PrintFields(std::ostream& out, const std::vector<std::string>& fields) {
    for (const std::string& field : fields)
        out << (&field == &fields.front() ? "" : "\t") << Escaped(field);
    out << '\n';
}

void PrintWithNul(std::ostream& out, std::string_view text) {
    out << text << '\0';
}

void PrintTable(std::vector<std::vector<std::string>> rows, std::ostream& out) {
    std::vector<std::size_t> widths;
    for (auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) {
            row[i] = row[i].empty() ? "-" : Escaped(row[i]);
            widths[i] = std::max(widths[i], row[i].size());
        }
    }
    for (const auto& row : rows)
        for (std::size_t i = 0; i < row.size(); ++i)
            out << row[i]
                << (i + 1 < row.size() ? std::string(widths[i] + 2 - row[i].size(), ' ') : "\n");
}

void PrintNames(const std::vector<std::string>& names, const std::string& current,
                std::ostream& out) {
    for (const std::string& name : names) PrintLine(out, (name == current ? "* " : "  ") + name);
}
