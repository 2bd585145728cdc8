#pragma once
#include "flows/trees/treereaders.h"
#include <array>
#include <string>

using TReadTree = bool (*)(std::string_view text, TTree* tree, TTreeFault* fault);

inline std::string PlaceText(const TTreePlace& place) {
    return std::to_string(place.Line) + ":" + std::to_string(place.Column);
}

/// The value and what is in it, one a line, indented: place, key, kind, text.
inline std::string TextOfTree(const TTree& tree, const std::string& indent = "") {
    constexpr std::array<const char*, 7> kKinds = {"null", "boolean", "integer", "real",
                                                   "text", "list",    "map"};
    std::string text = indent + PlaceText(tree.Place) + " ";
    if (!tree.Key.empty()) text += tree.Key + " (" + PlaceText(tree.KeyPlace) + ") ";
    text += kKinds[static_cast<std::size_t>(tree.Kind)];
    text += tree.Text.empty() ? "\n" : " " + tree.Text + "\n";
    for (const TTree& value : tree.Values) text += TextOfTree(value, indent + "  ");
    return text;
}

/// The tree, or the fault with its place.
inline std::string ReadText(TReadTree read, const std::string& text) {
    TTree tree;
    TTreeFault fault;
    return read(text, &tree, &fault) ? TextOfTree(tree)
                                     : PlaceText(fault.Place) + ": " + fault.Reason;
}
