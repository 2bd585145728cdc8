#pragma once
#include "services/xml/xmllist.h"
#include <string>

/// The first thing in a ProjectSettings element that no settings can hold, so that a save would
/// drop or replace it, in words that follow "a save would lose"; "" when a save keeps everything.
/// `section` is at the element's START, or at the tail for a file without settings.
std::string FindSettingsLoss(DListIterator<TElement*> section);
