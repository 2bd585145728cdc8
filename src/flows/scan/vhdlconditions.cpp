#include "flows/scan/vhdlconditions.h"
#include "flows/scan/vhdlnames.h"
#include <algorithm>
#include <array>

namespace {

enum TTruth : int { TRUTH_FALSE = 0, TRUTH_UNKNOWN = 1, TRUTH_TRUE = 2 };

TTruth TruthOf(bool value) {
    return value ? TRUTH_TRUE : TRUTH_FALSE;
}
TTruth Not(TTruth value) {
    return static_cast<TTruth>(TRUTH_TRUE - value);
}
TTruth And(TTruth a, TTruth b) {
    return std::min(a, b);
}
TTruth Or(TTruth a, TTruth b) {
    return std::max(a, b);
}
TTruth Xor(TTruth a, TTruth b) {
    return a == TRUTH_UNKNOWN || b == TRUTH_UNKNOWN ? TRUTH_UNKNOWN : TruthOf(a != b);
}
TTruth Xnor(TTruth a, TTruth b) {
    return Not(Xor(a, b));
}

using TOperator = TTruth (*)(TTruth, TTruth);
struct TOperatorRow {
    std::string_view Name;
    TOperator Operator;
};
constexpr std::array kOperators = {TOperatorRow{"and", And}, TOperatorRow{"or", Or},
                                   TOperatorRow{"xor", Xor}, TOperatorRow{"xnor", Xnor}};

struct TRelationRow {
    std::string_view Name;
    bool (*Holds)(int order);
};
// The longer ones first.
constexpr std::array kRelations = {
    TRelationRow{"/=", [](int order) { return order != 0; }},
    TRelationRow{"<=", [](int order) { return order <= 0; }},
    TRelationRow{">=", [](int order) { return order >= 0; }},
    TRelationRow{"=", [](int order) { return order == 0; }},
    TRelationRow{"<", [](int order) { return order < 0; }},
    TRelationRow{">", [](int order) { return order > 0; }},
};

/// One condition, up to "then". Operators of one level are taken from left to right: the language
/// wants parentheses around different ones.
class TCondition {
public:
    TCondition(std::string_view text, const std::vector<TScanDefine>& defines)
        : Rest(text), Defines(defines) {}

    TTruth Decide() {
        while (IsWellFormed && !IsAtThen()) ReadItem();
        if (!IsWellFormed || Levels.size() != 1 || IsValueWanted()) return TRUTH_UNKNOWN;
        return Levels[0].Value;
    }

private:
    struct TLevel {
        TTruth Value = TRUTH_FALSE;
        TOperator Operator = Or;  // what joins the next value
        bool IsNegated = false;   // the next value is
    };
    bool IsValueWanted() const { return Levels.back().Operator != nullptr; }

    void SkipBlanks() { Rest.remove_prefix(std::min(Rest.find_first_not_of(" \t"), Rest.size())); }

    bool Skip(std::string_view mark) {
        if (!Rest.starts_with(mark)) return false;
        Rest.remove_prefix(mark.size());
        return true;
    }

    static bool IsWordChar(char c) {
        return (FoldAscii(c) >= 'a' && FoldAscii(c) <= 'z') || (c >= '0' && c <= '9') || c == '_';
    }

    std::string_view ReadWord() {
        std::size_t length = 0;
        while (length < Rest.size() && IsWordChar(Rest[length])) ++length;
        const std::string_view word = Rest.substr(0, length);
        Rest.remove_prefix(length);
        return word;
    }

    bool IsAtThen() {
        SkipBlanks();
        return Rest.empty() || Rest.starts_with("--") || IsVhdlWord(Rest.substr(0, 4), "then");
    }

    void ReadItem() {
        if (Skip("(")) {
            IsWellFormed = IsValueWanted();
            Levels.emplace_back();
        } else if (Skip(")")) {
            IsWellFormed = Levels.size() > 1 && !IsValueWanted();
            if (!IsWellFormed) return;
            const TTruth value = Levels.back().Value;
            Levels.pop_back();
            AddValue(value);
        } else {
            ReadWordItem(ReadWord());
        }
    }

    void ReadWordItem(std::string_view word) {
        if (IsVhdlWord(word, "not")) {
            Levels.back().IsNegated = !Levels.back().IsNegated;
            return;
        }
        if (IsValueWanted()) {
            IsWellFormed = !word.empty();
            if (IsWellFormed) AddValue(ReadRelation(word));
            return;
        }
        IsWellFormed = false;
        for (const TOperatorRow& row : kOperators)
            if (IsVhdlWord(word, row.Name)) {
                Levels.back().Operator = row.Operator;
                IsWellFormed = true;
            }
    }

    void AddValue(TTruth value) {
        TLevel& level = Levels.back();
        level.Value = level.Operator(level.Value, level.IsNegated ? Not(value) : value);
        level.Operator = nullptr;
        level.IsNegated = false;
    }

    TTruth ReadRelation(std::string_view name) {
        SkipBlanks();
        for (const TRelationRow& relation : kRelations) {
            if (!Skip(relation.Name)) continue;
            SkipBlanks();
            const std::string value = ReadString();
            for (const TScanDefine& define : Defines)
                if (FoldVhdlName(define.Name) == FoldVhdlName(name))
                    return TruthOf(relation.Holds(define.Value.compare(value)));
            return TRUTH_UNKNOWN;
        }
        IsWellFormed = false;
        return TRUTH_UNKNOWN;
    }

    std::string ReadString() {
        std::string value;
        IsWellFormed = Skip("\"");
        while (!Rest.empty()) {
            if (Skip("\"\"")) {
                value += '"';
            } else if (Skip("\"")) {
                return value;
            } else {
                value += Rest.front();
                Rest.remove_prefix(1);
            }
        }
        IsWellFormed = false;
        return value;
    }

    std::string_view Rest;
    const std::vector<TScanDefine>& Defines;
    std::vector<TLevel> Levels = std::vector<TLevel>(1);
    bool IsWellFormed = true;
};

}  // namespace

void TVhdlConditions::Take(TOpen* open, std::string_view condition) const {
    open->IsTaken = false;
    if (!open->IsOuterTaken || open->IsDecided) return;
    const TTruth truth = TCondition(condition, Defines).Decide();
    open->IsTaken = truth != TRUTH_FALSE;
    open->IsDecided = truth == TRUTH_TRUE;
}

void TVhdlConditions::If(std::string_view condition) {
    TOpen open = {!IsSkipping(), false, false};
    Take(&open, condition);
    Open.push_back(open);
}

void TVhdlConditions::Elsif(std::string_view condition) {
    if (!Open.empty()) Take(&Open.back(), condition);
}

void TVhdlConditions::Else() {
    if (Open.empty()) return;
    TOpen& open = Open.back();
    open.IsTaken = open.IsOuterTaken && !open.IsDecided;
    open.IsDecided = true;
}

void TVhdlConditions::End() {
    if (!Open.empty()) Open.pop_back();
}
