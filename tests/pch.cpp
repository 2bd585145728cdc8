// Holds the precompiled header that the test programs share.
