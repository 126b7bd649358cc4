#pragma once

#include <string>
#include <string_view>

namespace workbench::imp {

// The part of text without the white space (blank, tab, line ends, vertical tab, form feed) at its ends.
std::string_view StripWhitespace(std::string_view text);

// The page of a help topic: "<helpLocation>\name\<topic>.html" for the help file "name.hlp". Empty when an
// argument is empty, or when the file or topic would lead out of the help folder ("..", a separator, a
// drive).
std::string HelpPagePath(std::string_view helpLocation, std::string_view helpFile, std::string_view topic);

// A version resource's two halves as "major.minor.build.revision".
std::string VersionText(unsigned long high, unsigned long low);

}  // namespace workbench::imp
