// Decimal numbers as model files are full of them: a few digits, perhaps an exponent.
#pragma once

namespace file_explorer::preview {

// Reads a number at `start`: a sign, digits with or without a point, an exponent. Gives the place after it
// and the same value as a full conversion would; null when this is no number or one that needs a full
// conversion (very many digits, a large exponent, or so close to `end` that eight bytes can't be read at
// once).
const char* ReadShortDecimal(const char* start, const char* end, double* value);

}  // namespace file_explorer::preview
