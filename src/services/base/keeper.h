#pragma once

/// Keeps an object that its owner drops without destroying it reachable until the process ends:
/// pointers handed out stay valid. An object's destructor calls ForgetKept, so that whoever knows
/// the object may still delete it. Both take constant time; null is ignored.
void KeepUntilExit(const void* object);
void ForgetKept(const void* object);
