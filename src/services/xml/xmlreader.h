#pragma once
#include "services/xml/documentplaces.h"
#include "services/xml/elementsequence.h"
#include "services/xml/elementvisit.h"
#include "services/xml/xmllist.h"
#include <string>
#include <string_view>

/// Elements nested deeper are a failure, for reading and writing alike. The root that a document
/// type names does not count, whether it is dropped or held.
inline constexpr std::size_t kMaxXMLNesting = 512;
/// More attributes of one element are one as well: memory stays in proportion to the document.
inline constexpr std::size_t kMaxXMLAttributes = 65536;

/// Parses a whole document into its element stream, without the root called `droppedRoot` (empty:
/// none is dropped). White space between two tags is dropped unless a reference or CDATA section
/// takes part in it; an empty CDATA section gives an empty text. On failure `elements` is empty and
/// line, column and reason of `error` are set; neither pointer may be null. `documentType`, unless
/// null, is given the document type line in UTF-8, empty when there is none: the elements are then
/// those of a list that holds the root.
/// `places`, unless null, gets the place of each element, and `documentPlaces` where they stand in
/// the document, the root included; on failure its elements do not count.
/// `released`, unless null, holds the bytes of `document` and is emptied when they are no longer
/// needed.
bool ReadXMLDocument(std::string_view document, std::string_view droppedRoot,
                     TElementSequence* elements, TXMLReadError* error,
                     std::string* documentType = nullptr, std::string* released = nullptr,
                     TXMLPlaces* places = nullptr, TDocumentPlaces* documentPlaces = nullptr);

/// The same without keeping them: on failure, those in front of the fault have been visited.
bool VisitXMLDocument(std::string_view document, std::string_view droppedRoot, TProgressWork work,
                      const TElementVisit& visit, TXMLReadError* error, std::string* released);
