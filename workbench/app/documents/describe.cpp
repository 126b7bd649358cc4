#include "workbench/app/documents/describe.h"

#include <algorithm>
#include <cstdio>

namespace workbench {
namespace {

struct TypeEntry {
  const char* extension;
  const char* description;
  FileKind kind;
};

constexpr TypeEntry kTypes[] = {
    {"3DS", "3D scene", FileKind::kModel},
    {"3MF", "3D manufacturing model", FileKind::kModel},
    {"BLEND", "3D scene", FileKind::kModel},
    {"DAE", "3D scene exchange file", FileKind::kModel},
    {"FBX", "3D scene exchange file", FileKind::kModel},
    {"GLB", "Binary 3D scene", FileKind::kModel},
    {"GLTF", "3D scene", FileKind::kModel},
    {"LWO", "3D object", FileKind::kModel},
    {"MTL", "3D material library", FileKind::kText},
    {"OBJ", "3D object", FileKind::kModel},
    {"OFF", "3D object", FileKind::kModel},
    {"PLY", "3D polygon model", FileKind::kModel},
    {"STEP", "CAD model", FileKind::kModel},
    {"STL", "3D printing model", FileKind::kModel},
    {"STP", "CAD model", FileKind::kModel},
    {"WRL", "3D world", FileKind::kModel},
    {"X", "3D object", FileKind::kModel},
    {"BMP", "Bitmap picture", FileKind::kPicture},
    {"DDS", "Texture", FileKind::kPicture},
    {"EXR", "High dynamic range picture", FileKind::kPicture},
    {"GIF", "GIF picture", FileKind::kPicture},
    {"HDR", "High dynamic range picture", FileKind::kPicture},
    {"ICO", "Icon", FileKind::kPicture},
    {"JPEG", "JPEG picture", FileKind::kPicture},
    {"JPG", "JPEG picture", FileKind::kPicture},
    {"PNG", "PNG picture", FileKind::kPicture},
    {"PSD", "Layered picture", FileKind::kPicture},
    {"TGA", "Targa picture", FileKind::kPicture},
    {"TIF", "TIFF picture", FileKind::kPicture},
    {"TIFF", "TIFF picture", FileKind::kPicture},
    {"WEBP", "WebP picture", FileKind::kPicture},
    {"AI", "Vector drawing", FileKind::kDrawing},
    {"CDR", "Vector drawing", FileKind::kDrawing},
    {"DWG", "CAD drawing", FileKind::kDrawing},
    {"DXF", "CAD drawing exchange file", FileKind::kDrawing},
    {"EMF", "Metafile drawing", FileKind::kDrawing},
    {"EPS", "PostScript drawing", FileKind::kDrawing},
    {"SVG", "SVG drawing", FileKind::kDrawing},
    {"WMF", "Metafile drawing", FileKind::kDrawing},
    {"C", "C source", FileKind::kText},
    {"CPP", "C++ source", FileKind::kText},
    {"CSS", "Style sheet", FileKind::kText},
    {"DOC", "Text document", FileKind::kText},
    {"DOCX", "Text document", FileKind::kText},
    {"H", "C header", FileKind::kText},
    {"HTM", "Web page", FileKind::kText},
    {"HTML", "Web page", FileKind::kText},
    {"INI", "Settings file", FileKind::kText},
    {"JSON", "JSON data", FileKind::kText},
    {"LOG", "Log file", FileKind::kText},
    {"MD", "Markdown text", FileKind::kText},
    {"PDF", "PDF document", FileKind::kText},
    {"PY", "Python script", FileKind::kText},
    {"RTF", "Rich text document", FileKind::kText},
    {"TXT", "Text file", FileKind::kText},
    {"XML", "XML data", FileKind::kText},
    {"YAML", "YAML data", FileKind::kText},
    {"7Z", "7z archive", FileKind::kArchive},
    {"CAB", "Cabinet archive", FileKind::kArchive},
    {"GZ", "Compressed file", FileKind::kArchive},
    {"RAR", "RAR archive", FileKind::kArchive},
    {"TAR", "Tape archive", FileKind::kArchive},
    {"ZIP", "ZIP archive", FileKind::kArchive},
    {"AVI", "Video", FileKind::kVideo},
    {"MKV", "Video", FileKind::kVideo},
    {"MOV", "Video", FileKind::kVideo},
    {"MP4", "Video", FileKind::kVideo},
    {"MPG", "Video", FileKind::kVideo},
    {"WEBM", "Video", FileKind::kVideo},
    {"WMV", "Video", FileKind::kVideo},
    {"AAC", "Audio file", FileKind::kAudio},
    {"FLAC", "Lossless audio file", FileKind::kAudio},
    {"MID", "MIDI music", FileKind::kAudio},
    {"MP3", "MP3 audio file", FileKind::kAudio},
    {"OGG", "Ogg audio file", FileKind::kAudio},
    {"WAV", "Wave sound", FileKind::kAudio},
    {"CSV", "Comma-separated table", FileKind::kTable},
    {"DB", "Database", FileKind::kTable},
    {"MDB", "Database", FileKind::kTable},
    {"ODS", "Spreadsheet", FileKind::kTable},
    {"SQLITE", "Database", FileKind::kTable},
    {"XLS", "Spreadsheet", FileKind::kTable},
    {"XLSX", "Spreadsheet", FileKind::kTable},
    {"ODP", "Presentation", FileKind::kSlides},
    {"PPT", "Presentation", FileKind::kSlides},
    {"PPTX", "Presentation", FileKind::kSlides},
    {"BAT", "Command script", FileKind::kOther},
    {"DLL", "Program library", FileKind::kOther},
    {"EXE", "Program", FileKind::kOther},
    {"LNK", "Shortcut", FileKind::kOther},
    {"OCX", "ActiveX control", FileKind::kOther},
    {"TTF", "Font", FileKind::kOther},
};

constexpr std::size_t kLongestExtension = 12;

constexpr const char* kMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                                   "July",    "August",   "September", "October", "November", "December"};

}  // namespace

std::string GroupedNumber(std::uint64_t number) {
  std::string digits = std::to_string(number);
  for (std::size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, ",");
  return digits;
}

std::string ExactSize(std::uint64_t bytes) {
  return GroupedNumber(bytes) + (bytes == 1 ? " byte" : " bytes");
}

std::string RoundedSize(std::uint64_t bytes) {
  if (bytes < 1024) return ExactSize(bytes);
  constexpr const char* kUnits[] = {"KB", "MB", "GB", "TB", "PB", "EB"};
  double value = static_cast<double>(bytes) / 1024;
  std::size_t unit = 0;
  // 999.5 and more would need a fourth digit.
  while (value >= 999.5 && unit + 1 < std::size(kUnits)) {
    value /= 1024;
    ++unit;
  }
  const int decimals = value < 9.995 ? 2 : value < 99.95 ? 1 : 0;
  char text[32];
  std::snprintf(text, sizeof text, "%.*f %s", decimals, value, kUnits[unit]);
  return text;
}

std::string FullSize(std::uint64_t bytes) {
  return bytes < 1024 ? ExactSize(bytes) : RoundedSize(bytes) + " (" + ExactSize(bytes) + ")";
}

std::string FormatDateTime(const DateTime& time) {
  if (time.month < 1 || time.month > 12) return {};
  char text[80];
  std::snprintf(text, sizeof text, "%d %s %d, %02d:%02d", time.day, kMonths[time.month - 1], time.year,
                time.hour, time.minute);
  return text;
}

std::string UpperExtension(std::string_view fileName) {
  const std::size_t separator = fileName.find_last_of("\\/:");
  if (separator != std::string_view::npos) fileName.remove_prefix(separator + 1);
  const std::size_t dot = fileName.rfind('.');
  if (dot == std::string_view::npos || dot == 0) return {};
  std::string extension(fileName.substr(dot + 1));
  for (char& c : extension) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    if (static_cast<unsigned char>(c) <= ' ' || static_cast<unsigned char>(c) > '~') return {};
  }
  return extension.size() <= kLongestExtension ? extension : std::string();
}

FileType DescribeType(std::string_view fileName) {
  const std::string extension = UpperExtension(fileName);
  if (extension.empty()) return {"File", FileKind::kOther};
  const auto* entry = std::find_if(std::begin(kTypes), std::end(kTypes),
                                   [&](const TypeEntry& type) { return extension == type.extension; });
  if (entry == std::end(kTypes)) return {extension + " file", FileKind::kOther};
  return {entry->description, entry->kind};
}

}  // namespace workbench
