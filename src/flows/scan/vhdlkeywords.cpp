#include "flows/scan/vhdlkeywords.h"
#include "flows/scan/vhdlnames.h"
#include <array>
#include <cstddef>

namespace {

struct TRow {
    std::string_view Name;
    TVhdlKeyword Keyword;
};

constexpr TRow kKeywords[] = {
    {"abs", TVhdlKeyword::Abs},
    {"access", TVhdlKeyword::Access},
    {"after", TVhdlKeyword::After},
    {"alias", TVhdlKeyword::Alias},
    {"all", TVhdlKeyword::All},
    {"and", TVhdlKeyword::And},
    {"architecture", TVhdlKeyword::Architecture},
    {"array", TVhdlKeyword::Array},
    {"assert", TVhdlKeyword::Assert},
    {"attribute", TVhdlKeyword::Attribute},
    {"begin", TVhdlKeyword::Begin},
    {"block", TVhdlKeyword::Block},
    {"body", TVhdlKeyword::Body},
    {"buffer", TVhdlKeyword::Buffer},
    {"bus", TVhdlKeyword::Bus},
    {"case", TVhdlKeyword::Case},
    {"component", TVhdlKeyword::Component},
    {"configuration", TVhdlKeyword::Configuration},
    {"constant", TVhdlKeyword::Constant},
    {"disconnect", TVhdlKeyword::Disconnect},
    {"downto", TVhdlKeyword::Downto},
    {"else", TVhdlKeyword::Else},
    {"elsif", TVhdlKeyword::Elsif},
    {"end", TVhdlKeyword::End},
    {"entity", TVhdlKeyword::Entity},
    {"exit", TVhdlKeyword::Exit},
    {"file", TVhdlKeyword::File},
    {"for", TVhdlKeyword::For},
    {"function", TVhdlKeyword::Function},
    {"generate", TVhdlKeyword::Generate},
    {"generic", TVhdlKeyword::Generic},
    {"group", TVhdlKeyword::Group},
    {"guarded", TVhdlKeyword::Guarded},
    {"if", TVhdlKeyword::If},
    {"impure", TVhdlKeyword::Impure},
    {"in", TVhdlKeyword::In},
    {"inertial", TVhdlKeyword::Inertial},
    {"inout", TVhdlKeyword::Inout},
    {"is", TVhdlKeyword::Is},
    {"label", TVhdlKeyword::Label},
    {"library", TVhdlKeyword::Library},
    {"linkage", TVhdlKeyword::Linkage},
    {"literal", TVhdlKeyword::Literal},
    {"loop", TVhdlKeyword::Loop},
    {"map", TVhdlKeyword::Map},
    {"mod", TVhdlKeyword::Mod},
    {"nand", TVhdlKeyword::Nand},
    {"new", TVhdlKeyword::New},
    {"next", TVhdlKeyword::Next},
    {"nor", TVhdlKeyword::Nor},
    {"not", TVhdlKeyword::Not},
    {"null", TVhdlKeyword::Null},
    {"of", TVhdlKeyword::Of},
    {"on", TVhdlKeyword::On},
    {"open", TVhdlKeyword::Open},
    {"or", TVhdlKeyword::Or},
    {"others", TVhdlKeyword::Others},
    {"out", TVhdlKeyword::Out},
    {"package", TVhdlKeyword::Package},
    {"port", TVhdlKeyword::Port},
    {"postponed", TVhdlKeyword::Postponed},
    {"procedure", TVhdlKeyword::Procedure},
    {"process", TVhdlKeyword::Process},
    {"pure", TVhdlKeyword::Pure},
    {"range", TVhdlKeyword::Range},
    {"record", TVhdlKeyword::Record},
    {"register", TVhdlKeyword::Register},
    {"reject", TVhdlKeyword::Reject},
    {"rem", TVhdlKeyword::Rem},
    {"report", TVhdlKeyword::Report},
    {"return", TVhdlKeyword::Return},
    {"rol", TVhdlKeyword::Rol},
    {"ror", TVhdlKeyword::Ror},
    {"select", TVhdlKeyword::Select},
    {"severity", TVhdlKeyword::Severity},
    {"shared", TVhdlKeyword::Shared},
    {"signal", TVhdlKeyword::Signal},
    {"sla", TVhdlKeyword::Sla},
    {"sll", TVhdlKeyword::Sll},
    {"sra", TVhdlKeyword::Sra},
    {"srl", TVhdlKeyword::Srl},
    {"subtype", TVhdlKeyword::Subtype},
    {"then", TVhdlKeyword::Then},
    {"to", TVhdlKeyword::To},
    {"transport", TVhdlKeyword::Transport},
    {"type", TVhdlKeyword::Type},
    {"unaffected", TVhdlKeyword::Unaffected},
    {"units", TVhdlKeyword::Units},
    {"until", TVhdlKeyword::Until},
    {"use", TVhdlKeyword::Use},
    {"variable", TVhdlKeyword::Variable},
    {"wait", TVhdlKeyword::Wait},
    {"when", TVhdlKeyword::When},
    {"while", TVhdlKeyword::While},
    {"with", TVhdlKeyword::With},
    {"xnor", TVhdlKeyword::Xnor},
    {"xor", TVhdlKeyword::Xor},
};

constexpr std::size_t kShortest = 2;
constexpr std::size_t kLongest = 13;
constexpr std::size_t kSlots = 512;

constexpr std::size_t SlotOf(std::string_view word) {
    const auto byte = [word](std::size_t at) {
        return static_cast<std::size_t>(static_cast<unsigned char>(FoldAscii(word[at])));
    };
    return (word.size() * 53 + byte(0) * 7 + byte(1) * 31 + byte(word.size() - 1) * 3) % kSlots;
}

/// Open addressing: a row lies in its slot or in one of the next, before an empty one.
constexpr auto MakeSlots() {
    std::array<unsigned char, kSlots> slots{};
    unsigned char number = 0;
    for (const TRow& row : kKeywords) {
        std::size_t slot = SlotOf(row.Name);
        while (slots[slot] != 0) slot = (slot + 1) % kSlots;
        slots[slot] = ++number;
    }
    return slots;
}
constexpr auto kRowsBySlot = MakeSlots();

}  // namespace

TVhdlKeyword FindVhdlKeyword(std::string_view word) {
    if (word.size() < kShortest || word.size() > kLongest) return TVhdlKeyword::None;
    for (std::size_t slot = SlotOf(word); kRowsBySlot[slot] != 0; slot = (slot + 1) % kSlots) {
        const TRow& row = kKeywords[kRowsBySlot[slot] - 1];
        if (IsVhdlWord(word, row.Name)) return row.Keyword;
    }
    return TVhdlKeyword::None;
}

std::string_view GetVhdlKeywordName(TVhdlKeyword keyword) {
    const auto row = static_cast<std::size_t>(keyword);
    return row == 0 ? std::string_view() : kKeywords[row - 1].Name;
}
