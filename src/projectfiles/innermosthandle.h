#pragma once

class ISFileName;

/// The handle at the bottom of `file`, which may be a tracked name around others; null without one.
const ISFileName* GetInnermostHandle(const ISFileName* file);
