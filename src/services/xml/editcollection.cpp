#include "services/xml/editcollection.h"

#include "services/xml/textedits.h"

void TEditCollection::Insert(std::size_t begin, std::size_t removed, std::vector<TPart> parts) {
    for (const TPart& part : parts)
        if (!part.Moved.IsEmpty()) Moved.push_back(part.Moved);
    Edits.emplace(begin, TPending{removed, std::move(parts)});
}

bool TEditCollection::Take(std::vector<TTextEdit>* edits) {
    edits->clear();
    // Inner ones first.
    for (auto range = Moved.rbegin(); range != Moved.rend(); ++range)
        if (!PrintMoved(*range)) return false;
    return Print(Edits.begin(), Edits.end(), edits);
}

bool TEditCollection::Print(TEdits::const_iterator begin, TEdits::const_iterator end,
                            std::vector<TTextEdit>* edits) const {
    std::size_t place = 0;
    for (; begin != end; ++begin) {
        const auto& [placed, pending] = *begin;
        if (placed < place) return false;
        place = placed + pending.Removed;
        TTextEdit edit{placed, pending.Removed, {}};
        for (const TPart& part : pending.Parts) {
            edit.Inserted += part.Text;
            if (!part.Moved.IsEmpty()) edit.Inserted += MovedTexts.at(part.Moved.Begin);
        }
        edits->push_back(std::move(edit));
    }
    return true;
}

bool TEditCollection::PrintMoved(TTextRange range) {
    const auto begin = Edits.upper_bound(range.Begin);
    const auto end = Edits.lower_bound(range.End);
    std::vector<TTextEdit> edits;
    if (!Print(begin, end, &edits)) return false;
    Edits.erase(begin, end);
    if (!edits.empty() && edits.back().Begin + edits.back().Removed > range.End) return false;
    for (TTextEdit& edit : edits) edit.Begin -= range.Begin;
    MovedTexts[range.Begin] = ApplyEdits(Text.substr(range.Begin, range.End - range.Begin), edits);
    return true;
}
