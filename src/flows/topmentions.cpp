#include "flows/topmentions.h"
#include "services/base/mystring.h"

// A component's name is the text behind its tag.
void TTopMentions::Meet(const TMetElement& element) {
    if (element.Type == TElement::TEXT) {
        if (!IsInComponent) return;
        TMyString name = std::string(element.Text).c_str();
        name.Trim(1, 0);
        Tops.back().Entity = name.Str();
        return;
    }
    IsInComponent = element.Type == TElement::START && element.Name == "Component";
    if (element.Type != TElement::START) return;
    const auto attribute = [&](const char* name) {
        return std::string(element.GetAttribute(name));
    };
    if (element.Name == "ComponentList") Language = attribute("Language");
    if (IsInComponent)
        Tops.push_back(
            {Language, attribute("Library"), "", attribute("Architecture"), element.Place});
}
