// Carries the precompiled headers of the code with windows; see Targets.cmake.
