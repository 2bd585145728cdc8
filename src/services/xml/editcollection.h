#pragma once
#include "services/xml/documentlayout.h"
#include "services/xml/textedit.h"
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// Edits of one text, collected in any order, among them elements that move with what is edited in
/// them. Those at one place stay in the order in which they are made.
class TEditCollection {
public:
    /// Text to be inserted, then an element that moves there; an empty range without one.
    struct TPart {
        std::string Text;
        TTextRange Moved;
    };

    /// `text` must outlive the object.
    explicit TEditCollection(std::string_view text) : Text(text) {}

    void Replace(std::size_t begin, std::size_t removed, std::string text) {
        Insert(begin, removed, {{std::move(text), {}}});
    }
    /// The old place of an element that moves is removed by the caller. An element must be moved
    /// before those in it are.
    void Insert(std::size_t begin, std::size_t removed, std::vector<TPart> parts);

    /// The edits in the order of their places. False when two of them overlap.
    bool Take(std::vector<TTextEdit>* edits);

private:
    struct TPending {
        std::size_t Removed;
        std::vector<TPart> Parts;
    };
    using TEdits = std::multimap<std::size_t, TPending>;  // by place

    bool Print(TEdits::const_iterator begin, TEdits::const_iterator end,
               std::vector<TTextEdit>* edits) const;
    bool PrintMoved(TTextRange range);

    std::string_view Text;
    TEdits Edits;
    std::vector<TTextRange> Moved;
    std::unordered_map<std::size_t, std::string> MovedTexts;  // by their places
};
