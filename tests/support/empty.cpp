// Carries the precompiled header that all test targets share.
