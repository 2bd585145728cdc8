#pragma once

/// How many component names were destroyed so far.
int CountOfDestroyedNames();
