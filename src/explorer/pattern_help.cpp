#include "src/explorer/pattern_help.h"

namespace file_explorer {

const char kPatternHelpText[] =
    "Select items based on a search pattern:\n"
    "\n"
    "abc = Matches all items which begin with letters 'abc'\n"
    "abc* = Same as above\n"
    "\"abc\" = Matches only the word 'abc'\n"
    "*abc* = Matches any item which contains the letters 'abc'\n"
    "* = Match everything\n"
    "*.3ds = Matches all items which end in '.3ds'\n"
    "? = Matches all one character strings\n"
    "??? = Matches all three character strings\n"
    "*test.obj = Matches '1test.obj', 'thisisatest.obj', 'test.obj'\n"
    "t*s*t.3ds = Matches 'test.3ds', 'tesseract.3ds'\n"
    "[a-z]s*t.3ds = Matches 'asset.3ds'\n"
    "s[!gh]t.dxf = Matches 'set.dxf'\n"
    "s[!e]t = Doesn't match 'set'\n"
    "[a-fh-z]* = Matches 'jack', 'flack', 'zoom'\n"
    "i\\** = Matches 'i*guess'\n"
    "[\\[-\\]] = Matches '[' and ']'\n"
    "[a-z\\] = Matches a, b, c, \\";

static_assert(sizeof(kPatternHelpText) <= kTooltipTextSize);

}  // namespace file_explorer
