#pragma once
#include "flows/documentfindings.h"
#include "services/xml/elementvisit.h"

/// Meets the elements of a build file one after the other, in document order, and lists its
/// top-level components.
class TTopMentions {
public:
    void Meet(const TMetElement& element);
    const std::vector<TTopMention>& GetTops() const { return Tops; }

private:
    bool IsInComponent = false;
    std::string Language;  // of the list met last
    std::vector<TTopMention> Tops;
};
