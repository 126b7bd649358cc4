// Upper and lower case of single letters: Latin, Greek and Cyrillic, one character to one character.
#pragma once

namespace workbench {

// The other characters, and letters whose partner is no single character, are given back as they are.
char32_t ToLowerLetter(char32_t letter);
char32_t ToUpperLetter(char32_t letter);

}  // namespace workbench
