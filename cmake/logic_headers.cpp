// Carries the headers that the code without windows shares; see Targets.cmake.
