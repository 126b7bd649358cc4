// Carries the headers that the tests share; see Tests.cmake.
