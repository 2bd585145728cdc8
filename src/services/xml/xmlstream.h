#pragma once
#include "services/xml/xmllist.h"
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

// The steps that all section readers and writers are made of. An iterator at the tail answers every
// question with false and stays where it is.

using TElementIterator = DListIterator<TElement*>;
using TAttributeTexts = std::initializer_list<TAttributeView>;

// Pushing copies every text, once. Of attributes of one name the last value counts, at the first
// place.
void PushStart(TXMLList* document, const char* name, TAttributeTexts attributes = {});
void PushEnd(TXMLList* document, const char* name);
void PushText(TXMLList* document, std::string_view text);
/// START with the attributes, the text, END.
void PushTextElement(TXMLList* document, const char* name, std::string_view text,
                     TAttributeTexts attributes = {});

bool IsAtStart(const TElementIterator& element);
bool IsAtStart(const TElementIterator& element, const char* name);
bool IsAtEnd(const TElementIterator& element);
bool IsAtEnd(const TElementIterator& element, const char* name);
bool IsAtText(const TElementIterator& element);

/// Moves to the next START at or after `element`, or to the tail.
void SkipToStart(TElementIterator& element);
/// Moves past the END elements at `element`.
void SkipEnds(TElementIterator& element);
/// Moves past one END element, when `element` is one.
void SkipEnd(TElementIterator& element);
/// From a START past its own END, children included; anything else: one step.
void SkipElement(TElementIterator& element);
/// The caller is done with the elements before `element`: a list that is walked once deletes them.
void DropWhatWasRead(const TElementIterator& element);
/// The current element's text without surrounding white space; "" at the tail and on START and END.
std::string TrimmedText(const TElementIterator& element);
/// The same as a part of the element's text, which lives as long as the element.
std::string_view TrimmedTextView(const TElementIterator& element);
